#include "app/search/RegisterSearch.h"

#include "app/LedgerSession.h"
#include "app/ViewCommand.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "app/search/HitsModel.h"
#include "app/search/HitsTable.h"
#include "app/search/SearchBox.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "ledger/search/SearchIndex.h"
#include "platform/Platform.h"
#include "store/sql/Connection.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QTimer>

#include <algorithm>
#include <cstdlib>

namespace corvanta::inline app {
namespace {

constexpr std::size_t kRead = 2000;     // rows to be read, some milliseconds
constexpr std::size_t kSearch = 50000;  // rows to be looked through, about as long
constexpr int kWhile = 12;              // milliseconds at a time

}  // namespace

RegisterSearch::RegisterSearch(const ViewPlace& place, RegisterView& view, QObject* parent)
    : QObject(parent),
      place_(place),
      view_(view),
      box_(view.Search()),
      found_(new HitsTable(place.platform.locale, &view)),
      timer_(new QTimer(this)) {
  timer_->setObjectName(QStringLiteral("tmrFind"));
  box_.OfferEverywhere();
  view_.SetCover(found_);
  box_.ServeList(found_);
  box_.ServeList(&view_.Table());
  Connect();
}

void RegisterSearch::Connect() {
  const auto guarded = [this](void (RegisterSearch::*act)()) {
    return [this, act] { place_.host.Guard([this, act] { (this->*act)(); }); };
  };
  connect(timer_, &QTimer::timeout, this, guarded(&RegisterSearch::Step));
  connect(&box_, &SearchBox::Entered, this, [this] { anchor_ = CurrentRow(); });
  connect(&box_, &SearchBox::Typed, this, [this] { place_.host.Guard([this] { Begin(false); }); });
  connect(&box_, &SearchBox::Next, this, [this] { Go(true); });
  connect(&box_, &SearchBox::Previous, this, [this] { Go(false); });
  connect(&box_, &SearchBox::Moved, this, &RegisterSearch::Move);
  connect(&box_, &SearchBox::Left, this, [this] {
    Leave();
    place_.host.FocusView();
  });
  connect(found_, &QAbstractItemView::activated, this, guarded(&RegisterSearch::OpenHit));
  connect(found_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    ShowPlace();
    place_.host.MarkChoice();
  });
  connect(&view_, &RegisterView::ChoiceChanged, this, &RegisterSearch::ShowPlace);
  connect(&view_, &RegisterView::Shown, this, &RegisterSearch::Follow);
  connect(&view_, &RegisterView::DaysRead, this, [this] {
    stays_ = !rows_.empty();
    if (isDone_) Apply();
  });
}

int RegisterSearch::CurrentRow() const {
  return std::max(0, view_.Table().currentIndex().row());
}

void RegisterSearch::Begin(bool stays) {
  timer_->stop();
  search_.reset();
  isDone_ = false;
  stays_ = stays;
  if (box_.IsEmpty() || !place_.session.IsOpen()) return Leave();
  if (index_ == nullptr || !index_->IsCurrent()) {
    index_ = std::make_shared<SearchIndex>(place_.session.Ledger().Store());
  }
  box_.ShowFound(tr("Searching…"));
  Step();
  if (!isDone_) timer_->start(0);
}

void RegisterSearch::Step() {
  // A change that is under way ends before long; the list is shown anew after it.
  if (index_ == nullptr || place_.session.Ledger().Store().InTransaction()) return;
  if (!index_->IsCurrent()) return Begin(stays_);
  QElapsedTimer clock;
  clock.start();
  while (Work()) {
    if (clock.elapsed() >= kWhile) return;
  }
  timer_->stop();
  isDone_ = true;
  Apply();
}

bool RegisterSearch::Work() {
  if (!index_->IsWhole()) {
    index_->ReadOn(kRead);
    return true;
  }
  if (search_ == nullptr) {
    const SearchQuery query(FromQt(box_.Text()), place_.platform.locale);
    search_ = std::make_unique<TransactionSearch>(index_, query, SearchScope());
  }
  return !search_->GoOn(kSearch);
}

void RegisterSearch::Apply() {
  if (search_ == nullptr) return;
  if (box_.IsEverywhere()) {
    ApplyEverywhere();
  } else {
    ApplyHere();
  }
  stays_ = true;
}

