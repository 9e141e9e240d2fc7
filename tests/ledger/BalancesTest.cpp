#include "ledger/RecordsTest.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/Balances.h"
#include "ledger/register/Period.h"
#include "ledger/register/StatusFilter.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransactionStatus.h"

namespace corvanta {
namespace {

class Balances : public RecordsTest {
 protected:
  TotalsTexts Texts(const StatusFilter& filter, const std::optional<Period>& period) {
    return TextsOf(ledger_.Balances().Totals(bank_, filter, period), store_.platform.locale);
  }
  static Period Month(const char* from, const char* to) {
    return {*Date::FromIso(from), *Date::FromIso(to)};
  }
  void AddFigures() {
    Add(bank_, 1000.1, "2026-01-31");
    Add(bank_, -0.2, "2026-02-01");
    const std::int64_t split = Add(bank_, -30, "2026-02-28");
    AddLine(split, -10);
    AddLine(split, -20);
    TransactionRecord cleared = Row(bank_, 50, "2026-02-10");
    cleared.status = FlagsOf(TransactionStatus::Cleared);
    ledger_.Transactions().SaveTransaction(cleared);
    Add(savings_, 7);
  }
};

TEST_F(Balances, TotalsStandInTheirLabels) {
  AddFigures();
  TotalsTexts texts = Texts({}, std::nullopt);
  EXPECT_EQ(texts.thisPeriod, "This Period: 1,119.90");
  EXPECT_EQ(texts.balance, "Balance: 1,119.90");
  EXPECT_EQ(texts.paidIn, "Paid In : 1,050.10");
  EXPECT_EQ(texts.paidOut, "Paid Out : -30.20");
  texts = Texts({}, Month("2026-02-01", "2026-02-28"));
  EXPECT_EQ(texts.thisPeriod, "This Period: 119.80");
  EXPECT_EQ(texts.balance, "Balance: 1,119.90");
  EXPECT_EQ(texts.paidIn, "Paid In : 50.00");
  texts = Texts({true, false, false}, Month("2026-01-01", "2026-02-01"));
  EXPECT_EQ(texts.thisPeriod, "This Period: 1,099.90");
  EXPECT_EQ(texts.balance, "Balance: 1,099.90");
  EXPECT_EQ(texts.paidOut, "Paid Out : -0.20");
}

TEST_F(Balances, APeriodWithoutRowsHasBareLabels) {
  AddFigures();
  const TotalsTexts later = Texts({}, Month("2026-05-01", "2026-05-31"));
  EXPECT_EQ(later.thisPeriod, "This Period: ");
  EXPECT_EQ(later.balance, "Balance: 1,119.90");
  EXPECT_EQ(later.paidIn, "Paid In: ");
  EXPECT_EQ(later.paidOut, "Paid Out: ");
  EXPECT_EQ(Texts({}, Month("2025-05-01", "2025-05-31")).balance, "Balance: ");
}

// Other programs write rows with a time of day: they belong to their day.
TEST_F(Balances, ARowOfTheEveningBelongsToThePeriodsLastDay) {
  const std::int64_t late = Add(bank_, -30, "2026-02-28");
  Run("UPDATE tblTransactions SET [Date] = #02/28/2026 23:59:59# WHERE TransactionID = " +
      std::to_string(late));
  const Period february = Month("2026-02-01", "2026-02-28");
  EXPECT_EQ(ledger_.Balances().Totals(bank_, {}, february).thisPeriod, 70);
  EXPECT_EQ(ledger_.Balances().RunningBalance(bank_, {}, february.to), -30);
  const auto rows = ledger_.Balances().Register(bank_, {}, february);
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].date, february.to);
  TreeOptions options;
  options.end = february.to;
  EXPECT_EQ(ledger_.Balances().AccountBalance(bank_, options), 70);
  for (const AccountRow& account : ledger_.Accounts().Accounts(options)) {
    if (account.accountId == bank_) {
      EXPECT_EQ(account.balance, 70);
    }
  }
  EXPECT_TRUE(ledger_.Balances().Register(bank_, {}, Month("2026-03-01", "2026-03-31")).empty());
}

TEST_F(Balances, ThirdDecimalsAddUp) {
  const std::int64_t dinars = AddAccount("Dinars", 100, CurrencyKey("KWD"));
  for (int i = 0; i < 3; ++i) Add(dinars, 0.335);
  EXPECT_EQ(ledger_.Balances().RunningBalance(dinars, {}, *Date::FromIso("2026-12-31")), 1.005);
  EXPECT_EQ(ledger_.Balances().Register(dinars, {}, std::nullopt).back().balance, 101.005);
  const std::int64_t split = Add(dinars, -1);
  AddLine(split, -0.333);
  AddLine(split, -0.333);
  EXPECT_EQ(Amount(split), -0.666);
}

