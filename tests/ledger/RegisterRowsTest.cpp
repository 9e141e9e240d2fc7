// The register that reads only what is asked for must be the one that reads everything.
#include "ledger/LedgerTest.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/Period.h"
#include "ledger/register/RegisterOrder.h"
#include "ledger/register/RegisterRow.h"
#include "ledger/register/RegisterRows.h"
#include "ledger/register/RegisterShelf.h"
#include "ledger/register/RowFinder.h"
#include "ledger/register/StatusFilter.h"
#include "platform/TextCase.h"
#include "support/AccessPath.h"

#include <algorithm>
#include <random>
#include <unordered_set>

namespace corvanta {
namespace {

class RegisterOnDemand : public LedgerTest {
 protected:
  explicit RegisterOnDemand(int count = 300) {
    Transaction all = Store().Begin();
    int key = 0;
    for (const char* payee : {"Zoo", "apple", "Banana", "banana"}) {
      Run("INSERT INTO tblPayees (PayeeID,Payee) VALUES (" + std::to_string(++key) + ",'" + payee +
          "')");
    }
    AddAccount(1, "Bank", 1, 100);
    AddAccount(2, "Savings", 1, 5);
    std::mt19937 chance(7);
    const auto pick = [&](int most) { return static_cast<int>(chance() % most); };
    for (int i = 1; i <= count; ++i) {
      const std::string day = std::to_string(1 + pick(28));
      std::string more =
          "PayeeID = " + std::to_string(1 + pick(4)) +
          ", CategoryID = " + std::to_string(pick(20) == 0 ? 999 * pick(2) : 1 + pick(30)) +
          ", BankChk = " + std::to_string(pick(2)) + ", BankRec = " + std::to_string(pick(2)) +
          ", Description = 'Row " + std::to_string(pick(50)) + "'";
      if (pick(9) == 0) more += ", [Date] = #01/" + day + "/2026 10:30:00#";
      AddTransaction(i, pick(5) == 0 ? 2 : 1, "01/" + day + "/2026",
                     std::to_string(pick(2000) - 1000) + ".25", more);
    }
    Run("UPDATE tblTransactions SET TransferID = 9 WHERE TransactionID = 8");
    Run("UPDATE tblTransactions SET AccountID = 2, TransferID = 8, CategoryID = 1 WHERE "
        "TransactionID = 9");
    Run("UPDATE tblTransactions SET AccountID = 1, CategoryID = 1 WHERE TransactionID = 8");
    all.Commit();
  }

