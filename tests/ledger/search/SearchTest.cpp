// Finding transactions by what stands in them.
#include "ledger/LedgerTest.h"
#include "ledger/search/SearchIndex.h"
#include "ledger/search/SearchQuery.h"
#include "ledger/search/TransactionSearch.h"
#include "platform/IcuLocale.h"

#include <algorithm>
#include <memory>

namespace corvanta {
namespace {

class Searching : public LedgerTest {
 protected:
  Searching() {
    AddAccount(1, "Bank");
    AddAccount(2, "Café Account", 1, 0, 77);
    Run("INSERT INTO tblPayees (PayeeID,Payee) VALUES (1,'Acme Company')");
    Run("INSERT INTO tblPayees (PayeeID,Payee) VALUES (2,'Crème Brûlée Straße')");
    Run("INSERT INTO tblCategory (CategoryID,Category,SubCategory,[Type]) VALUES "
        "(201,'Groceries','',-1)");
    Run("INSERT INTO tblCategory (CategoryID,Category,SubCategory,[Type]) VALUES "
        "(202,'Groceries','Fish',-1)");
    AddTransaction(10, 1, "03/02/2026", "-1234.50", "Description = 'New bicycle'");
    AddTransaction(11, 1, "03/01/2026", "12", "Reference = 'AB-77', PayeeID = 2");
    AddTransaction(12, 2, "03/03/2026", "-12.75", "CategoryID = 202");
    // A split of two lines, and a transfer whose payee is none.
    AddTransaction(13, 1, "03/04/2026", "-30", "CategoryID = 201");
    AddTransaction(14, 1, "03/04/2026", "-10.25",
                   "AllocatedItem = 13, CategoryID = 202, Description = 'Herrings'");
    AddTransaction(15, 1, "03/04/2026", "-19.75", "AllocatedItem = 13, Reference = 'bread'");
    AddTransaction(16, 1, "03/05/2026", "-500", "TransferID = 17, PayeeID = 0");
    AddTransaction(17, 2, "03/05/2026", "500", "TransferID = 16, PayeeID = 0");
  }

