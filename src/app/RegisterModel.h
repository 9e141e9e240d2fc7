#pragma once

#include "controls/ListSort.h"
#include "ledger/clsCorvanta.h"

#include <QAbstractTableModel>

#include <vector>

namespace corvanta {

class Locale;

// The rows of a register as a table. Nothing is formatted before it is drawn, so that a register
// of any length opens at once.
class RegisterModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column {
    kDate,
    kPayee,
    kCategory,
    kPayment,
    kRef,
    kDescription,
    kStatus,
    kPaidOut,
    kPaidIn,
    kBalance,
    kColumns
  };
  static constexpr bool IsMoney(int column) { return column >= kPaidOut && column <= kBalance; }

  RegisterModel(const Locale& locale, QObject* parent);

  // Rows in date order; they are shown in the order that was last asked for.
  void SetRows(std::vector<RegisterRow> rows);
  // Rows after it are ahead: a forecast.
  void SetToday(Date today) { today_ = today; }
  [[nodiscard]] bool IsAhead(int row) const { return Row(row).date > today_; }
  void Sort(const SortState& sort);
  [[nodiscard]] const RegisterRow& Row(int row) const {
    return rows_.at(order_.at(static_cast<std::size_t>(row)));
  }
  // The row of the first day that is not before that one, or of the last day; -1 without rows.
  [[nodiscard]] int RowNear(Date day) const;
  // Of a transaction; -1 when it is not shown.
  [[nodiscard]] int RowOf(std::int64_t transactionId) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  [[nodiscard]] QString Text(const RegisterRow& row, int column) const;
  [[nodiscard]] SortKey Key(const RegisterRow& row) const;
  void PutInOrder();

  const Locale& locale_;
  std::vector<RegisterRow> rows_;
  std::vector<std::size_t> order_;
  SortState sort_;
  Date today_;
};

// What the marks of a row say, in words: "split, from a schedule"; empty for an ordinary row.
[[nodiscard]] QString MarksText(const RegisterRow& row, bool isAhead);

}  // namespace corvanta
