#include "app/register/TransactionShowView.h"

#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/ViewCommand.h"
#include "app/WindowLayout.h"
#include "app/lists/ListColours.h"
#include "app/lists/UnfoldedRows.h"
#include "app/register/ItemCommands.h"
#include "app/register/ReadAhead.h"
#include "app/register/RegisterView.h"
#include "app/search/HitsTable.h"
#include "app/search/RegisterSearch.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "exchange/ExchangeDialogs.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/register/Balances.h"
#include "ledger/register/RegisterRows.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Settings.h"
#include "reports/print/ReportDialogs.h"

#include <QAction>

#include <algorithm>
#include <string>

namespace corvanta::inline app {

TransactionShowView::TransactionShowView(const ViewPlace& place, QWidget* parent)
    : QObject(parent),
      place_(place),
      register_(new RegisterView(
          place.platform.locale,
          {place.actions.mnuTransAdd, place.actions.mnuViewAccounts, place.actions.mnuViewAll},
          parent)),
      commands_(place, *register_),
      ahead_(new ReadAhead(shelf_, this)),
      items_(new ItemCommands(place, *register_, *this, this)),
      search_(new RegisterSearch(place, *register_, this)),
      unfolded_(new UnfoldedRows(place, *register_, this)) {
  register_->SetToday(place.host.Today());
  Connect();
  ConnectColumns();
}

std::string_view TransactionShowView::Name() const {
  return kTransactionShow;
}

QAction* TransactionShowView::Entry() const {
  return place_.actions.mnuViewRegister;
}

QWidget* TransactionShowView::Widget() {
  return register_;
}

QAction* TransactionShowView::AddCommand() const {
  return place_.actions.mnuTransAdd;
}

QString TransactionShowView::Title() const {
  return register_->Title();
}

FilterStrip* TransactionShowView::Strip() const {
  return &register_->Strip();
}

SortedTable* TransactionShowView::Table() const {
  return &register_->Table();
}

SearchBox* TransactionShowView::Search() const {
  return &register_->Search();
}

void TransactionShowView::Connect() {
  connect(register_, &RegisterView::ChoiceChanged, this, [this] { place_.host.MarkChoice(); });
  connect(register_, &RegisterView::PeriodChanged, this, [this] { place_.host.ApplyFilter(); });
  connect(register_, &RegisterView::DaysRead, this, [this] { place_.host.ShowSurroundings(); });
  connect(register_, &RegisterView::Outdated, this, [this] { place_.host.Reload(); });
  connect(register_, &RegisterView::Failed, this, [this](const QString& reason) {
    place_.platform.prompts.Tell("Data File", FromQt(reason), Icon::Warning);
  });
  connect(search_, &RegisterSearch::FoundInLines, this, [this](qint64 key) {
    place_.host.Guard([this, key] { unfolded_->Unfold(key); });
    register_->ChooseKey(key);
  });
  place_.On(place_.actions.mnuFileExport, this, [this] { ExportRegister(); });
}

void TransactionShowView::ConnectColumns() {
  for (QAction* tick : ColumnChoices()) {
    place_.On(tick, this, [this] { KeepColumns(); });
  }
}

std::optional<AccountRow> TransactionShowView::Find(std::int64_t accountId,
                                                    std::optional<EntrySums>& sums) const {
  const std::vector<AccountRow>& accounts = place_.host.Accounts();
  const auto found = std::ranges::find(accounts, accountId, &AccountRow::accountId);
  if (found != accounts.end()) {
    // What the tree has counted need not be counted again, as long as it is still so.
    if (place_.host.AreAccountsCurrent()) sums = found->sums;
    return *found;
  }
  // One that is closed and hidden can still be gone to, as the other side of a transfer.
  if (accountId == 0) return std::nullopt;
  return place_.session.Ledger().Accounts().FindAccount('#' + std::to_string(accountId));
}

void TransactionShowView::Show(const ViewCommand& command) {
  register_->SetToday(place_.host.Today());
  register_->SetPeriod(command.dates);
  isShown_ = false;
  if (!command.rows.IsEmpty()) return ShowFiltered(command);
  std::optional<EntrySums> sums;
  const std::optional<AccountRow> account = Find(command.accountId, sums);
  account_ = account ? account->accountId : 0;
  uncleared_.clear();
  if (!account) return register_->ShowNoAccount();
  ShowRows(*account, sums);
}

void TransactionShowView::ShowRows(const AccountRow& account,
                                   const std::optional<EntrySums>& sums) {
  Connection& store = place_.session.Ledger().Store();
  const ViewCommand& shown = place_.host.Shown();
  const auto rows = shelf_.Fetch(store, Scope(), account.openingBalance, sums);
  register_->ShowAccount(account, rows);
  isShown_ = true;
  if (register_->IsEmpty() && shown.IsFiltered()) ShowHidden();
  uncleared_ = ToQt(UnclearedText(rows->UnclearedCount()));
}

void TransactionShowView::ShowFiltered(const ViewCommand& command) {
  std::vector<AccountRow> accounts;
  std::vector<FilteredAccount> wanted;
  account_ = command.accountId;
  for (const std::int64_t key : Scope().Accounts()) {
    std::optional<EntrySums> sums;
    const std::optional<AccountRow> account = Find(key, sums);
    if (!account) continue;
    accounts.push_back(*account);
    wanted.push_back({key, account->currencyId, account->openingBalance, sums});
  }
  account_ = accounts.size() == 1 ? accounts.front().accountId : 0;
  uncleared_.clear();
  if (accounts.empty()) return register_->ShowNoAccount();
  const auto rows = shelf_.FetchFiltered(place_.session.Ledger().Store(), Scope(), wanted);
  register_->ShowFiltered(accounts, rows);
  isShown_ = true;
  if (register_->IsEmpty()) ShowHidden();
  uncleared_ = ToQt(UnclearedText(rows->UnclearedCount()));
}

void TransactionShowView::ShowHidden() {
  const ViewCommand& shown = place_.host.Shown();
  Connection& store = place_.session.Ledger().Store();
  std::int64_t count = 0;
  for (const std::int64_t account : Scope().Accounts()) {
    count += ReadSums(store, account, StatusFilter(), std::nullopt, std::nullopt).count;
  }
  register_->ShowHidden(count, shown.Filter(), !shown.rows.IsEmpty());
}

RegisterScope TransactionShowView::Scope() const {
  const ViewCommand& shown = place_.host.Shown();
  return {account_, shown.Filter(), shown.RegisterPeriod(), shown.rows};
}

ViewSurroundings TransactionShowView::Surroundings() const {
  if (!isShown_) return {};
  return {account_, register_->Days(), uncleared_};
}

void TransactionShowView::Remember(ViewCommand& command) const {
  command.dates = register_->Period();
}

void TransactionShowView::ApplyAccounts() {
  const ViewCommand& shown = place_.host.Shown();
  // The days of a period are soon read.
  if (!place_.session.IsOpen() || shown.dates) return ahead_->Stop();
  ahead_->Start(place_.session.Ledger().Store(), place_.host.Accounts(), shown.Filter(),
                [this] { return register_->IsReading(); });
}

void TransactionShowView::LetGo() {
  ahead_->Stop();
  search_->LetGo();
  shelf_.Clear();
  register_->LetGo();
  account_ = 0;
  isShown_ = false;
}

void TransactionShowView::ApplySettings() {
  const Settings settings(place_.platform.registry);
  const bool description = settings.IsOn(Setting::ShowDesc);
  const bool reference = settings.IsOn(Setting::ShowRef);
  const bool status = settings.IsOn(Setting::ShowStatus);
  place_.actions.mnuViewDescription->setChecked(description);
  place_.actions.mnuViewReference->setChecked(reference);
  place_.actions.mnuViewStatus->setChecked(status);
  register_->ShowOptionalColumns(description, reference, status);
  register_->SetColours(ReadListColours(settings, place_.window.palette()));
}

void TransactionShowView::KeepColumns() {
  Settings settings(place_.platform.registry);
  settings.SetOn(Setting::ShowDesc, place_.actions.mnuViewDescription->isChecked());
  settings.SetOn(Setting::ShowRef, place_.actions.mnuViewReference->isChecked());
  settings.SetOn(Setting::ShowStatus, place_.actions.mnuViewStatus->isChecked());
  ApplySettings();
}

void TransactionShowView::Restore(const Registry& registry) {
  register_->Table().SetWidths(ReadWidths(registry, InfoOf(Setting::chT).name));
  const Settings settings(place_.platform.registry);
  const DateRange dates = settings.Dates(place_.host.Today());
  register_->SetDates(dates);
  if (settings.IsOn(Setting::SetDate)) register_->SetPeriod(dates);
}

void TransactionShowView::Keep(std::map<std::string, std::string>& values) const {
  const auto put = [&values](Setting setting, const std::string& value) {
    values[std::string(InfoOf(setting).name)] = value;
  };
  const DateRange dates = register_->Dates();
  put(Setting::chT, FromQt(register_->Widths()));
  put(Setting::Dates, dates.start.ToIso() + '#' + dates.end.ToIso());
  put(Setting::SetDate, register_->Period() ? "1" : "0");
}

bool TransactionShowView::Can(EditTask task) const {
  return task == EditTask::Paste ? account_ != 0 && commands_.CanPaste() : commands_.Can(task);
}

void TransactionShowView::Do(EditTask task) {
  commands_.Do(task, account_);
}

void TransactionShowView::MarkCommands(bool isShown) {
  place_.actions.mnuFileExport->setEnabled(isShown && account_ != 0);
  commands_.Mark(isShown);
  items_->Mark(isShown);
}

void TransactionShowView::ExportRegister() {
  const ViewCommand& shown = place_.host.Shown();
  ExportView view{account_, shown.Filter(), shown.RegisterPeriod(), register_->ShownKeys(),
                  !shown.rows.IsEmpty()};
  OpenExport(view, {place_.platform, place_.session.Ledger(), &place_.window});
}

PrintTable TransactionShowView::Printed() const {
  return register_->Printed();
}

ChosenTotals TransactionShowView::TotalsOfChosen() const {
  return register_->IsCovered() ? search_->Found().Totals() : register_->Totals();
}

std::vector<QAction*> TransactionShowView::ColumnChoices() const {
  const MainActions& actions = place_.actions;
  return {actions.mnuViewDescription, actions.mnuViewReference, actions.mnuViewStatus};
}

std::int64_t TransactionShowView::RowCount() const {
  return register_->Table().model()->rowCount();
}

std::set<std::int64_t> TransactionShowView::ShownOf(
    const std::vector<std::int64_t>& transactions) const {
  const auto keys = KeysInScope(place_.session.Ledger().Store(), Scope(), transactions);
  return {keys.begin(), keys.end()};
}

bool TransactionShowView::ChooseKey(std::int64_t key) {
  ShowOwn();
  return register_->ChooseKey(key);
}

void TransactionShowView::ShowOwn() {
  if (register_->IsCovered()) search_->Leave();
}

void TransactionShowView::ChooseDay(Date day) {
  ShowOwn();
  register_->ChooseDay(day);
}

}  // namespace corvanta::inline app
