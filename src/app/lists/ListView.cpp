#include "app/lists/ListView.h"

#include "app/LedgerSession.h"
#include "app/ViewCommand.h"
#include "app/ViewHeader.h"
#include "app/WindowLayout.h"
#include "app/filter/FilterStrip.h"
#include "app/lists/RowsText.h"
#include "app/register/TotalsLine.h"
#include "app/search/ListSearch.h"
#include "app/search/SearchBox.h"
#include "controls/EmptyState.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/Style.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "reports/print/ReportDialogs.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace corvanta::inline app {
namespace {
// What a column of texts keeps where there is little room.
constexpr int kSmallest = 9 * kRhythm;

int SmallestOf(const ListColumn& column) {
  const int least = column.smallest > 0 ? column.smallest : kSmallest;
  return column.stretch > 0 ? std::min(column.width, least) : column.width;
}
}  // namespace

ListView::ListView(const ViewPlace& place, ListTraits traits, QWidget* parent)
    : QWidget(parent),
      place_(place),
      traits_(std::move(traits)),
      header_(new ViewHeader(this)),
      pages_(new QStackedWidget(this)),
      table_(new SortedTable(this)),
      empty_(new EmptyState(this)),
      totals_(new TotalsLine(this)),
      model_(new ListModel(traits_.columns, this)),
      search_(nullptr) {
  table_->setObjectName(QLatin1String(traits_.listName));
  table_->setAccessibleName(traits_.title);
  table_->setAlternatingRowColors(true);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setModel(model_);
  std::vector<ListTable::Column> widths;
  for (const ListColumn& column : model_->Columns()) {
    widths.push_back({column.width, column.stretch, SmallestOf(column), column.leaves});
  }
  table_->SetColumns(std::move(widths));
  table_->SetSorted(traits_.sort);
  model_->Sort(traits_.sort);
  search_ = new ListSearch(place_.platform.locale, header_->Search(), *table_, *model_, this);
  connect(search_, &ListSearch::Narrowed, this, [this] {
    ShowPage();
    place_.host.MarkChoice();
  });
  table_->setContextMenuPolicy(Qt::ActionsContextMenu);
  table_->addActions({traits_.add, traits_.edit});
  if (traits_.remove != nullptr) table_->addAction(traits_.remove);
  Arrange();
  Connect();
}

void ListView::SetNeeds(const std::vector<ListColumn>& columns) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    table_->SetNeed(static_cast<int>(i), columns[i].width, SmallestOf(columns[i]));
  }
}

void ListView::Arrange() {
  pages_->addWidget(table_);
  pages_->addWidget(empty_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(header_);
  column->addWidget(pages_, 1);
  column->addWidget(totals_);
  setFocusProxy(table_);
}

void ListView::AddStrip(FilterStrip& strip) {
  auto* column = static_cast<QVBoxLayout*>(layout());
  header_->AddBeside(*strip.Button());
  column->insertWidget(1, &strip);
}

void ListView::Connect() {
  place_.On(traits_.add, this, [this] { Add(); });
  place_.On(traits_.edit, this, [this] {
    if (const std::int64_t key = CommandKey()) Edit(key);
  });
  if (traits_.remove != nullptr) {
    place_.On(traits_.remove, this, [this] {
      if (const std::int64_t key = CommandKey()) Delete(key);
    });
  }
  connect(table_, &QAbstractItemView::activated, this, [this](const QModelIndex& index) {
    const std::int64_t key = model_->Key(index.row());
    place_.host.Guard([this, key] { Open(key); });
  });
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { place_.host.MarkChoice(); });
  connect(table_, &SortedTable::SortChosen, this, [this] {
    place_.host.Guard([this] {
      const std::int64_t chosen = ChosenKey();
      model_->Sort(table_->Sorted());
      ChooseKey(chosen);
    });
  });
  connect(model_, &ListModel::Failed, this, [this](const QString& reason) {
    place_.platform.prompts.Tell("Data File", FromQt(reason), Icon::Warning);
  });
}

void ListView::Restore(const Registry& registry) {
  table_->SetWidths(ReadWidths(registry, traits_.widthsName));
}

void ListView::Keep(std::map<std::string, std::string>& values) const {
  values[std::string(traits_.widthsName)] = FromQt(table_->Widths());
}

bool ListView::Can(EditTask task) const {
  switch (task) {
    case EditTask::Insert:
      return true;
    case EditTask::Details:
    case EditTask::Copy:
      return ChosenKey() != 0;
    case EditTask::Delete:
      return traits_.remove != nullptr && ChosenKey() != 0;
    default:
      return false;
  }
}

