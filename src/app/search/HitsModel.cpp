#include "app/search/HitsModel.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/search/SearchIndex.h"
#include "platform/Locale.h"
#include "store/sql/StoreError.h"

#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace corvanta::inline app {
namespace {
constexpr int kPage = 64;
}

HitsModel::HitsModel(const Locale& locale, QObject* parent)
    : QAbstractTableModel(parent), locale_(locale) {}

void HitsModel::SetHits(std::shared_ptr<const SearchIndex> index, std::vector<SearchHit> hits) {
  beginResetModel();
  index_ = std::move(index);
  hits_ = std::move(hits);
  first_ = -1;
  read_.clear();
  endResetModel();
}

const SearchHit& HitsModel::Hit(int row) const {
  return hits_.at(hits_.size() - 1 - static_cast<std::size_t>(row));
}

QString HitsModel::Currency(int row) const {
  const SearchAccount* account = index_->Account(Hit(row).accountId);
  return account == nullptr ? QString() : ToQt(account->currency);
}

int HitsModel::RowOf(std::int64_t transactionId) const {
  const auto found = std::ranges::find(hits_, transactionId, &SearchHit::transactionId);
  return found == hits_.end() ? -1 : static_cast<int>(hits_.end() - found) - 1;
}

const FoundRow& HitsModel::Row(int row) const {
  const int first = row - row % kPage;
  if (first_ != first) {
    std::vector<SearchHit> wanted;
    for (int i = first; i < std::min(first + kPage, rowCount()); ++i) wanted.push_back(Hit(i));
    first_ = first;
    read_.assign(wanted.size(), FoundRow());
    try {
      read_ = ReadFound(*index_, wanted);
    } catch (const StoreError&) {
      // Whoever opens the row is told; until then it stands without its texts.
    }
  }
  return read_.at(static_cast<std::size_t>(row - first));
}

int HitsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(hits_.size());
}

int HitsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QString HitsModel::Text(int row, int column) const {
  const SearchHit& hit = Hit(row);
  switch (column) {
    case kAccount: {
      const SearchAccount* account = index_->Account(hit.accountId);
      return account == nullptr ? QString() : ToQt(account->account);
    }
    case kDate:
      return ToQt(locale_.FormatShortDate(hit.day));
    case kPayee:
      return ToQt(Row(row).row.payee);
    case kCategory:
      return ToQt(Row(row).row.category);
    case kDescription:
      return ToQt(Row(row).row.description);
    case kAmount:
      return ToQt(locale_.FormatNumber(hit.amount));
    case kCurrency:
      return Currency(row);
    default:
      return {};
  }
}

QVariant HitsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const int column = index.column();
  switch (role) {
    case Qt::DisplayRole:
      return Text(index.row(), column);
    case Qt::ToolTipRole:
      return Hit(index.row()).isInLines ? Text(index.row(), column) + tr(" (in a split line)")
                                        : Text(index.row(), column);
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignVCenter |
                                 (column == kAmount ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ForegroundRole:
      if (column != kAmount || Hit(index.row()).amount >= 0) return {};
      return MoneyOutColour(QGuiApplication::palette());
    default:
      return {};
  }
}

QVariant HitsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole && section == kAmount) {
    return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
  }
  if (role != Qt::DisplayRole) return {};
  static constexpr const char* kTitles[kColumns] = {
      QT_TR_NOOP("Account"),  QT_TR_NOOP("Date"),        QT_TR_NOOP("Payee"),
      QT_TR_NOOP("Category"), QT_TR_NOOP("Description"), QT_TR_NOOP("Amount"),
      QT_TR_NOOP("Currency")};
  return tr(kTitles[section]);
}

}  // namespace corvanta::inline app
