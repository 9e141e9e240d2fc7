// What the data file keeps of its entries must be what adding them up gives, whatever was done.
#include "ledger/LedgerTest.h"
#include "ledger/Money.h"
#include "ledger/register/EntrySums.h"
#include "store/datafile/schema/KeptSums.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"
#include "support/LedgerProblems.h"
#include "support/StatementLog.h"

#include <random>
#include <string>
#include <vector>

namespace corvanta {
namespace {

const std::vector<StatusFilter> kFilters = {
    {true, true, true},  {true, false, false}, {false, true, false}, {false, false, true},
    {true, true, false}, {true, false, true},  {false, true, true},  {false, false, false}};

void ExpectSame(const EntrySums& sums, const EntrySums& expected, const std::string& what) {
  EXPECT_EQ(sums.count, expected.count) << what;
  EXPECT_EQ(RoundMoney(sums.total), RoundMoney(expected.total)) << what;
  EXPECT_EQ(RoundMoney(sums.paidIn), RoundMoney(expected.paidIn)) << what;
  EXPECT_EQ(RoundMoney(sums.paidOut), RoundMoney(expected.paidOut)) << what;
}

class KeptEntrySums : public LedgerTest {
 protected:
  KeptEntrySums() {
    for (int account = 1; account <= 3; ++account) {
      AddAccount(account, "Account " + std::to_string(account));
    }
    Ledger().Undo().Start();
  }

  int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }

  Date PickDay() { return Date::FromYmd(2025, 11, 20)->AddDays(Below(150)); }

  std::string PickAmount() {
    switch (Below(40)) {
      case 0:
        return "10.123456789";  // more than the units hold
      case 1:
        return "0.1 + 0.2";  // noise
      case 2:
        return "123456789012.5";
      case 3:
        return "Null";
      default:
        return SqlNumber((Below(200000) - 100000) / (Below(2) == 0 ? 100.0 : 10000.0));
    }
  }
  std::string PickCategory() { return std::to_string(Below(25) == 0 ? 7777 : 3 + Below(9)); }
  std::string PickDate() {
    const Date day = PickDay();
    return Below(12) == 0 ? SqlDate(DateTime{day, 37800}) : SqlDate(day);
  }
  std::string PickKey() { return std::to_string(1 + Below(last_ + 1)); }

  void Insert() {
    ++last_;
    Run("INSERT INTO tblTransactions (TransactionID,AccountID,CategoryID,PaymentID,PayeeID,"
        "[Amount],[Date],BankChk,BankRec,AllocatedItem) VALUES (" +
        std::to_string(last_) + "," + std::to_string(1 + Below(3)) + "," + PickCategory() +
        ",1,1," + PickAmount() + "," + PickDate() + "," + std::to_string(Below(2)) + "," +
        std::to_string(Below(2)) + "," + (Below(8) == 0 ? PickKey() : "0") + ")");
  }

  void Change() {
    const std::vector<std::string> changes = {
        "[Amount] = " + PickAmount(),
        "[Date] = " + PickDate(),
        "AccountID = " + std::to_string(1 + Below(3)),
        "CategoryID = " + PickCategory(),
        "BankChk = 1, BankRec = " + std::to_string(Below(2)),
        "BankChk = 0, BankRec = 0",
        "AllocatedItem = " + (Below(2) == 0 ? PickKey() : "0"),
        "Description = 'x'"};
    const std::string where =
        Below(10) == 0 ? " WHERE AccountID = " + std::to_string(1 + Below(3)) + " AND BankChk = 0"
                       : " WHERE TransactionID = " + PickKey();
    Run("UPDATE tblTransactions SET " + changes[static_cast<std::size_t>(Below(8))] + where);
  }

  void Delete() { Run("DELETE FROM tblTransactions WHERE TransactionID = " + PickKey()); }

  void ChangeCategories() {
    const std::string key = std::to_string(3 + Below(9));
    if (Below(2) == 0) {
      Run("DELETE FROM tblCategory WHERE CategoryID = " + key);
    } else if (Store()
                   .QueryValue("Select Count(*) from tblCategory Where CategoryID = " + key)
                   .Int() == 0) {
      Run("INSERT INTO tblCategory (CategoryID,Category,[Type]) VALUES (" + key + ",'Again " + key +
          "',1)");
    }
  }

