#include "invest/prices/AnswerReader.h"

#include "exchange/csv/CsvRows.h"
#include "platform/TextCase.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>

namespace corvanta::inline invest {
namespace {

// Two sources of the program whose pages close the price in ways of their own.
constexpr std::int64_t kClosedByAnyTag = 6;
constexpr std::int64_t kClosedByPicture = 8;
constexpr const char* kStars = "***";

bool IsWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

bool IsSpace(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// A word in a text, and what takes its place.
struct Placeholder {
  std::string_view word;
  std::string value;
  bool isByItself = true;  // only where no letter or digit touches it
};

bool StandsAt(const Placeholder& placeholder, std::string_view text, std::size_t at) {
  if (placeholder.word.empty() || !text.substr(at).starts_with(placeholder.word)) return false;
  if (!placeholder.isByItself) return true;
  const std::size_t end = at + placeholder.word.size();
  return (at == 0 || !IsWordCharacter(text[at - 1])) &&
         (end == text.size() || !IsWordCharacter(text[end]));
}

// In one pass, so that what was put in is never replaced itself.
std::string Filled(std::string_view text, const std::vector<Placeholder>& placeholders) {
  std::string filled;
  for (std::size_t at = 0; at < text.size();) {
    const auto found = std::ranges::find_if(placeholders, [&](const Placeholder& placeholder) {
      return StandsAt(placeholder, text, at);
    });
    if (found == placeholders.end()) {
      filled += text[at++];
    } else {
      filled += found->value;
      at += found->word.size();
    }
  }
  return filled;
}

bool IsHex(std::string_view text, std::size_t at) {
  constexpr std::string_view kDigits = "0123456789abcdefABCDEF";
  return at < text.size() && kDigits.find(text[at]) != std::string_view::npos;
}

// What is percent-encoded already stays.
std::string Encoded(std::string_view text) {
  constexpr std::string_view kPlain = "-._~=:@/,$!*();'";
  std::string encoded;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    const bool isCode = c == '%' && IsHex(text, at + 1) && IsHex(text, at + 2);
    if (isCode || IsWordCharacter(c) || kPlain.find(c) != std::string_view::npos) {
      encoded += c;
    } else {
      encoded += fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
  }
  return encoded;
}

std::vector<Placeholder> PlaceholdersOf(const SourceRow& source, const SourceQuestion& question,
                                        std::string (*write)(std::string_view)) {
  std::vector<Placeholder> placeholders;
  if (!source.ownKey.empty()) placeholders.push_back({kOwnKeyWord, write(source.ownKey)});
  if (!question.from.empty()) {
    placeholders.push_back({"FROM", write(question.from)});
    placeholders.push_back({"TO", write(question.to)});
  }
  placeholders.push_back({source.key, write(question.symbol), false});
  return placeholders;
}

std::string AsItIs(std::string_view text) {
  return std::string(text);
}

// In a pointer two characters have another meaning.
std::string InPointer(std::string_view text) {
  return Filled(text, {{"~", "~0", false}, {"/", "~1", false}});
}

std::string Bare(std::string_view value) {
  std::string bare(value);
  std::erase_if(bare, [](char c) { return IsSpace(c) || c == '"'; });
  return bare;
}

SourceReading Problem(const std::string& text) {
  return {{}, text};
}

SourceReading ReadLine(std::string_view answer) {
  SourceReading reading;
  for (std::size_t at = 0;;) {
    const std::size_t end = std::min(answer.find(',', at), answer.size());
    reading.fields.emplace_back(answer.substr(at, end - at));
    if (end == answer.size()) break;
    at = end + 1;
  }
  if (reading.fields.size() < 3) {
    return Problem("The answer is no line of at least three fields with commas between them.");
  }
  std::erase_if(reading.fields[1], IsSpace);
  return reading;
}

std::string_view ClosingOf(std::int64_t dataId) {
  if (dataId == kClosedByAnyTag) return "<";
  return dataId == kClosedByPicture ? "<img" : "</";
}

SourceReading ReadPage(const SourceRow& source, std::string_view page) {
  std::string marker = source.start;
  std::size_t at = 0;
  for (std::int64_t round = 0; round < source.occur; ++round) {
    std::size_t found = page.find(marker, at);
    if (found == std::string_view::npos) {
      // Some pages write their attributes without quotes.
      std::erase(marker, '"');
      found = page.find(marker, at);
    }
    if (marker.empty() || found == std::string_view::npos) {
      return Problem(
          fmt::format("The marker {} does not stand {} in the page.", source.start,
                      source.occur == 1 ? "anywhere" : fmt::format("{} times", source.occur)));
    }
    at = found + marker.size();
  }
  const std::size_t end = page.find(ClosingOf(source.dataId), at);
  const std::size_t tag = end == std::string_view::npos ? end : page.substr(0, end).rfind('>');
  if (tag == std::string_view::npos) {
    return Problem("Behind the marker no tag begins, or none ends, around a value.");
  }
  return {{source.name, Bare(page.substr(tag + 1, end - tag - 1))}, {}};
}

std::string_view SeparatorOf(std::string_view table) {
  const std::string_view heading = table.substr(0, table.find('\n'));
  for (const std::string_view separator : {",", ";", "\t"}) {
    if (heading.find(separator) != std::string_view::npos) return separator;
  }
  return ",";
}

SourceReading ReadColumn(const std::string& name, std::string_view table) {
  CsvRows rows(table, SeparatorOf(table));
  CsvRow heading;
  CsvRow row;
  if (!rows.Next(heading)) return Problem("The answer is empty.");
  const auto found = std::ranges::find_if(
      heading.cells, [&](const std::string& cell) { return EqualFolded(Trim(cell), Trim(name)); });
  if (found == heading.cells.end()) {
    return Problem("The first line of the answer names no column \"" + name + "\".");
  }
  const auto column = static_cast<std::size_t>(found - heading.cells.begin());
  while (rows.Next(row) && row.IsBlank()) {
  }
  if (row.cells.size() <= column)
    return Problem("There is no line below the names of the columns.");
  return {{name, Bare(row.cells[column])}, {}};
}

SourceReading ReadPointer(const std::string& pointer, std::string_view text) {
  using Json = nlohmann::json;
  try {
    const Json document = Json::parse(text);
    const Json& value = document.at(Json::json_pointer(pointer));
    if (value.is_string()) return {{pointer, Bare(value.get<std::string>())}, {}};
    if (value.is_number()) return {{pointer, value.dump()}, {}};
    return Problem("What stands at " + pointer + " in the answer is no number.");
  } catch (const Json::parse_error& fault) {
    // Whether the text or the pointer is none, the library says by its number.
    return Problem(fault.id == 101 ? "The answer is no JSON text."
                                   : "\"" + pointer +
                                         "\" is no JSON pointer: it has a / before "
                                         "each name on the way to the value.");
  } catch (const Json::exception&) {
    return Problem("There is nothing at " + pointer + " in the answer.");
  }
}

}  // namespace

std::string AddressOf(const SourceRow& source, const SourceQuestion& question) {
  return Filled(source.url, PlaceholdersOf(source, question, Encoded));
}

SourceReading ReadAnswer(const SourceRow& source, const SourceQuestion& question,
                         std::string_view answer) {
  switch (source.kind) {
    case AnswerKind::Page:
      return ReadPage(source, answer);
    case AnswerKind::Column:
      return ReadColumn(Filled(source.field, PlaceholdersOf(source, question, AsItIs)), answer);
    case AnswerKind::Pointer:
      return ReadPointer(Filled(source.field, PlaceholdersOf(source, question, InPointer)), answer);
    default:
      return ReadLine(Trim(answer));
  }
}

std::string WithoutOwnKey(const SourceRow& source, std::string text) {
  if (source.ownKey.empty()) return text;
  const std::string encoded = Encoded(source.ownKey);
  return Filled(text, {{source.ownKey, kStars, false}, {encoded, kStars, false}});
}

}  // namespace corvanta::inline invest
