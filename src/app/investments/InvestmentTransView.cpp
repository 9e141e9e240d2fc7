#include "app/investments/InvestmentTransView.h"

#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/ViewCommand.h"
#include "app/filter/FilterStrip.h"
#include "app/investments/InvestmentsView.h"
#include "app/investments/TradeList.h"
#include "app/lists/ListWidths.h"
#include "app/register/TransactionClip.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/Style.h"
#include "entry/MultiEditor.h"
#include "invest/InvestDialogs.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionPaste.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Settings.h"

#include <QAction>
#include <QClipboard>

namespace corvanta::inline app {
namespace {

std::vector<ListColumn> Columns(const Platform& platform) {
  const ListWidths widths(platform.locale);
  const auto text = [&](const QString& sample) { return widths.Text(sample); };
  const int decimals = Settings(platform.registry).InvestmentDecimals();
  const int money = widths.Figure(-9999.99);
  return {
      {InvestmentTransView::tr("Date"), widths.Day(), 0},
      {InvestmentTransView::tr("Account"), text(QStringLiteral("A broker's account")), 2, false, 6},
      {InvestmentTransView::tr("Investment"), text(QStringLiteral("Name of a company")), 3, false,
       0, 16 * kRhythm},
      {InvestmentTransView::tr("Symbol"), text(QStringLiteral("SYMBOL.L")), 0, false, 4},
      {InvestmentTransView::tr("Action"), text(QStringLiteral("Reinvest Dividend")), 1, false, 0,
       text(QStringLiteral("Dividend"))},
      {InvestmentTransView::tr("Dividend"), money, 0, true, 5},
      {InvestmentTransView::tr("Shares"), widths.Figure(9999.99, decimals), 0, true, 8},
      {InvestmentTransView::tr("Price"), widths.Figure(9999.99, decimals), 0, true, 7},
      {InvestmentTransView::tr("Commission"), text(QStringLiteral("Commission")), 0, true, 3},
      {InvestmentTransView::tr("Amount"), widths.Figure(-99999.99), 0, true},
      {InvestmentTransView::tr("Status"), text(QStringLiteral("Status")), 0, false, 2},
      {InvestmentTransView::tr("Description"), text(QStringLiteral("Description")), 2, false, 1}};
}

ListTraits Traits(const ViewPlace& place) {
  const MainActions& actions = place.actions;
  return {kInvestmentTransShow,
          actions.mnuViewInvestTrans,
          "lvinvesttrans",
          InfoOf(Setting::chIT).name,
          InvestmentTransView::tr("Investment Transactions"),
          Columns(place.platform),
          {0, true},
          actions.mnuInvestTransAdd,
          actions.mnuInvestTransEdit,
          actions.mnuInvestTransDelete};
}

}  // namespace

InvestmentTransView::InvestmentTransView(const ViewPlace& place, QWidget* parent)
    : ListView(place, Traits(place), parent), strip_(new FilterStrip(this)) {
  AddStrip(*strip_);
  MainActions& actions = place.actions;
  Table()->setSelectionMode(QAbstractItemView::ExtendedSelection);
  Table()->addActions({actions.mnuInvestTransCopy, actions.mnuInvestTransPaste});
  place.On(actions.mnuInvestTransCopy, this, [this] { Copy(); });
  place.On(actions.mnuInvestTransPaste, this, [this] { Paste(); });
}

void InvestmentTransView::ApplySettings() {
  SetNeeds(Columns(Place().platform));
}

void InvestmentTransView::Show(const ViewCommand& command) {
  auto rows =
      std::make_unique<TradeList>(Place().session.Ledger().Store(), command, Place().platform);
  const auto count = static_cast<qulonglong>(rows->Count());
  if (count == 0 && rows->HasHidden()) {
    return Fill(std::move(rows), tr("What was bought, sold and paid out, in all accounts"),
                QString(), {},
                {QStringLiteral("trades"), tr("All investment transactions are hidden"),
                 tr("The filters above the list choose none of them.")});
  }
  Fill(std::move(rows), tr("What was bought, sold and paid out, in all accounts"),
       count == 1 ? tr("1 transaction") : tr("%1 transactions").arg(locale().toString(count)), {},
       {QStringLiteral("trades"), tr("No investment transactions"),
        tr("Enter what you buy and sell, and the dividends that you get. Those of a status that "
           "is not ticked in the View menu are not shown.")});
}

bool InvestmentTransView::Can(EditTask task) const {
  switch (task) {
    case EditTask::Copy:
      return ChosenKey() != 0;
    case EditTask::Paste:
      return !Copied().empty();
    case EditTask::SelectAll:
      return RowCount() > 0;
    default:
      return ListView::Can(task);
  }
}

void InvestmentTransView::Do(EditTask task) {
  switch (task) {
    case EditTask::Copy:
      return Copy();
    case EditTask::Paste:
      return Paste();
    case EditTask::SelectAll:
      return Table()->selectAll();
    default:
      return ListView::Do(task);
  }
}

void InvestmentTransView::MarkCommands(bool isShown) {
  ListView::MarkCommands(isShown);
  Place().actions.mnuInvestTransCopy->setEnabled(CommandKey() != 0);
  Place().actions.mnuInvestTransPaste->setEnabled(Place().session.IsOpen() && !Copied().empty());
}

void InvestmentTransView::Open(const InvestTransRequest& request) {
  const InvestResult result = OpenInvestTrans(request, InvestHere(Place()));
  if (!result.isChanged) return;
  Place().host.Reload();
  for (const std::string_view view : {kInvestmentTransShow, kTransactionShow}) {
    Place().host.ChooseRow(view, result.savedKey);
  }
}

// Like the one that is chosen, as they come in rows.
void InvestmentTransView::Add() {
  InvestTransRequest request;
  request.accountId = Place().host.EntryAccount();
  if (const auto like = Place().session.Ledger().Transactions().ReadTransaction(CommandKey())) {
    request.accountId = like->accountId;
    request.investmentId = like->payeeId;
  }
  Open(request);
}

void InvestmentTransView::Edit(std::int64_t key) {
  Open({key, 0, 0, {}});
}

void InvestmentTransView::Delete(std::int64_t /*key*/) {
  MultiEditor editor(Place().session.Ledger(), Place().platform);
  if (editor.Delete(ChosenKeys())) Place().host.Reload();
}

std::vector<std::int64_t> InvestmentTransView::Copied() const {
  if (!Place().session.IsOpen()) return {};
  const auto keys = FromClip(ClipKind::Transactions, ToQt(Place().session.Path()));
  return Place().session.Ledger().Investments().InvestmentTransactionsAmong(keys);
}

void InvestmentTransView::Copy() {
  const std::vector<std::int64_t> keys = ChosenKeys();
  if (keys.empty()) return;
  QGuiApplication::clipboard()->setMimeData(
      ToClip(ClipKind::Transactions, ToQt(Place().session.Path()), keys, ChosenText()));
}

void InvestmentTransView::Paste() {
  const std::int64_t last = Place().session.Ledger().Copies().PasteTransactions(Copied(), 0);
  if (last == 0) return;
  Place().host.Reload();
  Place().host.ChooseRow(Name(), last);
}

}  // namespace corvanta::inline app
