#include "cli/arguments/CloseNames.h"

#include "platform/TextCase.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace corvanta::inline cli {
namespace {

constexpr std::size_t kMaxNames = 3;

struct Nearness {
  std::size_t whole;      // letters typed, dropped or changed between the two texts
  std::size_t beginning;  // the same to the nearest beginning of the name
};

Nearness Compare(const std::string& typed, const std::string& name) {
  std::vector<std::size_t> row(name.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= typed.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t j = 1; j <= name.size(); ++j) {
      const std::size_t changed = diagonal + (typed[i - 1] == name[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, changed});
    }
  }
  return {row.back(), *std::ranges::min_element(row)};
}

}  // namespace

std::vector<std::string> CloseNames(const std::string& typed,
                                    const std::vector<std::string>& names) {
  const std::string wanted = FoldCase(Trim(typed));
  if (wanted.empty()) return {};
  std::vector<std::pair<std::size_t, std::string>> close;
  for (const std::string& name : names) {
    const std::string folded = FoldCase(name);
    if (folded.empty()) continue;
    const Nearness nearness = Compare(wanted, folded);
    const bool within =
        folded.find(wanted) != std::string::npos || wanted.find(folded) != std::string::npos;
    if (within || nearness.beginning <= std::max<std::size_t>(1, wanted.size() / 3)) {
      close.emplace_back(nearness.whole, name);
    }
  }
  std::ranges::stable_sort(close, {}, &std::pair<std::size_t, std::string>::first);
  std::vector<std::string> nearest;
  for (auto& [distance, name] : close) {
    if (nearest.size() < kMaxNames) nearest.push_back(std::move(name));
  }
  return nearest;
}

std::string DidYouMean(const std::vector<std::string>& close) {
  if (close.empty()) return {};
  std::string question = " Did you mean ";
  const char* separator = "\"";
  for (const std::string& name : close) {
    question += separator + name + "\"";
    separator = ", \"";
  }
  return question + "?";
}

}  // namespace corvanta::inline cli
