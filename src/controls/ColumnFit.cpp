#include "controls/ColumnFit.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace corvanta::inline controls {
namespace {

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

  // One that was set by hand stays so, unless there is no other to take what is over.
  void Stretch() {
    const auto stretches = [this](std::size_t column, bool withHand) {
      return widths_[column] > 0 && (withHand || !columns_[column].isByHand)
                 ? columns_[column].stretch
                 : 0;
    };
    for (const bool withHand : {false, true}) {
      int shares = 0;
      for (std::size_t i = 0; i < widths_.size(); ++i) shares += stretches(i, withHand);
      int over = std::max(0, -Missing());
      for (std::size_t i = 0; i < widths_.size() && shares > 0; ++i) {
        const int share = stretches(i, withHand);
        const int extra = over * share / shares;
        widths_[i] += extra;
        over -= extra;
        shares -= share;
        if (shares == 0) return;
      }
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