TEST_F(Balances, TheUnclearedAreCountedWhateverIsShown) {
  AddFigures();
  EXPECT_EQ(UnclearedText(ledger_.Balances().UnclearedCount(bank_)),
            "Number of Uncleared records = 3");
  EXPECT_EQ(ledger_.Balances().UnclearedCount(euros_), 0);
}

TEST_F(Balances, AnAccountWithoutAnOpeningBalanceStartsAtNothing) {
  AddFigures();
  Run("UPDATE tblAccounts SET OpeningBalance = NULL");
  EXPECT_EQ(Texts({}, std::nullopt).balance, "Balance: 1,019.90");
}

TEST_F(Balances, TheRunningBalanceGrowsWithTheDays) {
  AddFigures();
  EXPECT_EQ(ledger_.Balances().RunningBalance(bank_, {}, *Date::FromIso("2026-01-30")), 0);
  EXPECT_EQ(ledger_.Balances().RunningBalance(bank_, {}, *Date::FromIso("2026-02-01")), 999.9);
  EXPECT_EQ(
      ledger_.Balances().RunningBalance(bank_, {false, true, false}, *Date::FromIso("2026-12-01")),
      50);
}

TEST_F(Balances, TheTreeCountsUpToItsEnd) {
  AddFigures();
  TreeOptions options;
  EXPECT_EQ(ledger_.Balances().AccountBalance(bank_, options), 1119.9);
  EXPECT_EQ(ledger_.Balances().AccountBalance(0, options), 0);
  options.end = Date::FromIso("2026-02-01");
  EXPECT_EQ(ledger_.Balances().AccountBalance(bank_, options), 1099.9);
  for (const AccountRow& row : ledger_.Accounts().Accounts(options)) {
    EXPECT_EQ(row.balance, ledger_.Balances().AccountBalance(row.accountId, options))
        << row.account;
  }
}

TEST_F(Balances, InvestmentsAreWorthTheirLatestPrice) {
  Run("INSERT INTO tblPayees (Payee,[Symbol],Investment) VALUES ('Acme','ACM',1)");
  const std::int64_t acme = Number("SELECT MAX(PayeeID) FROM tblPayees");
  const auto trade = [&](int action, double shares) {
    TransactionRecord record = Row(bank_, 0);
    record.payeeId = acme;
    record.action = action;
    const std::int64_t key = ledger_.Transactions().SaveTransaction(record);
    Run("UPDATE tblTransactions SET Shares = " + std::to_string(shares) +
        " WHERE TransactionID = " + std::to_string(key));
  };
  trade(1, 10);
  trade(2, 3);
  trade(5, 1);
  trade(6, 2);
  EXPECT_EQ(ledger_.Balances().HoldingsValue(bank_), 0) << "no price yet";
  const std::string key = std::to_string(acme);
  Run("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (" + key + ",#03/02/2026#,4)");
  Run("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (" + key + ",#03/02/2026#,2.5)");
  Run("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (" + key + ",#03/01/2026#,9)");
  EXPECT_EQ(ledger_.Balances().HoldingsValue(bank_), 15);
  TreeOptions options;
  options.valuation = true;
  EXPECT_EQ(ledger_.Balances().AccountBalance(bank_, options), 115);
  EXPECT_EQ(ledger_.Accounts().Accounts(options).at(0).balance, 115);
}

TEST_F(Balances, AccountsAreTotalledByGroupAndCurrency) {
  AddFigures();
  AccountRecord card;
  card.account = "Card";
  card.accountTypeId = 3;
  card.openingBalance = -20;
  card.currencyId = kEuros;
  card.closed = true;
  ledger_.Accounts().SaveAccount(card);
  const auto accounts = ledger_.Accounts().Accounts(TreeOptions{});
  const auto groups = ByGroup(accounts);
  ASSERT_EQ(groups.size(), 2U);
  EXPECT_EQ(groups[0].accounts.size(), 3U);
  ASSERT_EQ(groups[0].totals.size(), 2U);
  EXPECT_EQ(groups[0].totals[0].Caption(), "Total (GBP)");
  EXPECT_EQ(groups[0].totals[0].total, 1126.9);
  EXPECT_EQ(groups[1].totals[0].total, -20);
  EXPECT_EQ(TotalsByCurrency(accounts)[1].total, -20);
  EXPECT_EQ(AccountCaption(groups[1].accounts[0]), "Card [Closed] ");
  EXPECT_EQ(AccountCaption(accounts[0]), "Bank");
}

}  // namespace
}  // namespace corvanta
