// Which columns of a report are shown.
#pragma once

#include "ledger/Warning.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline reports {

// The headings of the columns of all reports, in the order of the alphabet.
[[nodiscard]] const std::vector<std::string>& AllReportColumns();

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
