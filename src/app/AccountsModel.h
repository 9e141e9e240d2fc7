#pragma once

#include "ledger/clsCorvanta.h"

#include <QAbstractTableModel>

#include <vector>

namespace corvanta {

class Locale;

// The accounts as a table, with their balances.
class AccountsModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { kAccount, kGroup, kBank, kNumber, kCurrency, kOpening, kBalance, kColumns };
  static constexpr bool IsMoney(int column) { return column == kOpening || column == kBalance; }

  AccountsModel(const Locale& locale, QObject* parent);

  void SetRows(std::vector<AccountRow> rows);
  [[nodiscard]] const AccountRow& Row(int row) const {
    return rows_.at(static_cast<std::size_t>(row));
  }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  [[nodiscard]] QString Text(const AccountRow& row, int column) const;

  const Locale& locale_;
  std::vector<AccountRow> rows_;
};

}  // namespace corvanta
