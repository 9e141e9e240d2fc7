#include "app/lists/AccountsView.h"

#include "app/MainActions.h"
#include "app/ViewCommand.h"
#include "app/lists/ListWidths.h"
#include "controls/QtText.h"
#include "ledger/register/Balances.h"
#include "platform/Locale.h"
#include "platform/Platform.h"

namespace corvanta::inline app {
namespace {

std::vector<ListColumn> Columns(const Locale& locale) {
  const ListWidths widths(locale);
  const auto text = [&](const QString& sample) { return widths.Text(sample); };
  const QString opening = AccountsView::tr("Opening Balance");
  const int money = widths.Figure(-999999.99);
  const int name = text(QStringLiteral("The name of an account"));
  return {{AccountsView::tr("Account"), name, 4, false, 0, name},
          {AccountsView::tr("Group"), text(QStringLiteral("Investment Accounts")), 2, false, 4},
          {AccountsView::tr("Bank"), text(QStringLiteral("A bank's name")), 2, false, 1},
          {AccountsView::tr("Number"), text(QStringLiteral("1234567890")), 1, false, 2},
          {AccountsView::tr("Currency"), text(QStringLiteral("Currency")), 0, false, 5},
          {opening, std::max(money, text(opening)), 0, true, 3},
          {AccountsView::tr("Balance"), money, 0, true}};
}

ListTraits Traits(const ViewPlace& place) {
  const MainActions& actions = place.actions;
  return {kAccountShow,
          actions.mnuViewAccounts,
          "lvbalance",
          "chA",
          AccountsView::tr("Accounts"),
          Columns(place.platform.locale),
          {},
          actions.mnuAccountAdd,
          actions.mnuAccountEdit,
          actions.mnuAccountDelete};
}

}  // namespace

AccountsView::AccountsView(const ViewPlace& place, QWidget* parent)
    : ReferenceView(place, ReferenceKind::Account, Traits(place), parent),
      locale_(place.platform.locale) {
  place.On(place.actions.mnuAccountNew, this, [this] { Edit(0); });
  place.On(place.actions.mnuAccountList, this, [this] { Place().host.ShowView(Name()); });
}

void AccountsView::Add() {
  Apply(AddAccountLike(CommandKey(), DialogHere()));
}

void AccountsView::Open(std::int64_t key) {
  Place().host.OpenAccount(key);
}

std::int64_t AccountsView::CommandKey() const {
  return Place().host.ChosenAccount();
}

void AccountsView::Show(const ViewCommand& /*command*/) {
  const std::vector<AccountRow>& accounts = Place().host.Accounts();
  std::vector<ListRow> rows;
  for (const AccountRow& account : accounts) rows.push_back(RowOf(account));
  const auto count = static_cast<qulonglong>(rows.size());
  Fill(std::move(rows), tr("Open an account to see its register"),
       count == 1 ? tr("1 account") : tr("%1 accounts").arg(locale().toString(count)),
       Totals(accounts),
       {QStringLiteral("accounts"), tr("No accounts in this data file"),
        tr("Everything begins with an account: your bank account, your purse, a credit card. "
           "Add the first one here."),
        Place().actions.mnuAccountNew});
}

ListRow AccountsView::RowOf(const AccountRow& account) const {
  const auto money = [this](double amount) {
    return ListCell{ToQt(locale_.FormatNumber(amount)), amount};
  };
  return {account.accountId,
          {{ToQt(AccountCaption(account))},
           {ToQt(account.accountType)},
           {ToQt(account.bank)},
           {ToQt(account.accountNo)},
           {ToQt(account.currency)},
           money(account.openingBalance),
           money(account.balance)},
          ToQt(account.description)};
}

QStringList AccountsView::Totals(const std::vector<AccountRow>& accounts) const {
  QStringList parts;
  for (const CurrencyTotal& total : TotalsByCurrency(accounts)) {
    parts.append(ToQt(total.Caption() + ": " + locale_.FormatNumber(total.total)));
  }
  return parts;
}

}  // namespace corvanta::inline app