void ListView::Do(EditTask task) {
  if (!Can(task)) return;
  if (task == EditTask::Insert) Add();
  if (task == EditTask::Details) Edit(ChosenKey());
  if (task == EditTask::Copy) QGuiApplication::clipboard()->setText(ChosenText());
  if (task == EditTask::Delete) Delete(ChosenKey());
}

void ListView::MarkCommands(bool /*isShown*/) {
  const bool isChosen = CommandKey() != 0;
  traits_.edit->setEnabled(isChosen);
  if (traits_.remove != nullptr) traits_.remove->setEnabled(isChosen);
}

std::int64_t ListView::CommandKey() const {
  const bool isShown = place_.session.IsOpen() && place_.host.Shown().name == Name();
  return isShown ? ChosenKey() : 0;
}

PrintTable ListView::Printed() const {
  PrintTable printed = PrintTableOf(*table_, FromQt(traits_.title));
  if (totals_->isVisibleTo(this)) printed.summaries = totals_->Printed();
  return printed;
}

std::int64_t ListView::RowCount() const {
  return model_->rowCount();
}

std::set<std::int64_t> ListView::ShownOf(const std::vector<std::int64_t>& /*transactions*/) const {
  std::set<std::int64_t> keys;
  for (int row = 0; row < model_->rowCount(); ++row) keys.insert(model_->Key(row));
  return keys;
}

std::int64_t ListView::ChosenKey() const {
  const QModelIndexList chosen = table_->selectionModel()->selectedRows();
  return chosen.isEmpty() ? 0 : model_->Key(chosen.constFirst().row());
}

bool ListView::ChooseKey(std::int64_t key) {
  // A new row may not have what is looked for.
  if (model_->RowOf(key) < 0 && !header_->Search().IsEmpty()) search_->Leave();
  const int row = model_->RowOf(key);
  if (row < 0) return false;
  table_->ChooseRow(row);
  return true;
}

std::vector<std::int64_t> ListView::ChosenKeys() const {
  std::vector<std::int64_t> keys;
  const QItemSelectionModel& chosen = *table_->selectionModel();
  for (int row = 0; row < model_->rowCount(); ++row) {
    if (chosen.isRowSelected(row)) keys.push_back(model_->Key(row));
  }
  return keys;
}

QString ListView::ChosenText() const {
  return RowsAsText(*table_, ChosenRowsOf(*table_));
}

void ListView::Fill(std::vector<ListRow> rows, const QString& details, const QString& count,
                    const QStringList& figures, const Nothing& nothing) {
  Fill(ReadyRows(std::move(rows)), details, count, figures, nothing);
}

void ListView::Empty() {
  model_->SetRows(nullptr);
}

void ListView::Fill(std::unique_ptr<ListRows> rows, const QString& details, const QString& count,
                    const QStringList& figures, const Nothing& nothing) {
  header_->Show(traits_.title, details);
  totals_->Show(count, figures, false);
  totals_->setVisible(rows->Count() > 0);
  nothing_ = nothing;
  const std::int64_t chosen = ChosenKey();
  const int place = table_->currentIndex().row();
  model_->SetRows(std::move(rows));
  const int shown = model_->rowCount();
  ShowPage();
  search_->ShowFound();
  if (shown == 0) return;
  if (chosen != 0) {
    // What does not fit the search any more is not gone to: the search stays.
    const int row = model_->RowOf(chosen);
    table_->ChooseRow(row >= 0 ? row : std::min(place, shown - 1));
    return;
  }
  // The keyboard has a place to start from.
  table_->selectionModel()->setCurrentIndex(model_->index(0, 0), QItemSelectionModel::NoUpdate);
}

void ListView::ShowPage() {
  const bool isEmpty = model_->rowCount() == 0;
  if (isEmpty && model_->Whole() > 0) {
    empty_->Show(QStringLiteral("find"), tr("Nothing found"),
                 tr("No row of this list has what is looked for. Escape shows all of them."),
                 nullptr);
  } else if (isEmpty) {
    QAction* add = nothing_.command != nullptr ? nothing_.command : traits_.add;
    empty_->Show(nothing_.icon, nothing_.title, nothing_.text, add);
  }
  pages_->setCurrentIndex(isEmpty ? 1 : 0);
  setFocusProxy(pages_->currentWidget());
}

ChosenTotals ListView::TotalsOfChosen() const {
  ChosenTotals totals;
  for (const int row : ChosenRowsOf(*table_)) {
    const ListRow& chosen = model_->Row(row);
    if (chosen.amount) totals.Add(*chosen.amount, chosen.currency);
  }
  return totals;
}

SearchBox* ListView::Search() const {
  return &header_->Search();
}

}  // namespace corvanta::inline app
