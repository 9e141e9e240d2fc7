#include "app/AccountsModel.h"

#include "app/QtText.h"
#include "controls/Style.h"
#include "platform/Locale.h"

#include <QGuiApplication>

namespace corvanta {

AccountsModel::AccountsModel(const Locale& locale, QObject* parent)
    : QAbstractTableModel(parent), locale_(locale) {}

void AccountsModel::SetRows(std::vector<AccountRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

int AccountsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int AccountsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant AccountsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const AccountRow& row = Row(index.row());
  switch (role) {
    case Qt::DisplayRole:
      return Text(row, index.column());
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignVCenter |
                                 (IsMoney(index.column()) ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ForegroundRole: {
      const bool negative = (index.column() == kBalance && row.balance < 0) ||
                            (index.column() == kOpening && row.openingBalance < 0);
      if (negative) return MoneyOutColour(QGuiApplication::palette());
      return {};
    }
    case Qt::ToolTipRole:
      return row.description.empty() ? Text(row, index.column()) : ToQt(row.description);
    default:
      return {};
  }
}

QString AccountsModel::Text(const AccountRow& row, int column) const {
  switch (column) {
    case kAccount:
      return ToQt(row.account) + (row.closed ? QStringLiteral(" [Closed] ") : QString());
    case kGroup:
      return ToQt(row.accountType);
    case kBank:
      return ToQt(row.bank);
    case kNumber:
      return ToQt(row.accountNo);
    case kCurrency:
      return ToQt(row.currency);
    case kOpening:
      return ToQt(locale_.FormatNumber(row.openingBalance));
    case kBalance:
      return ToQt(locale_.FormatNumber(row.balance));
    default:
      return {};
  }
}

QVariant AccountsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole && IsMoney(section)) {
    return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
  }
  if (role != Qt::DisplayRole) return {};
  switch (section) {
    case kAccount:
      return tr("Account");
    case kGroup:
      return tr("Group");
    case kBank:
      return tr("Bank");
    case kNumber:
      return tr("Number");
    case kCurrency:
      return tr("Currency");
    case kOpening:
      return tr("Opening Balance");
    case kBalance:
      return tr("Balance");
    default:
      return {};
  }
}

}  // namespace corvanta
