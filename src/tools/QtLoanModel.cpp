#include "tools/QtLoanModel.h"

#include "controls/QtText.h"
#include "platform/Locale.h"

namespace corvanta::inline tools {

QtLoanModel::QtLoanModel(LoanMode mode, const Locale& locale, QObject* parent)
    : QAbstractTableModel(parent),
      locale_(locale),
      columns_({{tr("Period"), nullptr}, {tr("Payment"), &LoanRow::payment}}) {
  if (mode == LoanMode::Mortgage) columns_.push_back({tr("Expense"), &LoanRow::expense});
  columns_.push_back({tr("Principle"), &LoanRow::principal});
  columns_.push_back({tr("Interest"), &LoanRow::interest});
  columns_.push_back({tr("Loan"), &LoanRow::balance});
}

void QtLoanModel::SetRows(std::vector<LoanRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

int QtLoanModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int QtLoanModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant QtLoanModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  if (role != Qt::DisplayRole || !index.isValid()) return {};
  const LoanRow& row = rows_.at(static_cast<std::size_t>(index.row()));
  const Column& column = columns_.at(static_cast<std::size_t>(index.column()));
  if (column.figure == nullptr) return QString::number(row.period);
  return ToQt(locale_.FormatNumber(row.*column.figure));
}

QVariant QtLoanModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  return columns_.at(static_cast<std::size_t>(section)).title;
}

}  // namespace corvanta::inline tools