  std::vector<SearchHit> Hits(const std::string& text, const SearchScope& scope = {}) {
    auto index = std::make_shared<SearchIndex>(Store());
    index->ReadAll();
    TransactionSearch search(index, SearchQuery(text, machine_.locale), scope);
    search.Finish();
    return search.Hits();
  }
  std::vector<std::int64_t> Find(const std::string& text, const SearchScope& scope = {}) {
    std::vector<std::int64_t> keys;
    for (const SearchHit& hit : Hits(text, scope)) keys.push_back(hit.transactionId);
    return keys;
  }
};

using Keys64 = std::vector<std::int64_t>;

TEST_F(Searching, FindsWhatStandsInAnyFieldWithoutCaseAndAccents) {
  const std::vector<std::pair<const char*, Keys64>> cases = {
      {"acme", {10, 12, 13}},
      {"  BICYCLE ", {10}},
      {"ab-7", {11}},
      {"creme brulee", {11}},
      {"STRASSE", {11}},
      {"groceries:fi", {12, 13}},
      {"acme bicycle", {10}},
      {"bicycle herring", {}},
      {"\"acme comp\"", {10, 12, 13}},
      {"\"comp acme\"", {}},
      {"comp acme", {10, 12, 13}},
      // Of a transfer the other account, whatever its payee.
      {"cafe acc", {16}},
      {"bank", {17}},
      // Words of one row in several lines.
      {"herrings bread", {13}},
      {"groceries bread acme", {13}},
      {"", {}},
      {"payee:", {}},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(Find(text), expected) << text;
}

TEST_F(Searching, AFieldsNameKeepsAWordToIt) {
  const std::vector<std::pair<const char*, Keys64>> cases = {
      {"payee:bicycle", {}},
      {"description:bicycle", {10}},
      {"ref:77", {11}},
      {"category:groc", {12, 13}},
      {"category=groceries", {12, 13}},  // with all below it
      {"category=groc", {}},
      {"category=\"Groceries:Fish\"", {12, 13}},
      {"payee=acme", {}},
      {"payee=\"Acme Company\" amount:12", {12}},
      {"amount:acme", {}},
      {"nothing:acme", {}},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(Find(text), expected) << text;
  EXPECT_EQ(Find(ExactQuery(SearchField::Payee, "Acme Company")), Find("payee=\"ACME company\""));
  EXPECT_EQ(Find(ExactQuery(SearchField::Category, "Groceries:Fish")), (Keys64{12, 13}));
}

TEST_F(Searching, FindsAnAmountHoweverItIsWritten) {
  for (const char* text : {"1234.5", "1234.50", "1,234.50", "1.234,50", "1234,5", "1 234,50",
                           "-1234.50", "(1,234.50)", "1234", "1,234", "1.234", "GBP 1234.50"}) {
    EXPECT_EQ(Find(text), Keys64{10}) << text;
  }
  // Without decimals every amount of so many units, and texts with these digits.
  EXPECT_EQ(Find("12"), (Keys64{11, 12}));
  EXPECT_EQ(Find("12.00"), Keys64{11});
  EXPECT_EQ(Find("12.7"), Keys64{});
  EXPECT_EQ(Find("12.75"), Keys64{12});
  // A sign is taken at its word.
  EXPECT_EQ(Find("-500"), Keys64{16});
  EXPECT_EQ(Find("+500"), Keys64{17});
  EXPECT_EQ(Find("500"), (Keys64{16, 17}));
  // Of a split line.
  EXPECT_EQ(Find("10.25"), Keys64{13});
}

TEST(SoughtAmountsTest, FollowTheLocaleAndEveryOtherForm) {
  const IcuLocale german("de_DE");
  const auto values = [&](const char* text) {
    std::vector<double> found;
    for (const SoughtAmount& one : SoughtAmounts(text, german)) found.push_back(one.value);
    std::ranges::sort(found);
    return found;
  };
  EXPECT_EQ(values("1.234,50"), std::vector<double>{1234.5});
  EXPECT_EQ(values("1234.5"), std::vector<double>{1234.5});
  EXPECT_EQ(values("1.234"), (std::vector<double>{1.234, 1234}));
  EXPECT_EQ(values("0,00"), std::vector<double>{0});
  EXPECT_TRUE(values("12a").empty());
  EXPECT_TRUE(values("DR").empty());
  EXPECT_TRUE(SoughtAmounts("0", german).front().Fits(0.4));
  EXPECT_FALSE(SoughtAmounts("0,00", german).front().Fits(0.4));
  EXPECT_TRUE(SoughtAmounts("0,3", german).front().Fits(-(0.1 + 0.2)));
}

TEST_F(Searching, KeepsToAnAccountAndToDaysAndStandsByDay) {
  EXPECT_EQ(Find("acme", {1}), (Keys64{10, 13}));
  EXPECT_EQ(Find("acme", {2}), Keys64{12});
  const Period second{*Date::FromYmd(2026, 3, 2), *Date::FromYmd(2026, 3, 3)};
  EXPECT_EQ(Find("acme", {0, second}), (Keys64{10, 12}));
  EXPECT_EQ(Find("12"), (Keys64{11, 12})) << "the older one first";
  const std::vector<SearchHit> hits = Hits("herrings");
  ASSERT_EQ(hits.size(), 1U);
  EXPECT_TRUE(hits[0].isInLines);
  EXPECT_EQ(hits[0].amount, -30);
  EXPECT_FALSE(Hits("groceries acme 30").front().isInLines);
  EXPECT_EQ(Hits("12.75").front().currencyId, 77);
  // What no list shows is not found.
  Run("UPDATE tblTransactions SET CategoryID = 999 WHERE TransactionID = 10");
  EXPECT_EQ(Find("bicycle"), Keys64{});
}

TEST_F(Searching, ReadsAPieceAtATimeAndOnlyWhatIsStillSo) {
  Run("INSERT INTO tblTransactions (TransactionID,AccountID,CategoryID,PaymentID,PayeeID,[Amount],"
      "[Date],Description) VALUES (900000,1,9,1,1,5,#01/01/2020#,'far away')");
  auto index = std::make_shared<SearchIndex>(Store());
  int pieces = 0;
  for (; !index->IsWhole(); ++pieces) index->ReadOn(3);
  EXPECT_GT(pieces, 2);
  EXPECT_LT(pieces, 10) << "a gap between keys is stepped over";
  TransactionSearch search(index, SearchQuery("far", machine_.locale), {});
  int steps = 1;
  while (!search.GoOn(2)) ++steps;
  EXPECT_EQ(steps, 9);
  ASSERT_EQ(search.Hits().size(), 1U);
  const auto rows = ReadFound(*index, search.Hits());
  EXPECT_EQ(rows[0].row.description, "far away");
  EXPECT_EQ(rows[0].account->account, "Bank");
  EXPECT_EQ(rows[0].account->currency, "GBP");
  EXPECT_TRUE(index->IsCurrent());
  SearchIndex unread(Store());
  Run("DELETE FROM tblTransactions WHERE TransactionID = 900000");
  EXPECT_FALSE(index->IsCurrent());
  unread.ReadOn(100);
  EXPECT_TRUE(unread.Rows().empty());
  EXPECT_EQ(ReadFound(*index, search.Hits())[0].row.transactionId, 0);
  Run("DELETE FROM tblTransactions");
  EXPECT_EQ(Find("acme"), Keys64{});
}

TEST(SearchQueryTest, NarrowsAListByItsCells) {
  const IcuLocale british("en_GB");
  const auto fits = [&](const char* text, const std::vector<SearchQuery::Cell>& cells) {
    return SearchQuery(text, british).FitsCells(cells);
  };
  const std::vector<SearchQuery::Cell> cells = {{FoldForSearch("Crédit Agricole"), std::nullopt},
                                                {"1,234.50", 1234.5}};
  EXPECT_TRUE(fits("credit", cells));
  EXPECT_TRUE(fits("agri cred", cells));
  EXPECT_TRUE(fits("1.234,50", cells));
  EXPECT_TRUE(fits("1,2", cells));
  EXPECT_FALSE(fits("-1234.50", cells));
  EXPECT_FALSE(fits("credit 99", cells));
  EXPECT_TRUE(fits("", cells));
}

}  // namespace
}  // namespace corvanta
