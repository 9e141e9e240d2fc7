#pragma once

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

  void SetRows(std::vector<RegisterRow> rows);
  [[nodiscard]] const RegisterRow& Row(int row) const {
    return rows_.at(static_cast<std::size_t>(row));
  }
  // The first row of that day or of a later one; rowCount() when there is none.
  [[nodiscard]] int FirstRowFrom(Date day) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  [[nodiscard]] QString Text(const RegisterRow& row, int column) const;

  const Locale& locale_;
  std::vector<RegisterRow> rows_;
};

// What the marks of a row say, in words: "Split, from a schedule"; empty for an ordinary row.
[[nodiscard]] QString MarksText(const RegisterRow& row);

}  // namespace corvanta