  RegisterRows Open(const RegisterScope& scope) { return {Ledger().Store(), scope, 100}; }
  std::vector<RegisterRow> Whole(const RegisterScope& scope) {
    return Ledger().Balances().Register(scope.accountId, scope.filter, scope.period);
  }
  static Period January(int from, int to) {
    return {*Date::FromYmd(2026, 1, from), *Date::FromYmd(2026, 1, to)};
  }
};

void ExpectSame(const RegisterRow& row, const RegisterRow& expected) {
  EXPECT_EQ(row.transactionId, expected.transactionId);
  EXPECT_EQ(row.date, expected.date);
  EXPECT_EQ(row.payee, expected.payee);
  EXPECT_EQ(row.category, expected.category);
  EXPECT_EQ(row.description, expected.description);
  EXPECT_EQ(row.status, expected.status);
  EXPECT_EQ(row.amount, expected.amount);
  EXPECT_DOUBLE_EQ(row.balance, expected.balance);
  EXPECT_EQ(row.isTransfer, expected.isTransfer);
}

TEST_F(RegisterOnDemand, FindsRowsByTheirKeysAlsoThoseBelowZero) {
  for (const std::int32_t odd : {-2, 3, 2000000000}) {
    std::vector<RegisterEntry> entries(3);
    entries[0].transactionId = 7;
    entries[1].transactionId = odd;
    entries[2].transactionId = 1;
    const RegisterRows rows(Ledger().Store(), RegisterScope{1, {}}, entries, {}, entries.size());
    const RowFinder finder(rows);
    EXPECT_EQ(finder.Find(7), 2U) << odd;
    EXPECT_EQ(finder.Find(odd), 1U) << odd;
    EXPECT_EQ(finder.Find(1), 0U) << odd;
    for (const std::int64_t other : {-1, 0, 2, 8}) EXPECT_FALSE(finder.Find(other)) << odd;
  }
}

TEST_F(RegisterOnDemand, IsTheRegisterHoweverItIsReadAndFiltered) {
  for (const RegisterScope& scope :
       {RegisterScope{1, {}}, RegisterScope{2, {}}, RegisterScope{3, {}},
        RegisterScope{1, {true, false, false}}, RegisterScope{1, {false, true, true}},
        RegisterScope{1, {}, January(5, 12)}, RegisterScope{1, {false, true, false}, January(9, 9)},
        RegisterScope{1, {}, January(29, 31)}}) {
    const std::vector<RegisterRow> expected = Whole(scope);
    const PeriodTotals totals =
        Ledger().Balances().Totals(scope.accountId, scope.filter, scope.period);
    for (const std::size_t step : {std::size_t{1}, std::size_t{7}, std::size_t{1000}}) {
      RegisterRows rows(Ledger().Store(), scope, scope.accountId == 2 ? 5 : 100);
      ASSERT_EQ(rows.Count(), expected.size());
      while (!rows.IsWhole()) rows.ReadOn(step);
      for (std::size_t row = 0; row < rows.Count(); ++row) {
        EXPECT_EQ(rows.Entry(row).transactionId, expected[row].transactionId) << row;
        EXPECT_DOUBLE_EQ(rows.Entry(row).balance, expected[row].balance) << row;
        ExpectSame(rows.Read({row}).front(), expected[row]);
      }
      if (scope.accountId == 3) continue;
      EXPECT_EQ(rows.Totals().balance, totals.balance);
      EXPECT_EQ(rows.Totals().thisPeriod, totals.thisPeriod);
      EXPECT_EQ(rows.Totals().paidIn, totals.paidIn);
      EXPECT_EQ(rows.Totals().paidOut, totals.paidOut);
    }
  }
}

TEST_F(RegisterOnDemand, TakesTheSumsThatTheTreeHasReadAlready) {
  const std::vector<AccountRow> accounts = Ledger().Accounts().Accounts(TreeOptions());
  ASSERT_FALSE(accounts.empty());
  for (const AccountRow& account : accounts) {
    const RegisterScope scope{account.accountId, {}};
    RegisterRows rows(Ledger().Store(), scope, account.openingBalance, account.sums);
    EXPECT_EQ(rows.Count(), Whole(scope).size());
    EXPECT_EQ(rows.Totals().balance, account.balance);
    EXPECT_EQ(rows.Entry(rows.Count() - 1).balance, account.balance);
  }
}

TEST_F(RegisterOnDemand, FindsRowsWithoutReadingEverything) {
  const std::vector<RegisterRow> expected = Whole({1, {}});
  RegisterRows rows = Open({1, {}});
  EXPECT_EQ(rows.FirstRead(), rows.Count()) << "nothing is read yet";
  rows.ReadOn(1);
  EXPECT_EQ(rows.FirstRead(), rows.Count() - 1);
  for (const std::size_t row : {expected.size() - 1, expected.size() / 2, std::size_t{0}}) {
    EXPECT_EQ(rows.RowOf(expected[row].transactionId), row);
  }
  EXPECT_FALSE(rows.RowOf(9)) << "in the other account";
  EXPECT_FALSE(rows.RowOf(77777));
  EXPECT_EQ(rows.UnclearedCount(), Ledger().Balances().UnclearedCount(1));
  const auto lowest = LowestAhead(rows, *Date::FromYmd(2026, 1, 14));
  ASSERT_TRUE(lowest);
  for (std::size_t row = 0; row < expected.size(); ++row) {
    const bool isEvening =
        row + 1 == expected.size() || expected[row + 1].date != expected[row].date;
    if (!isEvening || expected[row].date <= *Date::FromYmd(2026, 1, 14)) continue;
    EXPECT_GE(expected[row].balance, lowest->balance);
    if (expected[row].date != lowest->day) continue;
    EXPECT_DOUBLE_EQ(expected[row].balance, lowest->balance);
  }
  EXPECT_FALSE(LowestAhead(rows, *Date::FromYmd(2026, 1, 31)));
}

void ExpectSortedAsCells(RegisterRows& rows, const std::vector<RegisterRow>& all) {
  const auto text = [&](RegisterColumn column, std::uint32_t row) {
    const RegisterRow& cells = all[row];
    switch (column) {
      case RegisterColumn::Payee:
        return FoldCase(cells.payee);
      case RegisterColumn::Category:
        return FoldCase(cells.category);
      case RegisterColumn::Payment:
        return FoldCase(cells.payment);
      case RegisterColumn::Reference:
        return FoldCase(cells.reference);
      case RegisterColumn::Description:
        return FoldCase(cells.description);
      default:
        return cells.status;
    }
  };
  const auto number = [&](RegisterColumn column, std::uint32_t row) {
    if (column == RegisterColumn::Balance) return all[row].balance;
    const bool isIn = all[row].amount >= 0;
    return isIn == (column == RegisterColumn::PaidIn) ? all[row].amount : -1e9;
  };
  for (int index = 1; index <= static_cast<int>(RegisterColumn::Balance); ++index) {
    const auto column = static_cast<RegisterColumn>(index);
    const bool isNumber = column >= RegisterColumn::PaidOut;
    for (const bool isDescending : {false, true}) {
      std::vector<std::uint32_t> expected(all.size());
      for (std::uint32_t row = 0; row < all.size(); ++row) expected[row] = row;
      std::ranges::stable_sort(expected, [&](std::uint32_t a, std::uint32_t b) {
        if (isDescending) std::swap(a, b);
        return isNumber ? number(column, a) < number(column, b) : text(column, a) < text(column, b);
      });
      EXPECT_EQ(SortedRegister(rows, column, isDescending), expected) << index << isDescending;
    }
  }
}

TEST_F(RegisterOnDemand, TradesStandByWhatWasDoneAmongTheCategories) {
  Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (50,'Acme',1)");
  Run("UPDATE tblTransactions SET CategoryID = 2 WHERE AccountID = 1");
  const auto all = Whole({1, {}});
  const char* kTrades[] = {
      "[Action] = 2, Shares = 9, Price = 5",  "[Action] = 1, Shares = 10, Price = 7",
      "[Action] = 1, Shares = 9, Price = 8",  "[Action] = 1, Shares = 9, Price = 7",
      "[Action] = 3, Shares = 0, Price = 99", "[Action] = 0"};
  for (std::size_t i = 0; i < std::size(kTrades); ++i) {
    Run(std::string("UPDATE tblTransactions SET PayeeID = 50, ") + kTrades[i] +
        " WHERE TransactionID = " + std::to_string(all.at(i * 3).transactionId));
  }
  RegisterRows rows = Open({1, {}});
  const auto order = SortedRegister(rows, RegisterColumn::Category, false);
  const std::vector<std::uint32_t> trades{9, 6, 3};  // bought: 9 at 7, 9 at 8, 10 at 7
  EXPECT_TRUE(std::equal(trades.begin(), trades.end(), order.begin()));
  EXPECT_EQ(order.at(order.size() - 2), 12U) << "the dividend, behind \"Debit\"";
  EXPECT_EQ(order.back(), 0U) << "the sale";
}

TEST_F(RegisterOnDemand, SortsAsItsCellsDo) {
  RegisterRows rows = Open({1, {}});
  ExpectSortedAsCells(rows, Whole({1, {}}));
  RegisterRows other = Open({2, {}});
  ExpectSortedAsCells(other, Whole({2, {}}));
}

TEST_F(RegisterOnDemand, ReadsNoMoreOnceTheDataHaveChanged) {
  RegisterShelf shelf;
  const auto rows = shelf.Fetch(Ledger().Store(), {1, {}}, 100, std::nullopt);
  rows->ReadOn(5);
  EXPECT_EQ(shelf.Fetch(Ledger().Store(), {1, {}}, 100, std::nullopt), rows) << "kept";
  EXPECT_NE(shelf.Fetch(Ledger().Store(), {2, {}}, 5, std::nullopt), rows);
  Run("DELETE FROM tblTransactions WHERE TransactionID < 200");
  EXPECT_FALSE(rows->IsCurrent());
  rows->ReadAll();
  EXPECT_EQ(rows->FirstRead(), rows->Count() - 5);
  EXPECT_EQ(rows->Entry(0).transactionId, 0) << "nothing half true";
  const auto now = shelf.Fetch(Ledger().Store(), {1, {}}, 100, std::nullopt);
  EXPECT_NE(now, rows);
  EXPECT_EQ(now->Count(), Whole({1, {}}).size());
  const Transaction open = Ledger().Store().Begin();
  EXPECT_FALSE(now->IsCurrent()) << "what is not kept yet may never be";
}

TEST_F(RegisterOnDemand, TheTreesSumsAreThoseOfEachAccountsRows) {
  Run("UPDATE tblTransactions SET AllocatedItem = 5 WHERE TransactionID > 280");
  for (const StatusFilter& filter :
       {StatusFilter(), StatusFilter{true, false, false}, StatusFilter{false, true, true}}) {
    for (const std::optional<Date>& end : {std::optional<Date>(), Date::FromYmd(2026, 1, 15)}) {
      TreeOptions options;
      options.filter = filter;
      options.end = end;
      for (const AccountRow& account : Ledger().Accounts().Accounts(options)) {
        const EntrySums own = ReadSums(Store(), account.accountId, filter, std::nullopt, end);
        EXPECT_EQ(account.sums.count, own.count);
        EXPECT_DOUBLE_EQ(account.sums.total, own.total);
        EXPECT_DOUBLE_EQ(account.sums.paidIn, own.paidIn);
        EXPECT_DOUBLE_EQ(account.sums.paidOut, own.paidOut);
        EXPECT_EQ(account.balance, Ledger().Balances().AccountBalance(account.accountId, options));
      }
    }
  }
}

TEST_F(RegisterOnDemand, KnowsWhichOfSomeKeysAreInIt) {
  const RegisterScope scope{1, {true, false, false}, January(5, 20)};
  std::vector<std::int64_t> keys;
  for (std::int64_t key = 1; key <= 700; ++key) keys.push_back(key);
  std::unordered_set<std::int64_t> expected;
  for (const RegisterRow& row : Whole(scope)) expected.insert(row.transactionId);
  EXPECT_EQ(KeysInScope(Store(), scope, keys), expected);
  EXPECT_TRUE(KeysInScope(Store(), scope, {}).empty());
}

TEST_F(RegisterOnDemand, WhatIsReadAheadTakesNoPlaceFromWhatWasShown) {
  RegisterShelf shelf;
  const auto shown = shelf.Fetch(Store(), {1, {}}, 100, std::nullopt);
  EntrySums sums = ReadSums(Store(), 2, StatusFilter(), std::nullopt, std::nullopt);
  const auto ahead = shelf.FetchAhead(Store(), {2, {}}, 5, sums);
  ASSERT_NE(ahead, nullptr);
  EXPECT_EQ(shelf.Fetch(Store(), {2, {}}, 5, sums), ahead);
  EXPECT_EQ(shelf.FetchAhead(Store(), {1, {}}, 100, sums), shown);
  sums.count = 1'000'000'000;
  EXPECT_EQ(shelf.FetchAhead(Store(), {3, {}}, 0, sums), nullptr) << "no room";
  EXPECT_EQ(shelf.Fetch(Store(), {1, {}}, 100, std::nullopt), shown);
}

// Long enough to be read in one go.
class LongRegister : public RegisterOnDemand {
 protected:
  LongRegister() : RegisterOnDemand(4000) {
    Run("UPDATE tblTransactions SET Description = 'Transfer of the standing order no. ' & "
        "(TransactionID Mod 7), Reference = 'a' WHERE TransactionID > 2000");
    Run("UPDATE tblTransactions SET Description = 'Änderung' WHERE TransactionID Mod 50 = 0");
    Run("UPDATE tblTransactions SET Description = '' WHERE TransactionID Mod 51 = 0");
  }

