#include "app/register/RegisterModel.h"

#include "controls/QtText.h"
#include "ledger/KeySet.h"
#include "ledger/register/RegisterOrder.h"
#include "platform/Locale.h"
#include "store/sql/Connection.h"
#include "store/sql/StoreError.h"

#include <QTimer>

#include <algorithm>

namespace corvanta::inline app {
namespace {
constexpr std::size_t kAtOnce = 10000;
constexpr std::size_t kSlice = 15000;  // some milliseconds
constexpr int kPage = 64;
}  // namespace

RegisterModel::RegisterModel(const Locale& locale, QObject* parent)
    : QAbstractTableModel(parent), locale_(locale), cells_(*this, locale), idle_(new QTimer(this)) {
  idle_->setObjectName(QStringLiteral("tmrRegister"));
  connect(idle_, &QTimer::timeout, this, &RegisterModel::ReadOn);
}

void RegisterModel::SetRows(std::shared_ptr<RegisterRows> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  hasFailed_ = false;
  PutInOrder();
  endResetModel();
  // A short register is read at once.
  if (rows_ != nullptr) Try([this] { rows_->ReadOn(kAtOnce); });
  if (rows_ != nullptr && !rows_->IsWhole()) idle_->start(0);
}

void RegisterModel::ShowAccounts(bool show) {
  if (show == hasAccounts_) return;
  if (show) {
    beginInsertColumns({}, kAccount, kAccount);
    hasAccounts_ = true;
    endInsertColumns();
  } else {
    beginRemoveColumns({}, kAccount, kAccount);
    hasAccounts_ = false;
    endRemoveColumns();
  }
}

void RegisterModel::Sort(const SortState& sort) {
  beginResetModel();
  sort_ = sort;
  PutInOrder();
  endResetModel();
}

// By day is the order in which they are kept. The newest first are those turned round as a whole,
// so that the balances of one day read on, too.
void RegisterModel::PutInOrder() {
  idle_->stop();
  order_.clear();
  pages_ = {};
  if (rows_ == nullptr || sort_.column < 0 || sort_.column == kDate) {
    if (rows_ != nullptr && !rows_->IsWhole()) idle_->start(0);
    return;
  }
  Try([this] {
    order_ = SortedRegister(*rows_, static_cast<RegisterColumn>(sort_.column), sort_.isDescending);
  });
}

bool RegisterModel::IsReading() const {
  return idle_->isActive();
}

void RegisterModel::ReadOn() {
  const bool goesOn = rows_ != nullptr && !rows_->IsWhole() && !hasFailed_;
  const bool isCurrent = goesOn && rows_->IsCurrent();
  if (isCurrent && Try([this] { rows_->ReadOn(kSlice); }) && !rows_->IsWhole()) return;
  // A change that is under way ends before long.
  if (goesOn && !isCurrent && rows_->Store().InTransaction()) return;
  idle_->stop();
  if (!goesOn || hasFailed_) return;
  if (isCurrent) {
    Q_EMIT ReadWhole();
  } else {
    Q_EMIT Outdated();
  }
}

bool RegisterModel::Try(const std::function<void()>& read) const {
  try {
    read();
    return true;
  } catch (const StoreError& error) {
    // Reading is asked for while the list is drawn, where nothing can be told.
    auto* self = const_cast<RegisterModel*>(this);
    if (!hasFailed_) {
      QMetaObject::invokeMethod(
          self, [self, text = ToQt(error.what())] { Q_EMIT self->Failed(text); },
          Qt::QueuedConnection);
    }
    hasFailed_ = true;
    return false;
  }
}

bool RegisterModel::IsTodayAbove(int row) const {
  return sort_.column == kDate && row > 0 && IsAhead(row) != IsAhead(row - 1);
}

std::size_t RegisterModel::Place(int row) const {
  const auto index = static_cast<std::size_t>(row);
  if (index < order_.size()) return order_[index];
  return sort_.column == kDate && sort_.isDescending ? rows_->Count() - 1 - index : index;
}

int RegisterModel::RowAt(std::size_t place) const {
  if (!order_.empty()) {
    const auto found = std::ranges::find(order_, static_cast<std::uint32_t>(place));
    return static_cast<int>(found - order_.begin());
  }
  const bool isTurned = sort_.column == kDate && sort_.isDescending;
  return static_cast<int>(isTurned ? rows_->Count() - 1 - place : place);
}

const RegisterEntry& RegisterModel::Entry(int row) const {
  static const RegisterEntry kNone;
  const RegisterEntry* entry = &kNone;
  if (!hasFailed_) Try([&] { entry = &rows_->Entry(Place(row)); });
  return *entry;
}

const RegisterRow& RegisterModel::Row(int row) const {
  const int first = row - row % kPage;
  for (const Page& page : pages_) {
    if (page.first == first) return page.rows.at(static_cast<std::size_t>(row - first));
  }
  Page& page = pages_.at(nextPage_);
  nextPage_ = (nextPage_ + 1) % pages_.size();
  const int last = std::min(first + kPage, rowCount());
  page.first = first;
  page.rows.assign(static_cast<std::size_t>(last - first), RegisterRow());
  std::vector<std::size_t> places;
  for (int one = first; one < last; ++one) places.push_back(Place(one));
  if (!hasFailed_) Try([&] { page.rows = rows_->Read(places); });
  return page.rows.at(static_cast<std::size_t>(row - first));
}

int RegisterModel::RowNear(Date day) const {
  if (rowCount() == 0) return -1;
  if (!Try([&] { rows_->ReadBefore(day); })) return -1;
  std::size_t place = rows_->FirstRead();
  while (place + 1 < rows_->Count() && rows_->Entry(place).date < day) ++place;
  return RowAt(place);
}

std::vector<int> RegisterModel::RowsOf(Date day) const {
  std::vector<int> rows;
  if (rowCount() == 0 || !Try([&] { rows_->ReadBefore(day); })) return rows;
  for (std::size_t place = rows_->FirstRead(); place < rows_->Count(); ++place) {
    if (rows_->Entry(place).date == day) rows.push_back(RowAt(place));
  }
  return rows;
}

QSet<QDate> RegisterModel::Days() const {
  QSet<QDate> days;
  if (rows_ == nullptr) return days;
  Date last;
  for (std::size_t place = rows_->FirstRead(); place < rows_->Count(); ++place) {
    const Date date = rows_->Entry(place).date;
    if (days.isEmpty() || date != last) days.insert(ToQt(date));
    last = date;
  }
  return days;
}

QStringList RegisterModel::WidestFigures(int column) const {
  if (rowCount() == 0) return {};
  const RegisterRows::Extremes& of = rows_->Figures();
  const auto text = [this](double value) { return ToQt(locale_.FormatNumber(value)); };
  if (column == kBalance) return {text(of.leastBalance), text(of.mostBalance)};
  if (column == kPaidOut)
    return of.leastAmount < 0 ? QStringList{text(of.leastAmount)} : QStringList();
  return of.mostAmount < 0 ? QStringList() : QStringList{text(of.mostAmount)};
}

const std::vector<RegisterLine>& RegisterModel::Lines(std::int64_t transactionId) const {
  static const std::vector<RegisterLine> kNone;
  const auto found = lines_.find(transactionId);
  return found == lines_.end() ? kNone : found->second;
}

void RegisterModel::SetLines(std::int64_t transactionId, std::vector<RegisterLine> lines) {
  if (lines.empty()) {
    lines_.erase(transactionId);
  } else {
    lines_[transactionId] = std::move(lines);
  }
}

QString RegisterModel::AmountText(double amount) const {
  return ToQt(locale_.FormatNumber(amount));
}

double RegisterModel::Sum() const {
  if (rows_ == nullptr) return 0;
  return rows_->Totals().paidIn.value_or(0) + rows_->Totals().paidOut.value_or(0);
}

std::vector<int> RegisterModel::RowsAmong(const KeySet& keys) const {
  std::vector<int> rows;
  if (hasFailed_) return rows;
  for (int row = 0; row < rowCount(); ++row) {
    const std::size_t place = Place(row);
    if (place < rows_->FirstRead()) continue;
    if (keys.Has(rows_->Entry(place).transactionId)) rows.push_back(row);
  }
  return rows;
}

int RegisterModel::RowOf(std::int64_t transactionId) const {
  std::optional<std::size_t> place;
  if (rows_ != nullptr) Try([&] { place = rows_->RowOf(transactionId); });
  return place ? RowAt(*place) : -1;
}

int RegisterModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || rows_ == nullptr ? 0 : static_cast<int>(rows_->Count());
}

int RegisterModel::columnCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return hasAccounts_ ? kColumns : kAccount;
}

QVariant RegisterModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return cells_.Text(index.row(), index.column());
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignVCenter |
                                 (IsMoney(index.column()) ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole: {
      const QString text = cells_.Text(index.row(), index.column());
      const QString addition = cells_.Addition(index.row(), index.column());
      return addition.isEmpty() ? text : text + QStringLiteral(" (") + addition + u')';
    }
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
  return RegisterCells::Title(section);
}

}  // namespace corvanta::inline app
