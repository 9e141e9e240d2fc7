// What a filter shows of the registers, against the same rows chosen one by one.
#include "ledger/LedgerTest.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/FilterChoice.h"
#include "ledger/register/PeriodPreset.h"
#include "ledger/register/RegisterOrder.h"
#include "ledger/register/RegisterRows.h"
#include "ledger/register/RegisterShelf.h"
#include "ledger/register/RowFilter.h"
#include "ledger/transactions/KeywordBook.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "store/sql/Recordset.h"

#include <functional>
#include <limits>
#include <set>

namespace corvanta {
namespace {

TEST(RowFilterText, KeepsEachKeyOnceAndLeavesOutWhatIsNone) {
  RowFilter filter;
  EXPECT_TRUE(filter.IsEmpty());
  EXPECT_EQ(filter.Clause(), "");
  filter.SetKeys(FilterKind::Account, {3, 1, 3});
  filter.SetList(FilterKind::Category, " 7,,x, 9 ,12345678901234567890");
  EXPECT_EQ(filter.List(FilterKind::Account), "3,1") << "each once";
  EXPECT_EQ(filter.List(FilterKind::Category), "7,9");
  EXPECT_FALSE(filter.IsEmpty());
  for (const char* nonsense : {"", ",,", "x", "1.5", "nan"}) {
    filter.SetList(FilterKind::Account, nonsense);
    EXPECT_FALSE(filter.IsSet(FilterKind::Account)) << nonsense;
  }
}

TEST(RowFilterText, ComposesItsConditionsInTheirOrder) {
  RowFilter filter;
  for (const FilterKind kind : kFilterKinds) filter.SetKeys(kind, {1, 22});
  EXPECT_EQ(filter.Clause(),
            "(T.AccountID IN (1,22)) AND (T.CategoryID IN (1,22)) AND (T.PayeeID IN (1,22)) AND "
            "(T.PayeeID IN (1,22)) AND (K.KeywordID IN (1,22)) AND ");
  filter = {};
  filter.SetSearch({"o'neil"});
  EXPECT_EQ(filter.Clause(),
            "(T.Amount like '%o''neil%' OR T.Description like '%o''neil%' OR t.Reference like "
            "'%o''neil%' OR PP.PAYEE like '%o''neil%' OR C.CATEGORY like '%o''neil%' OR "
            "C.SUBCATEGORY like '%o''neil%') AND ");
  filter.SetSearch({"x", true});
  EXPECT_EQ(filter.Clause(),
            "(T.Amount like '%x%' OR T.Description like '%x%' OR t.Reference like '%x%') AND ");
  EXPECT_EQ(filter.Tables(), "tblTransactions T");
}

TEST(PeriodPresets, AreTheDaysThatAPersonMeans) {
  const auto days = [](PeriodPreset preset, const char* today) {
    const auto period = DaysOf(preset, *Date::FromIso(today));
    return period ? period->from.ToIso() + " " + period->to.ToIso() : std::string("all");
  };
  using enum PeriodPreset;
  EXPECT_EQ(days(ThisMonth, "2024-02-29"), "2024-02-01 2024-02-29");
  EXPECT_EQ(days(ThisMonth, "2026-12-31"), "2026-12-01 2026-12-31");
  EXPECT_EQ(days(LastMonth, "2026-01-31"), "2025-12-01 2025-12-31");
  EXPECT_EQ(days(LastMonth, "2026-03-31"), "2026-02-01 2026-02-28");
  EXPECT_EQ(days(ThisYear, "2026-11-22"), "2026-01-01 2026-12-31");
  EXPECT_EQ(days(LastTwelveMonths, "2026-11-22"), "2025-11-23 2026-11-22");
  EXPECT_EQ(days(LastTwelveMonths, "2024-02-29"), "2023-03-01 2024-02-29");
  EXPECT_EQ(days(All, "2026-11-22"), "all");
}

class FilteredRows : public LedgerTest {
 protected:
  FilteredRows() {
    AddAccount(1, "Bank", 1, 100);
    AddAccount(2, "Savings", 1, 5);
    AddAccount(3, "Francs", 1, 7, 18);
    Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (501,'Greengrocer',0)");
    Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (502,'100% _[x]',0)");
    Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (503,'Fund',1)");
    AddTransaction(1, 1, "01/01/2026", "-12.5", "PayeeID = 501, Description = 'weekly shop'");
    AddTransaction(2, 1, "01/02/2026", "200", "CategoryID = 10, Reference = 'R-100'");
    AddTransaction(3, 2, "01/02/2026", "1", "PayeeID = 501");
    AddTransaction(4, 1, "01/03/2026", "-30", "PayeeID = 502, BankChk = 1");
    AddTransaction(5, 1, "01/04/2026", "-50", "CategoryID = 11");
    // Two lines of which one is of category 10.
    AddTransaction(6, 1, "01/04/2026", "-20", "CategoryID = 10, AllocatedItem = 5");
    AddTransaction(7, 1, "01/04/2026", "-30", "AllocatedItem = 5, Description = 'half a ham'");
    AddTransaction(8, 3, "01/05/2026", "-3", "PayeeID = 503, [Action] = 1");
    work_ = Ledger().Notes().FindOrCreateKeyword("Work");
    home_ = Ledger().Notes().FindOrCreateKeyword("Home");
    for (const std::int64_t keyword : {work_, home_}) {
      Ledger().Notes().LinkKeyword(keyword, 2);
      Ledger().Notes().LinkKeyword(keyword, 6);
    }
  }