void RegisterSearch::ApplyEverywhere() {
  rows_.clear();
  found_->SetHits(index_, search_->Hits());
  view_.Cover(true);
  ShowPlace();
}

void RegisterSearch::ApplyHere() {
  view_.Cover(false);
  shown_ = place_.host.Shown();
  KeySet keys;
  inLines_ = KeySet();
  for (const SearchHit& hit : search_->Hits()) {
    keys.Insert(hit.transactionId);
    if (hit.isInLines) inLines_.Insert(hit.transactionId);
  }
  rows_ = view_.Model().RowsAmong(keys);
  if (!rows_.empty() && !stays_) {
    // Nearest to where the person was; what stands below it before what stands above.
    const int nearest = *std::ranges::min_element(rows_, {}, [this](int row) {
      return 2 * std::abs(row - anchor_) + (row < anchor_ ? 1 : 0);
    });
    Reach(nearest);
  }
  ShowPlace();
}

void RegisterSearch::Reach(int row) {
  view_.Table().ChooseRow(row);
  const std::int64_t key = view_.Model().Key(row);
  if (inLines_.Has(key)) Q_EMIT FoundInLines(key);
}

void RegisterSearch::ShowPlace() {
  if (!isDone_ || box_.IsEmpty()) return;
  const auto number = [this](std::size_t value) {
    return view_.locale().toString(static_cast<qulonglong>(value));
  };
  if (box_.IsEverywhere()) {
    const int count = found_->Hits().rowCount();
    return box_.ShowFound(
        count == 0
            ? tr("Nothing found")
            : tr("%1 of %2")
                  .arg(number(std::max(0, found_->currentIndex().row()) + 1), number(count)));
  }
  if (rows_.empty()) {
    const std::size_t elsewhere = search_ == nullptr ? 0 : search_->Hits().size();
    return box_.ShowFound(elsewhere == 0 ? tr("Nothing found")
                                         : tr("None here, %1 in all").arg(number(elsewhere)));
  }
  const auto found = std::ranges::lower_bound(rows_, CurrentRow());
  const bool isOne = found != rows_.end() && *found == CurrentRow();
  const QString count = number(rows_.size());
  box_.ShowFound(
      isOne ? tr("%1 of %2").arg(number(static_cast<std::size_t>(found - rows_.begin()) + 1), count)
            : tr("%1 found").arg(count));
}

void RegisterSearch::Go(bool ahead) {
  if (!isDone_) return;
  if (box_.IsEverywhere()) {
    place_.host.Guard([this] { OpenHit(); });
    return;
  }
  if (rows_.empty()) return;
  const int current = CurrentRow();
  int next = ahead ? rows_.front() : rows_.back();
  if (ahead) {
    const auto after = std::ranges::upper_bound(rows_, current);
    if (after != rows_.end()) next = *after;
  } else {
    const auto from = std::ranges::lower_bound(rows_, current);
    if (from != rows_.begin()) next = *(from - 1);
  }
  anchor_ = next;
  Reach(next);
  ShowPlace();
}

void RegisterSearch::Move(int key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  QWidget* list = &view_.Table();
  if (box_.IsEverywhere()) list = found_;
  QCoreApplication::sendEvent(list, &press);
}

void RegisterSearch::OpenHit() {
  const SearchHit* chosen = found_->Chosen();
  if (chosen == nullptr || !view_.IsCovered()) return;
  const SearchHit hit = *chosen;
  box_.Clear();
  Leave();
  place_.host.ShowTransaction(hit.accountId, hit.transactionId);
  place_.host.FocusView();
}

void RegisterSearch::Leave() {
  timer_->stop();
  search_.reset();
  isDone_ = false;
  rows_.clear();
  box_.Clear();
  found_->SetHits(nullptr, {});
  view_.Cover(false);
}

void RegisterSearch::LetGo() {
  Leave();
  index_.reset();
}

void RegisterSearch::Follow() {
  const ViewCommand& shown = place_.host.Shown();
  const bool isSame = shown == shown_;
  shown_ = shown;
  anchor_ = CurrentRow();
  if (box_.IsEmpty()) {
    if (index_ != nullptr && !index_->IsCurrent()) index_.reset();
    return;
  }
  // What is looked for is looked for in this account then; a list of all accounts was left for it,
  // or for what another filter shows.
  if (box_.IsEverywhere() && !isSame) return Leave();
  Begin(true);
}

}  // namespace corvanta::inline app