  void Operate() {
    switch (Below(16)) {
      case 0:
        return Ledger().Undo().Undo();
      case 1:
        return Ledger().Undo().Redo();
      case 2: {
        // Taken back on the way.
        const Transaction undone = Store().Begin();
        Insert();
        Change();
        Delete();
        return;
      }
      case 3:
        return ChangeCategories();
      case 4:
      case 5:
        return Delete();
      case 6:
      case 7:
      case 8:
      case 9:
        return Change();
      default:
        return Insert();
    }
  }

  void CompareAll() {
    const Date from = PickDay();
    const Date to = from.AddDays(Below(90));
    for (const StatusFilter& filter : kFilters) {
      for (std::int64_t account = 1; account <= 4; ++account) {
        const auto compare = [&](const std::optional<Date>& first,
                                 const std::optional<Date>& last) {
          ExpectSame(ReadSums(Store(), account, filter, first, last),
                     AddUp(Store(), account, filter, first, last), filter.Clause());
        };
        compare({}, {});
        compare(from, {});
        compare({}, to);
        compare(from, to);
      }
      for (const std::optional<Date>& end : {std::optional<Date>(), std::optional(to)}) {
        TreeOptions options;
        options.filter = filter;
        options.end = end;
        SumsByAccount all = ReadAllSums(Store(), options);
        for (std::int64_t account = 1; account <= 4; ++account) {
          ExpectSame(all[account], AddUp(Store(), account, filter, {}, end), filter.Clause());
        }
      }
    }
    for (std::int64_t account = 1; account <= 4; ++account) {
      EXPECT_EQ(UnclearedCount(Store(), account),
                Store()
                    .QueryValue("Select Count(*) from tblTransactions Where AllocatedItem = 0 "
                                "AND BankChk = 0 AND AccountID = " +
                                std::to_string(account))
                    .Int());
    }
  }

  std::mt19937 random_{11};
  int last_ = 0;
};

// The problems of the ledger's own rules are none of this test.
std::vector<std::string> KeptProblems(Connection& store) {
  std::vector<std::string> problems = LedgerProblems(store);
  std::erase_if(problems, [](const std::string& text) { return !text.starts_with("own_"); });
  return problems;
}

TEST_F(KeptEntrySums, AreTheSumsAfterThousandsOfChanges) {
  ASSERT_NE(Store().Table(kEntrySums), nullptr);
  for (int i = 0; i < 4000 && !HasFailure(); ++i) {
    SCOPED_TRACE("operation " + std::to_string(i));
    Operate();
    if (i % 20 == 0) {
      EXPECT_EQ(KeptProblems(Store()), std::vector<std::string>{});
    }
    if (i % 100 == 0) CompareAll();
  }
}

TEST_F(KeptEntrySums, AreReadInPlaceOfTheEntries) {
  for (int i = 0; i < 50; ++i) Insert();
  Run("DELETE FROM tblTransactions WHERE [Amount] IS NULL");
  Run("UPDATE tblTransactions SET CategoryID = 3");
  // As the next opening would.
  Run("DELETE FROM own_KeptCategories WHERE CategoryID = 7777");
  Run("UPDATE tblTransactions SET [Amount] = 12.5, [Date] = #03/15/2026#");
  ASSERT_NE(AddUp(Store(), 1, {}, {}, {}).total, 0);
  // Seen by what they would say if they were wrong.
  Run("UPDATE own_KeptSums SET Total = 0 WHERE AccountID = 1");
  EXPECT_EQ(ReadSums(Store(), 1, {}, {}, {}).total, 0);
  EXPECT_EQ(ReadAllSums(Store(), {})[1].total, 0);
  const EntrySums whole = AddUp(Store(), 1, {}, {}, {});
  ExpectSame(ReadSums(Store(), 1, {}, Date::FromYmd(2026, 3, 1), Date::FromYmd(2026, 3, 31)), whole,
             "a month's days are added up");
  Run("UPDATE tblTransactions SET [Amount] = 0.123456 WHERE TransactionID = (Select "
      "Max(TransactionID) from tblTransactions Where AccountID = 1 AND AllocatedItem = 0)");
  ExpectSame(ReadSums(Store(), 1, {}, {}, {}), AddUp(Store(), 1, {}, {}, {}),
             "an amount of many decimals");
}

}  // namespace
}  // namespace corvanta
