#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvanta::inline invest {

// The two types of sources, as their column has them.
inline constexpr std::string_view kStockSource = "STOCK";
inline constexpr std::string_view kCurrencySource = "CURRENCY";

// How the value stands in what a source answers. The numbers are those that are kept.
enum class AnswerKind {
  Line = 0,    // the second of the fields between commas
  Page = 1,    // in a page, behind a marker
  Column = 2,  // in a table of comma-separated values, in a column that has a name
  Pointer = 3  // in a JSON text, at a pointer (RFC 6901)
};

// Where quotes or rates come from. Words in its texts stand for what is asked (see AddressOf).
struct SourceRow {
  std::int64_t dataId = 0;
  std::string name;
  std::string url;  // empty for prices entered by hand
  std::string key;  // the word in it that the symbol takes the place of
  std::string type;
  std::string lookUpUrl;
  std::int64_t occur = 0;  // 0 unless the answer is a page: how often the marker is looked for
  std::string start;       // in a page, the marker before the value
  // What the program keeps beside the table of the sources.
  AnswerKind kind = AnswerKind::Line;
  std::string field;   // the column's name, or the pointer
  std::string ownKey;  // the person's own with the service, which no message shows

  bool operator==(const SourceRow&) const = default;
};

}  // namespace corvanta::inline invest
