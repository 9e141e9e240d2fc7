#pragma once

#include "app/lists/ListModel.h"
#include "ledger/investments/TradeRows.h"

namespace corvanta::inline platform {
class Locale;
struct Platform;
}  // namespace corvanta::inline platform

namespace corvanta::inline app {

struct ViewCommand;

// The lines of the view of investment transactions, of which there may be many.
class TradeList : public ListRows {
 public:
  // In the order in which the view shows them.
  enum Column {
    kDate,
    kAccount,
    kInvestment,
    kSymbol,
    kAction,
    kDividend,
    kShares,
    kPrice,
    kCommission,
    kAmount,
    kStatus,
    kDescription
  };

  // Store and platform outlive this object. Throws StoreError.
  TradeList(Connection& store, const ViewCommand& command, const Platform& platform);

  // Whether the command's filter of rows has left some out.
  [[nodiscard]] bool HasHidden() const { return rows_.HasHidden(); }

  [[nodiscard]] std::size_t Count() const override { return rows_.Entries().size(); }
  [[nodiscard]] qint64 Key(std::size_t row) const override {
    return rows_.Entries().at(row).transactionId;
  }
  [[nodiscard]] std::vector<SortKey> SortKeys(std::size_t column) const override;
  [[nodiscard]] std::vector<ListRow> Make(const std::vector<std::size_t>& rows) const override;

 private:
  template <typename KeyOf>
  [[nodiscard]] std::vector<SortKey> Each(const KeyOf& keyOf) const;
  template <typename NameOf>
  [[nodiscard]] std::vector<SortKey> Named(std::int64_t TradeEntry::*key,
                                           const NameOf& nameOf) const;
  [[nodiscard]] std::vector<SortKey> Figures(double TradeEntry::*figure) const;
  [[nodiscard]] ListRow RowFor(const InvestmentTransactionRow& row) const;

  TradeRows rows_;
  const Locale& locale_;
  int decimals_;
};

}  // namespace corvanta::inline app
