#include "app/InvestmentTransView.h"

#include "app/InvestmentsView.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/TransactionClip.h"
#include "app/ViewCommand.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/Style.h"
#include "controls/TabularText.h"
#include "entry/MultiEditor.h"
#include "invest/InvestDialogs.h"
#include "ledger/InvestmentBook.h"
#include "ledger/TransactionBook.h"
#include "ledger/TransactionPaste.h"
#include "ledger/TransactionRecord.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Settings.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>

namespace corvanta::inline app {
namespace {

std::vector<ListColumn> Columns(const Platform& platform) {
  const QFontMetrics metrics(QApplication::font());
  const auto text = [&](const QString& sample) {
    return metrics.horizontalAdvance(sample) + 3 * kRhythm;
  };
  const auto figure = [&](double sample, int decimals) {
    return TabularWidth(metrics, ToQt(platform.locale.FormatNumber(sample, decimals))) +
           3 * kRhythm;
  };
  const int decimals = Settings(platform.registry).InvestmentDecimals();
  const QString day = ToQt(platform.locale.FormatShortDate(*Date::FromYmd(2028, 12, 28)));
  const int money = figure(-9999.99, -1);
  return {
      {InvestmentTransView::tr("Date"), text(day) + kRhythm, 0},
      {InvestmentTransView::tr("Account"), text(QStringLiteral("A broker's account")), 2, false, 6},
      {InvestmentTransView::tr("Investment"), text(QStringLiteral("Name of a company")), 3, false,
       0, 16 * kRhythm},
      {InvestmentTransView::tr("Symbol"), text(QStringLiteral("SYMBOL.L")), 0, false, 4},
      {InvestmentTransView::tr("Action"), text(QStringLiteral("Reinvest Dividend")), 0},
      {InvestmentTransView::tr("Dividend"), money, 0, true, 5},
      {InvestmentTransView::tr("Shares"), figure(9999.99, decimals), 0, true},
      {InvestmentTransView::tr("Price"), figure(9999.99, decimals), 0, true, 7},
      {InvestmentTransView::tr("Commission"), text(QStringLiteral("Commission")), 0, true, 3},
      {InvestmentTransView::tr("Amount"), figure(-99999.99, -1), 0, true},
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

ListRow RowFor(const InvestmentTransactionRow& row, const Locale& locale, int decimals) {
  // What the action has not is left out.
  const auto figure = [&](double value, int digits) {
    return ListCell{value == 0 ? QString() : ToQt(locale.FormatNumber(value, digits)), value};
  };
  QString account = ToQt(row.account);
  if (row.accountClosed) account += InvestmentTransView::tr(" [Closed] ");
  return {row.transactionId,
          {{ToQt(locale.FormatShortDate(row.date)), static_cast<double>(row.date.Serial())},
           {account, std::nullopt, false, row.accountClosed},
           {ToQt(row.investment)},
           {ToQt(row.symbol)},
           {QLatin1String(ActionName(static_cast<std::int64_t>(row.action)))},
           figure(row.dividend, -1),
           figure(row.shares, decimals),
           figure(row.price, decimals),
           figure(row.commission, -1),
           {ToQt(locale.FormatNumber(row.amount)), row.amount},
           {QLatin1String(row.letter)},
           {ToQt(row.description)}},
          ToQt(row.currency),
          row.amount,
          row.currency};
}

}  // namespace

InvestmentTransView::InvestmentTransView(const ViewPlace& place, QWidget* parent)
    : ListView(place, Traits(place), parent) {
  MainActions& actions = place.actions;
  Table()->setSelectionMode(QAbstractItemView::ExtendedSelection);
  Table()->addActions({actions.mnuInvestTransCopy, actions.mnuInvestTransPaste});
  place.On(actions.mnuInvestTransCopy, this, [this] { Copy(); });
  place.On(actions.mnuInvestTransPaste, this, [this] { Paste(); });
}

void InvestmentTransView::Show(const ViewCommand& command) {
  const Locale& shown = Place().platform.locale;
  const int decimals = Settings(Place().platform.registry).InvestmentDecimals();
  std::vector<ListRow> rows;
  const auto transactions =
      Place().session.Ledger().Investments().ListTransactions(command.Filter());
  for (const InvestmentTransactionRow& row : transactions) {
    rows.push_back(RowFor(row, shown, decimals));
  }
  const auto count = static_cast<qulonglong>(rows.size());
  Fill(std::move(rows), tr("What was bought, sold and paid out, in all accounts"),
       count == 1 ? tr("1 transaction") : tr("%1 transactions").arg(locale().toString(count)),
       QString(),
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