  std::shared_ptr<RegisterRows> Show(const RowFilter& filter, const StatusFilter& statuses = {},
                                     const std::optional<Period>& period = std::nullopt) {
    const RegisterScope scope{1, statuses, period, filter};
    std::vector<FilteredAccount> accounts;
    for (const std::int64_t account : scope.Accounts()) {
      accounts.push_back({account, account == 3 ? 18 : 17,
                          account == 1   ? 100.0
                          : account == 2 ? 5.0
                                         : 7.0});
    }
    return shelf_.FetchFiltered(Store(), scope, accounts);
  }
  std::string KeysOf(RegisterRows& rows) {
    std::vector<std::int64_t> keys;
    for (std::size_t row = 0; row < rows.Count(); ++row) {
      keys.push_back(rows.Entry(row).transactionId);
    }
    // What the undo log asks for is the same.
    std::vector<std::int64_t> all;
    for (std::int64_t key = 0; key < 20; ++key) all.push_back(key);
    const auto shown = KeysInScope(Store(), rows.Scope(), all);
    EXPECT_EQ(std::set(shown.begin(), shown.end()), std::set(keys.begin(), keys.end()));
    return JoinKeys(keys);
  }
  std::string Shown(const RowFilter& filter, const StatusFilter& statuses = {}) {
    // What the register looks up in its own way is what the conditions say, as reports use them.
    std::set<std::int64_t> said;
    Recordset rows = Store().OpenRecordset("Select T.TransactionID, T.AllocatedItem from " +
                                           filter.Tables() + " WHERE " + filter.Clause() + "1 > 0");
    for (; !rows.Eof(); rows.MoveNext()) said.insert(rows.Int(1) == 0 ? rows.Int(0) : rows.Int(1));
    const KeySet found = FilteredKeys(Store(), filter);
    for (std::int64_t key = 0; key < 20; ++key) {
      EXPECT_EQ(found.Has(key), said.contains(key)) << key << ' ' << filter.Clause();
    }
    return KeysOf(*Show(filter, statuses));
  }
  static RowFilter Of(FilterKind kind, const std::vector<std::int64_t>& keys) {
    RowFilter filter;
    filter.SetKeys(kind, keys);
    return filter;
  }
  RowFilter Text(const char* text, bool isTextOnly = false) {
    RowFilter filter;
    filter.SetSearch(ReadSearchText(text, isTextOnly, machine_.Get().locale));
    return filter;
  }

