#include "reconcile/QtReconcileModel.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/TableHead.h"
#include "platform/Locale.h"
#include "platform/TextCase.h"

#include <QGuiApplication>

#include <cmath>

namespace corvanta::inline reconcile {
namespace {

QString ImageText(std::string_view image) {
  if (image == "SCHEDULE") return QtReconcileModel::tr("from a schedule");
  if (image == "ALLOCATED") return QtReconcileModel::tr("split");
  return image == "TRANSFER" ? QtReconcileModel::tr("transfer") : QString();
}

}  // namespace

QtReconcileModel::QtReconcileModel(const Reconciliation& reconciliation, const Locale& locale,
                                   QObject* parent)
    : QAbstractTableModel(parent), reconciliation_(reconciliation), locale_(locale) {}

void QtReconcileModel::Reload(const SortState& sort) {
  beginResetModel();
  const std::vector<ReconcileRow>& rows = reconciliation_.Rows();
  order_ = SortedRows(rows.size(), sort.column == kDate ? SortState{} : sort,
                      [&](std::size_t row) { return Key(rows[row], sort.column); });
  endResetModel();
}

void QtReconcileModel::ShowTicks() {
  if (rowCount() == 0) return;
  Q_EMIT dataChanged(index(0, kDate), index(rowCount() - 1, kDate), {Qt::CheckStateRole});
}

int QtReconcileModel::RowOf(std::int64_t transactionId) const {
  for (int row = 0; row < rowCount(); ++row) {
    if (Row(row).transactionId == transactionId) return row;
  }
  return -1;
}

SortKey QtReconcileModel::Key(const ReconcileRow& row, int column) const {
  if (!IsMoney(column)) return SortKey(FoldCase(FromQt(Text(row, column))));
  const bool isInColumn = row.IsMoneyOut() == (column == kPaidOut);
  return isInColumn ? SortKey(std::abs(row.amount)) : SortKey();
}

int QtReconcileModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(order_.size());
}

int QtReconcileModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

Qt::ItemFlags QtReconcileModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags plain = QAbstractTableModel::flags(index);
  return index.column() == kDate ? plain | Qt::ItemIsUserCheckable : plain;
}

QVariant QtReconcileModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const ReconcileRow& row = Row(index.row());
  switch (role) {
    case Qt::DisplayRole:
      return Text(row, index.column());
    case Qt::CheckStateRole:
      if (index.column() != kDate) return {};
      return row.isTicked ? Qt::Checked : Qt::Unchecked;
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignVCenter |
                                 (IsMoney(index.column()) ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ForegroundRole:
      if (index.column() == kPaidOut) return MoneyOutColour(QGuiApplication::palette());
      return {};
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
      return Spoken(row, index.column());
    default:
      return {};
  }
}

QString QtReconcileModel::Text(const ReconcileRow& row, int column) const {
  switch (column) {
    case kDate:
      return ToQt(locale_.FormatShortDate(row.date));
    case kPayee:
      return ToQt(row.payee);
    case kCategory:
      return ToQt(row.category);
    case kRef:
      return ToQt(row.reference);
    case kDescription:
      return ToQt(row.description);
    case kStatus:
      return ToQt(row.status);
    case kPaidOut:
      return row.IsMoneyOut() ? ToQt(locale_.FormatNumber(-row.amount)) : QString();
    case kPaidIn:
      return row.IsMoneyOut() ? QString() : ToQt(locale_.FormatNumber(row.amount));
    default:
      return {};
  }
}

// What the picture beside the day means is said with the day.
QString QtReconcileModel::Spoken(const ReconcileRow& row, int column) const {
  const QString text = Text(row, column);
  const QString image = column == kDate ? ImageText(row.image) : QString();
  return image.isEmpty() ? text : text + QStringLiteral(" (") + image + u')';
}

QVariant QtReconcileModel::headerData(int section, Qt::Orientation orientation, int role) const {
  return HeadData(orientation, role, IsMoney(section), Title(section));
}

QString QtReconcileModel::Title(int section) {
  switch (section) {
    case kDate:
      return tr("Date");
    case kPayee:
      return tr("Payee");
    case kCategory:
      return tr("Category");
    case kRef:
      return tr("Ref");
    case kDescription:
      return tr("Description");
    case kStatus:
      return tr("Status");
    case kPaidOut:
      return tr("Paid Out");
    case kPaidIn:
      return tr("Paid In");
    default:
      return {};
  }
}

}  // namespace corvanta::inline reconcile
