#include "ledger/RecordsTest.h"
#include "ledger/transactions/TransactionBook.h"
#include "platform/IcuLocale.h"
#include "reconcile/Reconciliation.h"
#include "support/RecordingProgress.h"

#include <algorithm>

namespace corvanta {
namespace {

class ReconciliationTest : public RecordsTest {
 protected:
  using Status = std::pair<std::int64_t, std::int64_t>;  // BankChk, BankRec
  static constexpr Status kUncleared{0, 0};
  static constexpr Status kCleared{1, 0};
  static constexpr Status kReconciled{1, 1};

  std::int64_t AddWith(double amount, Status status, const char* day = "2026-11-01") {
    const std::int64_t key = Add(bank_, amount, day);
    SetMarks(key, status);
    return key;
  }
  void SetMarks(std::int64_t key, Status status) {
    Run("UPDATE tblTransactions SET BankChk = " + std::to_string(status.first) + ", BankRec = " +
        std::to_string(status.second) + " WHERE TransactionID = " + std::to_string(key) +
        " OR AllocatedItem = " + std::to_string(key));
  }
  Status StatusOf(std::int64_t key) { return {Column("BankChk", key), Column("BankRec", key)}; }

  static std::vector<std::int64_t> Keys(const Reconciliation& balancing, bool tickedOnly = false) {
    std::vector<std::int64_t> keys;
    for (const ReconcileRow& row : balancing.Rows()) {
      if (row.isTicked || !tickedOnly) keys.push_back(row.transactionId);
    }
    return keys;
  }
  static std::vector<std::int64_t> Ticked(const Reconciliation& balancing) {
    return Keys(balancing, true);
  }
  static void Tick(Reconciliation& balancing, std::int64_t key, bool isTicked = true) {
    const auto row = balancing.RowOf(key);
    ASSERT_TRUE(row.has_value());
    balancing.Tick(*row, isTicked);
  }
  std::vector<std::string> Labels(const Reconciliation& balancing) {
    const ReconcileTexts texts = TextsOf(balancing.Totals(), store_.platform.locale);
    return {texts.initial, texts.current, texts.outstanding, texts.paidIn, texts.paidOut};
  }
  bool Apply(Reconciliation& balancing) { return balancing.Apply(progress_); }

