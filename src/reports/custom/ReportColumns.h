// Which columns of a report are shown.
#pragma once

#include "ledger/Warning.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline reports {

struct ReportTable;

// The headings of the columns of all reports, in the order of the alphabet.
[[nodiscard]] const std::vector<std::string>& AllReportColumns();

// Which of a report's headings are shown where those are picked, in the order of the alphabet; all
// of them where none of it is picked. What is not in the list above stands behind, all of it unless
// some of it is named.
[[nodiscard]] std::vector<std::string> ShownColumns(const std::vector<std::string>& headers,
                                                    const std::vector<std::string>& picked);
// The report with those of its columns alone, in their order; whole where none of them is its own.
[[nodiscard]] ReportTable OnlyColumns(ReportTable report, const std::vector<std::string>& columns);

// Items of a text that are separated by ",", and joined so again.
[[nodiscard]] std::vector<std::string> SplitItems(std::string_view list);
[[nodiscard]] std::string JoinItems(const std::vector<std::string>& items);

// "Pick Columns for Report": all headings with a tick each.
class ColumnPicker {
 public:
  // Those are ticked that stand in the list, letter for letter.
  explicit ColumnPicker(const std::vector<std::string>& current);

  [[nodiscard]] std::size_t Count() const { return ticks_.size(); }
  [[nodiscard]] const std::string& Name(std::size_t column) const;
  [[nodiscard]] bool IsTicked(std::size_t column) const { return ticks_.at(column); }
  void Tick(std::size_t column, bool isTicked) { ticks_.at(column) = isTicked; }
  // What keeps the choice from being taken over.
  [[nodiscard]] std::optional<Warning> Check() const;
  // The ticked headings, in the order of the alphabet.
  [[nodiscard]] std::vector<std::string> Columns() const;

 private:
  std::vector<bool> ticks_;
};

}  // namespace corvanta::inline reports
