#include "app/RegisterModel.h"

#include "controls/QtText.h"
#include "platform/Locale.h"
#include "platform/TextCase.h"

#include <algorithm>

namespace corvanta {

RegisterModel::RegisterModel(const Locale& locale, QObject* parent)
    : QAbstractTableModel(parent), locale_(locale) {}

void RegisterModel::SetRows(std::vector<RegisterRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  PutInOrder();
  endResetModel();
}

void RegisterModel::Sort(const SortState& sort) {
  beginResetModel();
  sort_ = sort;
  PutInOrder();
  endResetModel();
}

void RegisterModel::PutInOrder() {
  // That is the order in which they came.
  const bool isByDay = sort_ == SortState{kDate, false};
  order_ = SortedRows(rows_.size(), isByDay ? SortState{} : sort_,
                      [this](std::size_t row) { return Key(rows_[row]); });
}

SortKey RegisterModel::Key(const RegisterRow& row) const {
  switch (sort_.column) {
    case kDate:
      return SortKey(static_cast<double>(row.date.Serial()));
    case kPaidOut:
      return row.amount < 0 ? SortKey(row.amount) : SortKey();
    case kPaidIn:
      return row.amount < 0 ? SortKey() : SortKey(row.amount);
    case kBalance:
      return SortKey(row.balance);
    default:
      return SortKey(FoldCase(FromQt(Text(row, sort_.column))));
  }
}

int RegisterModel::RowNear(Date day) const {
  if (rows_.empty()) return -1;
  const auto found =
      std::lower_bound(rows_.begin(), rows_.end() - 1, day,
                       [](const RegisterRow& row, Date wanted) { return row.date < wanted; });
  const auto place =
      std::find(order_.begin(), order_.end(), static_cast<std::size_t>(found - rows_.begin()));
  return static_cast<int>(place - order_.begin());
}

int RegisterModel::RowOf(std::int64_t transactionId) const {
  for (int row = 0; row < rowCount(); ++row) {
    if (Row(row).transactionId == transactionId) return row;
  }
  return -1;
}

int RegisterModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int RegisterModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant RegisterModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const RegisterRow& row = Row(index.row());
  switch (role) {
    case Qt::DisplayRole:
      return Text(row, index.column());
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignVCenter |
                                 (IsMoney(index.column()) ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole: {
      const QString text = Text(row, index.column());
      const QString marks =
          index.column() == kPayee ? MarksText(row, IsAhead(index.row())) : QString();
      return marks.isEmpty() ? text : text + QStringLiteral(" (") + marks + u')';
    }
    default:
      return {};
  }
}

QString RegisterModel::Text(const RegisterRow& row, int column) const {
  switch (column) {
    case kDate:
      return ToQt(locale_.FormatShortDate(row.date));
    case kPayee:
      return ToQt(row.payee);
    case kCategory:
      return ToQt(row.category);
    case kPayment:
      return ToQt(row.payment);
    case kRef:
      return ToQt(row.reference);
    case kDescription:
      return ToQt(row.description);
    case kStatus:
      return ToQt(row.status);
    case kPaidOut:
      return row.amount < 0 ? ToQt(locale_.FormatNumber(row.amount)) : QString();
    case kPaidIn:
      return row.amount < 0 ? QString() : ToQt(locale_.FormatNumber(row.amount));
    case kBalance:
      return ToQt(locale_.FormatNumber(row.balance));
    default:
      return {};
  }
}

QVariant RegisterModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole && IsMoney(section)) {
    return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
  }
  if (role != Qt::DisplayRole) return {};
  switch (section) {
    case kDate:
      return tr("Date");
    case kPayee:
      return tr("Payee");
    case kCategory:
      return tr("Category");
    case kPayment:
      return tr("Payment");
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
    case kBalance:
      return tr("Balance");
    default:
      return {};
  }
}

QString MarksText(const RegisterRow& row, bool isAhead) {
  QStringList marks;
  if (isAhead) marks.append(RegisterModel::tr("still to come"));
  if (row.isSplit) marks.append(RegisterModel::tr("split"));
  if (row.isTransfer) marks.append(RegisterModel::tr("transfer"));
  if (row.scheduleId != 0) marks.append(RegisterModel::tr("from a schedule"));
  if (row.hasAttachment) marks.append(RegisterModel::tr("file attached"));
  return marks.join(QStringLiteral(", "));
}

}  // namespace corvanta
