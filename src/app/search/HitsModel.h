#pragma once

#include "ledger/search/TransactionSearch.h"

#include <QAbstractTableModel>

#include <functional>
#include <memory>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline ledger {
class SearchIndex;
}

namespace corvanta::inline app {

// The transactions that were found in all accounts, the newest first. Their texts are read as they
// come into sight.
class HitsModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kAccount, kDate, kPayee, kCategory, kDescription, kAmount, kCurrency, kColumns };

  HitsModel(const Locale& locale, QObject* parent);

  // As the search has them, the oldest first; null for none.
  void SetHits(std::shared_ptr<const SearchIndex> index, std::vector<SearchHit> hits);
  [[nodiscard]] const SearchHit& Hit(int row) const;
  // The code of the row's currency.
  [[nodiscard]] QString Currency(int row) const;
  // -1 where it is not among them.
  [[nodiscard]] int RowOf(std::int64_t transactionId) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  [[nodiscard]] const FoundRow& Row(int row) const;
  [[nodiscard]] QString Text(int row, int column) const;

  const Locale& locale_;
  std::shared_ptr<const SearchIndex> index_;
  std::vector<SearchHit> hits_;  // the oldest first
  mutable int first_ = -1;       // of the rows that were read last
  mutable std::vector<FoundRow> read_;
};

}  // namespace corvanta::inline app