  // As it is read step by step.
  void ExpectWhole(RegisterRows& rows) {
    RegisterRows steps = Open({1, {}});
    while (!steps.IsWhole()) steps.ReadOn(700);
    ASSERT_TRUE(rows.IsWhole());
    ASSERT_EQ(rows.Entries().size(), steps.Entries().size());
    for (std::size_t i = 0; i < steps.Entries().size(); ++i) {
      const RegisterEntry& entry = rows.Entries()[i];
      const RegisterEntry& expected = steps.Entries()[i];
      ASSERT_EQ(entry.transactionId, expected.transactionId) << i;
      EXPECT_EQ(entry.date, expected.date);
      EXPECT_EQ(entry.balance, expected.balance) << "to the last bit";
      EXPECT_EQ(entry.payeeId, expected.payeeId);
      EXPECT_STREQ(entry.status, expected.status);
    }
    EXPECT_EQ(rows.Figures().leastBalance, steps.Figures().leastBalance);
    EXPECT_EQ(rows.Figures().mostAmount, steps.Figures().mostAmount);
  }
};

TEST_F(LongRegister, IsTheSameInOneGo) {
  for (const std::size_t before : {std::size_t{0}, std::size_t{1}, std::size_t{900}}) {
    RegisterRows rows = Open({1, {}});
    rows.ReadOn(before);
    rows.ReadAll();
    ExpectWhole(rows);
  }
}

TEST_F(LongRegister, IsTheSameWithoutItsAccessPath) {
  DropAccessPath({Store().Path(), file_.password, {}}, machine_.clock, "fast_Register");
  RegisterRows rows = Open({1, {}});
  rows.ReadAll();
  ExpectWhole(rows);
}

TEST_F(LongRegister, SortsAsItsCellsDo) {
  RegisterRows rows = Open({1, {}});
  ExpectSortedAsCells(rows, Whole({1, {}}));
}

}  // namespace
}  // namespace corvanta