  using List = std::vector<std::int64_t>;
  using Texts = std::vector<std::string>;
  RecordingProgress progress_;
};

TEST_F(ReconciliationTest, NoAccountAndAClosedOneAreTold) {
  const auto none = Reconciliation(0, ledger_).Check();
  ASSERT_TRUE(none);
  EXPECT_EQ(none->title, "Please Select Account");
  EXPECT_EQ(none->text, "Please select an Account to continue.");
  EXPECT_TRUE(Reconciliation(999, ledger_).Check());
  EXPECT_FALSE(Reconciliation(bank_, ledger_).Check());
  EXPECT_FALSE(Reconciliation(bank_, ledger_).CheckAdd());
  Run("UPDATE tblAccounts SET CloseAccount = 1 WHERE AccountID = " + std::to_string(bank_));
  const auto closed = Reconciliation(bank_, ledger_).Check();
  ASSERT_TRUE(closed);
  EXPECT_EQ(closed->title, "Balance Account");
  EXPECT_EQ(closed->text, "This Account is closed, Items cannot be amended");
  Run("DELETE FROM tblAccounts");
  const auto empty = Reconciliation(bank_, ledger_).CheckAdd();
  ASSERT_TRUE(empty);
  EXPECT_EQ(empty->title, "Please Add Account");
  EXPECT_EQ(empty->text, "There are no Accounts set up. Please add an Account to start");
}

TEST_F(ReconciliationTest, RowsCarryTheirPictureNamesAndStatus) {
  const std::int64_t plain = AddWith(-5, kCleared, "2026-11-05");
  const std::int64_t split = Add(bank_, -10, "2026-11-03");
  AddLine(split, -4);
  AddLine(split, -6);
  const std::int64_t half = AddTransfer(bank_, savings_, 25).first;
  const std::int64_t posted = Add(bank_, -7, "2026-11-04");
  AddLine(posted, -7);
  const std::int64_t schedule = AddSchedule(bank_, -7);
  Run("UPDATE tblTransactions SET BankSch = " + std::to_string(schedule) +
      " WHERE TransactionID = " + std::to_string(posted));
  Add(savings_, -99);
  Reconciliation balancing(bank_, ledger_);
  balancing.ShowUnreconciled();
  EXPECT_EQ(Keys(balancing), (List{half, split, posted, plain})) << "whole rows, by day";
  std::vector<std::string_view> images;
  for (const ReconcileRow& row : balancing.Rows()) images.push_back(row.image);
  EXPECT_EQ(images, (std::vector<std::string_view>{"TRANSFER", "ALLOCATED", "SCHEDULE", "BLANK"}));
  EXPECT_EQ(balancing.Rows().back().status, "C");
  EXPECT_EQ(balancing.Rows().back().category, "Bills:Gas");
  EXPECT_EQ(balancing.Rows().back().payee, "Shop");
  EXPECT_EQ(balancing.AccountText(), "Bank (GBP)");
  balancing.SetNewestFirst(true);
  balancing.Refill();
  EXPECT_EQ(Keys(balancing), (List{plain, posted, split, half}));
}

TEST_F(ReconciliationTest, TicksMoveTheTotals) {
  AddWith(-30, kReconciled);
  const std::int64_t out = Add(bank_, -40);
  const std::int64_t in = AddWith(15.5, kCleared);
  const std::int64_t nothing = Add(bank_, 0);
  Reconciliation balancing(bank_, ledger_);
  balancing.ShowUnreconciled();
  EXPECT_EQ(Keys(balancing), (List{out, in, nothing}));
  EXPECT_EQ(Labels(balancing),
            (Texts{"Initial Balance: 70.00", "Current Balance: 70.00", "Outstanding: -24.50",
                   "Paid In: 0 (0.00)", "Paid Out: 0 (0.00)"}));
  Tick(balancing, out);
  EXPECT_EQ(Labels(balancing),
            (Texts{"Initial Balance: 70.00", "Current Balance: 30.00", "Outstanding: 15.50",
                   "Paid In: 0 (0.00)", "Paid Out: 1 (40.00)"}));
  balancing.SelectAll();
  EXPECT_EQ(Labels(balancing),
            (Texts{"Initial Balance: 70.00", "Current Balance: 45.50", "Outstanding: 0.00",
                   "Paid In: 2 (15.50)", "Paid Out: 1 (40.00)"}));
  Tick(balancing, in, false);
  balancing.Invert();
  EXPECT_EQ(Ticked(balancing), List{in});
  balancing.ClearAll();
  EXPECT_EQ(balancing.Totals().current, 70);
}

TEST_F(ReconciliationTest, AnAccountWithoutReconciledRowsBeginsWithItsOpeningBalance) {
  Reconciliation balancing(bank_, ledger_);
  balancing.ShowUnreconciled();
  EXPECT_EQ(Labels(balancing),
            (Texts{"Initial Balance: 100.00", "Current Balance: 100.00", "Outstanding: 0.00",
                   "Paid In: 0 (0.00)", "Paid Out: 0 (0.00)"}));
}

TEST_F(ReconciliationTest, BinaryNoiseIsNoDifference) {
  for (int i = 0; i < 30; ++i) Add(bank_, i % 2 == 0 ? 0.1 : -0.7);
  Reconciliation balancing(bank_, ledger_);
  balancing.ShowUnreconciled();
  balancing.SelectAll();
  EXPECT_EQ(balancing.Totals().outstanding, 0);
  EXPECT_EQ(balancing.Totals().current, 91);
  EXPECT_TRUE(DifferenceTo(91, balancing.Totals(), "GBP").isBalanced);
  EXPECT_FALSE(DifferenceTo(90.996, balancing.Totals(), "GBP").isBalanced);
  EXPECT_FALSE(DifferenceTo(91.01, balancing.Totals(), "GBP").isBalanced);
  EXPECT_EQ(DifferenceTo(90.5, balancing.Totals(), "GBP").amount, -0.5);
}

// Nothing that is off is balanced, however few decimals the currency has.
TEST_F(ReconciliationTest, WhatIsReallyThereIsCompared) {
  Add(bank_, 12.5);
  Reconciliation balancing(bank_, ledger_);
  balancing.ShowUnreconciled();
  balancing.SelectAll();
  EXPECT_EQ(balancing.Currency(), "GBP");
  const IcuLocale japanese("ja_JP");
  const StatementDifference cents = DifferenceTo(112.94, balancing.Totals(), "USD");
  EXPECT_FALSE(cents.isBalanced);
  EXPECT_EQ(cents.Text(japanese), "0.44");
  const StatementDifference yen = DifferenceTo(112.94, balancing.Totals(), "JPY");
  EXPECT_FALSE(yen.isBalanced);
  EXPECT_EQ(yen.Text(japanese), "0.44");
  const StatementDifference thirds = DifferenceTo(112.504, balancing.Totals(), "GBP");
  EXPECT_FALSE(thirds.isBalanced);
  EXPECT_EQ(thirds.Text(japanese), "0.004") << "and not as nothing";
  const StatementDifference mils = DifferenceTo(112.504, balancing.Totals(), "KWD");
  EXPECT_FALSE(mils.isBalanced);
  EXPECT_EQ(mils.Text(japanese), "0.004");
}

TEST_F(ReconciliationTest, ShowingAllTicksWhatIsReconciled) {
  const std::int64_t settled = AddWith(-30, kReconciled);
  const std::int64_t old = AddWith(-1, {0, 1});
  const std::int64_t open = Add(bank_, -40);
  const std::int64_t other = Add(bank_, -2);
  Reconciliation balancing(bank_, ledger_);
  balancing.ShowUnreconciled();
  Tick(balancing, open);
  balancing.ShowAll();
  EXPECT_EQ(Keys(balancing), (List{settled, old, open, other}));
  EXPECT_EQ(Ticked(balancing), (List{settled, open})) << "the tick in sight was kept";
  EXPECT_EQ(Labels(balancing),
            (Texts{"Initial Balance: 100.00", "Current Balance: 30.00", "Outstanding: -3.00",
                   "Paid In: 0 (0.00)", "Paid Out: 2 (70.00)"}));
  Tick(balancing, settled, false);
  const std::int64_t entered = AddWith(-3, kReconciled);
  balancing.Refill();
  EXPECT_EQ(Ticked(balancing), (List{open, entered})) << "unticked stays unticked";
  balancing.ShowAll();
  EXPECT_EQ(Ticked(balancing), (List{settled, open, entered})) << "begins anew";
  balancing.ShowUnreconciled();
  EXPECT_EQ(Keys(balancing), (List{open, other}));
  EXPECT_EQ(Ticked(balancing), List{open});
}

TEST_F(ReconciliationTest, TicksStayWithTheirRows) {
  // Keys of which one is the beginning of another.
  const std::int64_t first = Add(bank_, -1);
  for (int i = 0; i < 12; ++i) Add(bank_, -1);
  Reconciliation balancing(bank_, ledger_);
  balancing.ShowUnreconciled();
  const std::int64_t twelfth = first + 11;
  Tick(balancing, twelfth);
  const std::int64_t added = Add(bank_, -5, "2026-10-01");
  balancing.Refill();
  EXPECT_EQ(Ticked(balancing), List{twelfth});
  EXPECT_EQ(Keys(balancing).front(), added);
  ledger_.Transactions().DeleteTransaction(twelfth);
  balancing.Refill();
  EXPECT_EQ(Ticked(balancing), List{});
  EXPECT_EQ(balancing.Totals().current, 100);
}

TEST_F(ReconciliationTest, ApplyingSettlesTickedRowsWithTheirLines) {
  ledger_.Undo().Start();
  const std::int64_t split = Add(bank_, -10);
  const std::int64_t line = AddLine(split, -10);
  const auto [half, twin] = AddTransfer(bank_, savings_, 25);
  const std::int64_t cleared = AddWith(-5, kCleared);
  const std::int64_t open = Add(bank_, -6);
  const std::int64_t settled = AddWith(-7, kReconciled);
  Reconciliation balancing(bank_, ledger_);
  balancing.ShowUnreconciled();
  Tick(balancing, split);
  Tick(balancing, half);
  EXPECT_TRUE(Apply(balancing));
  EXPECT_EQ(StatusOf(split), kReconciled);
  EXPECT_EQ(StatusOf(line), kReconciled);
  EXPECT_EQ(StatusOf(half), kReconciled);
  EXPECT_EQ(StatusOf(twin), kUncleared) << "another account's statement has it";
  EXPECT_EQ(StatusOf(cleared), kCleared);
  EXPECT_EQ(StatusOf(open), kUncleared);
  EXPECT_EQ(StatusOf(settled), kReconciled);
  EXPECT_EQ(ledger_.Undo().UndoName(), "Balance Account");
  ledger_.Undo().Undo();
  EXPECT_EQ(StatusOf(split), kUncleared) << "all of it is one step";
  EXPECT_EQ(StatusOf(half), kUncleared);
}

TEST_F(ReconciliationTest, ApplyingNothingChangesNothingAndAnUntickedRowBecomesUncleared) {
  const std::int64_t cleared = AddWith(-5, kCleared);
  const std::int64_t settled = AddWith(-7, kReconciled);
  const std::int64_t split = Add(bank_, -10);
  const std::int64_t line = AddLine(split, -10);
  SetMarks(split, kReconciled);
  Reconciliation balancing(bank_, ledger_);
  balancing.ShowUnreconciled();
  EXPECT_TRUE(Apply(balancing));
  EXPECT_EQ(StatusOf(cleared), kCleared);
  EXPECT_EQ(StatusOf(settled), kReconciled);
  balancing.ShowAll();
  Tick(balancing, split, false);
  EXPECT_TRUE(Apply(balancing));
  EXPECT_EQ(StatusOf(split), kUncleared);
  EXPECT_EQ(StatusOf(line), kUncleared);
  EXPECT_EQ(StatusOf(cleared), kCleared);
  EXPECT_EQ(StatusOf(settled), kReconciled);
}

TEST_F(ReconciliationTest, StoppingSettlesNothingAndKeepsTheTicks) {
  const List keys{Add(bank_, -1), Add(bank_, -2), Add(bank_, -3)};
  Reconciliation balancing(bank_, ledger_);
  balancing.ShowUnreconciled();
  balancing.SelectAll();
  progress_.StopAfter(1);
  EXPECT_FALSE(Apply(balancing));
  for (const std::int64_t key : keys) EXPECT_EQ(StatusOf(key), kUncleared);
  balancing.Refill();
  EXPECT_EQ(Ticked(balancing), keys);
  EXPECT_EQ(balancing.Totals().initial, 100);
}

TEST_F(ReconciliationTest, TenThousandRowsAreSettled) {
  ledger_.Undo().Start();
  Add(bank_, -1);
  while (Count("tblTransactions") < 10000) {
    Run("INSERT INTO tblTransactions (AccountID, CategoryID, PaymentID, PayeeID, [Amount], [Date], "
        "AllocatedItem) SELECT AccountID, CategoryID, PaymentID, PayeeID, [Amount], [Date], 0 FROM "
        "tblTransactions");
  }
  Reconciliation balancing(bank_, ledger_);
  balancing.ShowUnreconciled();
  balancing.SelectAll();
  const std::size_t count = balancing.Rows().size();
  EXPECT_TRUE(Apply(balancing));
  EXPECT_EQ(Count("tblTransactions WHERE BankChk = 1 AND BankRec = 1"),
            static_cast<std::int64_t>(count));
  EXPECT_TRUE(std::ranges::any_of(progress_.Steps(), [&](const auto& step) {
    return step.first > 0 && step.second == count;
  })) << "shows how far it is";
}

}  // namespace
}  // namespace corvanta
