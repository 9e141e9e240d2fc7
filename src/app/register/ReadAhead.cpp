#include "app/register/ReadAhead.h"

#include "store/sql/Connection.h"
#include "store/sql/StoreError.h"

#include <QTimer>

#include <algorithm>

namespace corvanta::inline app {
namespace {

constexpr std::int64_t kLong = 20000;  // a shorter register is read in no time
constexpr std::size_t kSlice = 10000;  // some milliseconds
constexpr int kWhile = 400;            // milliseconds, before it begins
constexpr int kPause = 20;             // milliseconds, which belong to everything else

}  // namespace

ReadAhead::ReadAhead(RegisterShelf& shelf, QObject* parent)
    : QObject(parent), shelf_(shelf), timer_(new QTimer(this)) {
  timer_->setObjectName(QStringLiteral("tmrReadAhead"));
  connect(timer_, &QTimer::timeout, this, &ReadAhead::Step);
}

void ReadAhead::Start(Connection& store, const std::vector<AccountRow>& accounts,
                      const StatusFilter& filter, std::function<bool()> isBusy) {
  Stop();
  for (const AccountRow& account : accounts) {
    if (account.sums.count < kLong) continue;
    wanted_.push_back({{account.accountId, filter}, account.openingBalance, account.sums});
  }
  if (wanted_.empty()) return;
  std::ranges::sort(wanted_, {}, [](const Wanted& one) { return one.sums.count; });
  store_ = &store;
  stamp_ = store.Changes();
  isBusy_ = std::move(isBusy);
  timer_->start(kWhile);
}

void ReadAhead::Stop() {
  timer_->stop();
  wanted_.clear();
  rows_.reset();
  store_ = nullptr;
}

void ReadAhead::Step() {
  timer_->setInterval(kPause);
  if (store_->InTransaction() || isBusy_()) return;
  // The sums that it counts on are of the data as they were.
  if (store_->Changes() != stamp_) return Stop();
  try {
    if (rows_ == nullptr) Next();
    if (rows_ == nullptr) return Stop();
    rows_->ReadOn(kSlice);
    if (rows_->IsWhole()) rows_.reset();
  } catch (const StoreError&) {
    // Whoever asks for the register is told.
    Stop();
  }
}

void ReadAhead::Next() {
  while (rows_ == nullptr && !wanted_.empty()) {
    const Wanted next = wanted_.back();
    wanted_.pop_back();
    rows_ = shelf_.FetchAhead(*store_, next.scope, next.openingBalance, next.sums);
    if (rows_ != nullptr && rows_->IsWhole()) rows_.reset();
  }
}

}  // namespace corvanta::inline app
