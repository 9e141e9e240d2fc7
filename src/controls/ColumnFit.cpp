#include "controls/ColumnFit.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace corvanta::inline controls {
namespace {

constexpr int kRoomy = 400;  // pixels that a text can use beyond what it likes to have

class Fit {
 public:
  Fit(const std::vector<ColumnNeed>& columns, int room) : columns_(columns), room_(room) {
    for (const ColumnNeed& column : columns) widths_.push_back(column.width);
  }

  std::vector<int> Widths() {
    while (Give(false, false) < Missing() && Hide(false)) {
    }
    while (Give(true, true) < Missing() && Hide(true)) {
    }
    if (Give(true, true) < Missing() && HasNames()) {
      ShrinkNames();
      return widths_;
    }
    Shrink(false, false);
    Shrink(false, true);
    Shrink(true, true);
    Stretch();
    return widths_;
  }

 private:
  [[nodiscard]] int Missing() const {
    return std::accumulate(widths_.begin(), widths_.end(), 0) - room_;
  }

  [[nodiscard]] int GiveOf(std::size_t column, bool withLast, bool withHand) const {
    const ColumnNeed& need = columns_[column];
    const bool gives =
        need.smallest > 0 && (withLast || !need.isLast) && (withHand || !need.isByHand);
    const int least = withLast && need.least > 0 ? need.least : need.smallest;
    return gives ? std::max(0, widths_[column] - least) : 0;
  }

  [[nodiscard]] int Give(bool withLast, bool withHand) const {
    int give = 0;
    for (std::size_t column = 0; column < widths_.size(); ++column) {
      give += GiveOf(column, withLast, withHand);
    }
    return give;
  }

  bool Hide(bool withLast) {
    int first = 0;
    for (std::size_t column = 0; column < columns_.size(); ++column) {
      const ColumnNeed& need = columns_[column];
      if (widths_[column] == 0 || need.leaves == 0 || (need.isLast && !withLast)) continue;
      if (first == 0 || need.leaves < first) first = need.leaves;
    }
    for (std::size_t column = 0; column < columns_.size(); ++column) {
      if (first != 0 && columns_[column].leaves == first) widths_[column] = 0;
    }
    return first != 0;
  }

  void Shrink(bool withLast, bool withHand) {
    int give = Give(withLast, withHand);
    int missing = std::min(Missing(), give);
    for (std::size_t column = 0; column < widths_.size() && missing > 0; ++column) {
      const int own = GiveOf(column, withLast, withHand);
      if (own == 0) continue;
      const int part = static_cast<int>(static_cast<long long>(missing) * own / give);
      widths_[column] -= part;
      missing -= part;
      give -= own;
    }
  }

  [[nodiscard]] static bool IsName(const ColumnNeed& need) { return need.least > 0; }

  [[nodiscard]] bool HasNames() const { return std::ranges::any_of(columns_, IsName); }

  // The list scrolls whatever they give: names can be read beside a fair part of the figures.
  void ShrinkNames() {
    int over = -room_ / 3;
    for (std::size_t column = 0; column < widths_.size(); ++column) {
      if (IsName(columns_[column])) over += widths_[column];
    }
    for (std::size_t column = widths_.size(); column-- > 0 && over > 0;) {
      if (!IsName(columns_[column])) continue;
      const int given = std::min(over, GiveOf(column, false, false));
      widths_[column] -= given;
      over -= given;
    }
  }

  // A text that has all it can use leaves the rest to the others: figures are not far from what
  // they are of. One that was set by hand stays so, unless there is no other to take what is over.
  void Stretch() {
    for (const bool withHand : {false, true}) {
      const auto takes = [&](std::size_t column) {
        return widths_[column] > 0 && (withHand || !columns_[column].isByHand);
      };
      int shares = 0;
      for (std::size_t i = 0; i < widths_.size(); ++i) shares += takes(i) ? columns_[i].stretch : 0;
      if (shares == 0) continue;
      for (std::size_t i = 0; i < widths_.size() && shares > 0; ++i) {
        const int share = takes(i) ? columns_[i].stretch : 0;
        const int more = Over() * share / shares;
        const int roomy = std::max(0, columns_[i].width + kRoomy - widths_[i]);
        widths_[i] += withHand ? more : std::min(more, roomy);
        shares -= share;
      }
      if (!withHand) ShareOver(takes);
      return;
    }
  }

  [[nodiscard]] int Over() const { return std::max(0, -Missing()); }

  // As much to each that does not stretch; to all where all do.
  template <typename Takes>
  void ShareOver(const Takes& takes) {
    std::vector<std::size_t> takers;
    for (const bool withTexts : {false, true}) {
      for (std::size_t i = 0; i < widths_.size(); ++i) {
        if (takes(i) && (withTexts || columns_[i].stretch == 0)) takers.push_back(i);
      }
      if (!takers.empty()) break;
    }
    for (std::size_t left = takers.size(); left > 0; --left) {
      widths_[takers[left - 1]] += Over() / static_cast<int>(left);
    }
  }

  const std::vector<ColumnNeed>& columns_;
  int room_;
  std::vector<int> widths_;
};

}  // namespace

std::vector<int> FitColumns(const std::vector<ColumnNeed>& columns, int room) {
  return Fit(columns, room).Widths();
}

}  // namespace corvanta::inline controls