  RegisterShelf shelf_;
  std::int64_t work_ = 0;
  std::int64_t home_ = 0;
};

TEST_F(FilteredRows, AreThoseOfEachList) {
  EXPECT_EQ(Shown(Of(FilterKind::Payee, {501})), "1");
  EXPECT_EQ(Shown(Of(FilterKind::Payee, {501, 502})), "1,4");
  EXPECT_EQ(Shown(Of(FilterKind::Category, {10})), "2,5") << "the split with its lines, once";
  EXPECT_EQ(Shown(Of(FilterKind::Keyword, {work_, home_})), "2,5") << "each row counts once";
  EXPECT_EQ(Shown(Of(FilterKind::Payee, {12345})), "");
  RowFilter both = Of(FilterKind::Category, {10});
  both.SetKeys(FilterKind::Payee, {1});
  both.SetKeys(FilterKind::Keyword, {home_});
  EXPECT_EQ(Shown(both), "2,5");
  both.SetKeys(FilterKind::Investment, {503});
  EXPECT_EQ(Shown(both), "");
  EXPECT_EQ(Shown(Of(FilterKind::Payee, {501, 502}), {false, true, true}), "4");
}

TEST_F(FilteredRows, AreThoseWithTheTextHoweverAnAmountIsWritten) {
  EXPECT_EQ(Shown(Text("SHOP")), "1");
  EXPECT_EQ(Shown(Text("r-1")), "2");
  EXPECT_EQ(Shown(Text("greengrocer")), "1");
  EXPECT_EQ(Shown(Text("greengrocer", true)), "") << "the rows' own texts alone";
  EXPECT_EQ(Shown(Text("half a ham")), "5") << "the text of a line";
  EXPECT_EQ(Shown(Text("12.5")), "1");
  EXPECT_EQ(Shown(Text("12.50")), "1");
  EXPECT_EQ(Shown(Text("-12.50")), "1");
  EXPECT_EQ(Shown(Text("12,50")), "1") << "by the other decimal mark, too";
  EXPECT_EQ(Shown(Text("1,250")), "") << "which groups here, and is no decimal mark then";
  // Signs that stand for others are looked for as they are.
  EXPECT_EQ(Shown(Text("100% _[x]")), "4");
  EXPECT_EQ(Shown(Text("0%")), "4");
  EXPECT_EQ(Shown(Text("%")), "4");
  EXPECT_EQ(Shown(Text("_")), "4");
  EXPECT_EQ(Shown(Text("'")), "");
  EXPECT_EQ(Shown(Text("]")), "4");
}

TEST_F(FilteredRows, KeepTheBalanceOfTheirAccount) {
  const auto rows = Show(Of(FilterKind::Category, {10}));
  ASSERT_EQ(rows->Count(), 2U);
  EXPECT_EQ(rows->CountUnfiltered(), 4U);
  EXPECT_DOUBLE_EQ(rows->Entry(0).balance, 287.5);
  EXPECT_DOUBLE_EQ(rows->Entry(1).balance, 207.5);
  EXPECT_EQ(rows->Totals().paidIn, 200);
  EXPECT_EQ(rows->Totals().paidOut, -50);
  EXPECT_EQ(rows->Totals().thisPeriod, 150);
  EXPECT_EQ(rows->Totals().balance, 207.5) << "the account's, not the rows'";
  EXPECT_EQ(rows->UnclearedCount(), 3);
  const Period second{*Date::FromYmd(2026, 1, 2), *Date::FromYmd(2026, 1, 3)};
  const auto days = Show(Of(FilterKind::Category, {10}), {}, second);
  EXPECT_EQ(KeysOf(*days), "2");
  EXPECT_EQ(days->CountUnfiltered(), 2U);
  EXPECT_EQ(days->Totals().balance, 257.5);
}

TEST_F(FilteredRows, OfSeveralAccountsStandByDayEachWithItsAccount) {
  const auto rows = Show(Of(FilterKind::Account, {2, 1}));
  EXPECT_EQ(KeysOf(*rows), "1,2,3,4,5");
  EXPECT_EQ(rows->Entry(2).accountId, 2);
  EXPECT_DOUBLE_EQ(rows->Entry(2).balance, 6);
  EXPECT_DOUBLE_EQ(rows->Entry(3).balance, 257.5);
  EXPECT_EQ(rows->Totals().balance, 213.5);
  EXPECT_EQ(rows->Totals().paidIn, 201);
  EXPECT_EQ(rows->Read({2}).front().payee, "Greengrocer");
  const auto order = SortedRegister(*rows, RegisterColumn::Account, true);
  EXPECT_EQ(rows->Names().Account(rows->Entry(order.front()).accountId), "Savings");
  // The sum of two currencies is a figure of neither.
  const auto mixed = Show(Of(FilterKind::Account, {1, 3}));
  EXPECT_EQ(KeysOf(*mixed), "1,2,4,5,8");
  EXPECT_FALSE(mixed->Totals().balance);
  EXPECT_FALSE(mixed->Totals().paidIn);
  // An account without rows still holds its opening balance.
  Run("DELETE FROM tblTransactions WHERE AccountID = 2");
  EXPECT_EQ(Show(Of(FilterKind::Account, {2, 1}))->Totals().balance, 212.5);
}

TEST_F(FilteredRows, AreReadOnceAsLongAsTheDataAreTheSame) {
  const RowFilter filter = Of(FilterKind::Payee, {501});
  const auto rows = Show(filter);
  EXPECT_EQ(Show(filter), rows);
  EXPECT_NE(Show(Of(FilterKind::Payee, {502})), rows);
  Run("UPDATE tblTransactions SET PayeeID = 501 WHERE TransactionID = 2");
  EXPECT_FALSE(rows->IsCurrent());
  EXPECT_EQ(Shown(filter), "1,2");
}

TEST_F(FilteredRows, ItemsOfTheDialogAreTickedOneByOneAndAsAWhole) {
  Run("DELETE FROM tblCategory");
  int key = 0;
  for (const char* row : {"'Food',''", "'food','Groceries'", "'Food','Wine'", "'Rent',''",
                          "'Car','Fuel'", "'Tax',NULL"}) {
    Run("INSERT INTO tblCategory (CategoryID,Category,SubCategory,[Type]) VALUES (" +
        std::to_string(++key) + "," + row + ",-1)");
  }
  FilterChoice choice(Store(), FilterKind::Category, {3, 99});
  ASSERT_EQ(choice.Groups().size(), 4U);
  EXPECT_EQ(choice.Groups()[0].name, "Car:Fuel") << "stands alone";
  EXPECT_EQ(choice.Groups()[1].items.size(), 3U);
  EXPECT_EQ(choice.List(), "3") << "what is gone is not ticked";
  EXPECT_EQ(choice.Names(), std::vector<std::string>{"Food:Wine"});
  choice.TickGroup(1, true);
  choice.Tick(3, 0, true);
  EXPECT_EQ(choice.TickedCount(), 4U);
  EXPECT_EQ(choice.Names(), (std::vector<std::string>{"Food", "Tax"}));
  EXPECT_EQ(choice.List(), "1,2,3,6");
  EXPECT_TRUE(choice.Matches(1, 1, "GROC"));
  EXPECT_TRUE(choice.Matches(1, 2, "food:w"));
  EXPECT_FALSE(choice.Matches(3, 0, "food"));
  EXPECT_TRUE(choice.Matches(3, 0, "  "));
  choice.Clear();
  EXPECT_EQ(choice.List(), "");
}

TEST_F(FilteredRows, ItemsAreOfTheirKindAndClosedAccountsOnRequest) {
  AddAccount(4, "Old", 1, 0, 17, 1);
  const auto count = [&](FilterKind kind) { return FilterChoice(Store(), kind, {}).Count(); };
  EXPECT_EQ(count(FilterKind::Account), 4U);
  EXPECT_EQ(count(FilterKind::Keyword), 2U);
  EXPECT_EQ(FilterChoice(Store(), FilterKind::Investment, {503}).Names(),
            std::vector<std::string>{"Fund"});
  EXPECT_EQ(FilterChoice(Store(), FilterKind::Payee, {501, 503}).List(), "501");
  using Closed = FilterChoice::Closed;
  EXPECT_EQ(FilterChoice(Store(), FilterKind::Account, {}, Closed::Hide).Count(), 3U);
  EXPECT_EQ(FilterChoice(Store(), FilterKind::Account, {4}, Closed::Hide).Count(), 4U)
      << "one that is ticked can be unticked";
}

TEST(FilterLabels, AreCutBetweenSigns) {
  EXPECT_EQ(FilterLabel({}), "Show All");
  EXPECT_EQ(FilterLabel({"Food", "Rent"}), "Food, Rent");
  const std::string forty(40, 'x');
  EXPECT_EQ(FilterLabel({forty}), forty);
  EXPECT_EQ(FilterLabel({forty, "y"}), forty + "...");
  std::string umlauts;
  for (int i = 0; i < 41; ++i) umlauts += "ü";
  EXPECT_EQ(FilterLabel({umlauts}), umlauts.substr(0, 80) + "...");
}

}  // namespace
}  // namespace corvanta
