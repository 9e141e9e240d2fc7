#pragma once

#include "tools/LoanCalculator.h"

#include <QAbstractTableModel>

#include <vector>

namespace corvanta::inline tools {

// The repayment table. Nothing is formatted before it is drawn.
class QtLoanModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  // The locale outlives the model.
  QtLoanModel(LoanMode mode, const Locale& locale, QObject* parent);

  void SetRows(std::vector<LoanRow> rows);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  struct Column {
    QString title;
    double LoanRow::*figure;  // null for the period
  };

  const Locale& locale_;
  std::vector<Column> columns_;
  std::vector<LoanRow> rows_;
};

}  // namespace corvanta::inline tools
