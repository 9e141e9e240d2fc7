#include "ledger/LedgerTest.h"
#include "platform/ArithmeticText.h"
#include "platform/Settings.h"
#include "reports/budget/BudgetEditor.h"
#include "reports/query/Explain.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportRunner.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"
#include "support/ScriptedRates.h"

#include <cmath>
#include <limits>

namespace corvanta {
namespace {

// An expense of a weekly budget (9), one with nothing (10), an income (11).
class BudgetEditors : public LedgerTest {
 protected:
  BudgetEditors() {
    machine_.clock.SetToday(*Date::FromIso("2026-02-10"));
    AddAccount(1, "Bank");
    Run("INSERT INTO tblPayees (PayeeID,Payee) VALUES (1,'Grocer')");
    Run("UPDATE tblCategory SET Category = 'Fare', SubCategory = 'Out', Budget = 7, PeriodID = 3, "
        "[Type] = -1 WHERE CategoryID = 9");
    Run("UPDATE tblCategory SET Category = 'Presents', SubCategory = '', [Type] = -1 WHERE "
        "CategoryID = 10");
    Run("UPDATE tblCategory SET Category = 'Pay', SubCategory = '', [Type] = 1 WHERE "
        "CategoryID = 11");
    Run("UPDATE tblCategory SET Category = 'Fare', SubCategory = '', [Type] = -1 WHERE "
        "CategoryID = 12");
    AddTransaction(1, 1, "01/31/2026", "-20");
    AddTransaction(2, 1, "02/01/2026", "-30");
    Ledger().Undo().Start();
    request_.report = kBudgetOfMonth;
    request_.filter.SetKeys(FilterKind::Category, {9, 10, 11, 12});
  }

  ReportTable Show() { return RunReport(Ledger(), request_, rates_, machine_.Get()); }
  // Plan, carried over, actual and left of the category; an empty text where it has no row.
  std::string Figures(std::int64_t key) {
    for (const ReportRow& row : Show().rows) {
      if (row.groupKey != SqlNumber(key)) continue;
      std::string text;
      for (std::size_t i = 2; i < 6; ++i) text += row.cells[i].Text() + "|";
      return text;
    }
    return {};
  }
  std::string Stored(std::int64_t key) {
    const std::string from = " from tblCategory WHERE CategoryID = " + SqlNumber(key);
    return Store().QueryValue("Select Budget" + from).Text() + " " +
           Store().QueryValue("Select PeriodID" + from).Text();
  }
  std::int64_t Monthly() {
    return Store().QueryValue("Select PeriodID from tblPeriods WHERE [Period] = 'm'").Int();
  }

  ReportRequest request_;
  ScriptedRates rates_;
  BudgetEditor editor_{Ledger()};
};

TEST_F(BudgetEditors, PlanByTheMonthWhateverThePeriodWas) {
  ASSERT_EQ(Figures(9), "-28|-11|-30|9|");
  const std::string monthly = SqlNumber(Monthly());
  EXPECT_TRUE(editor_.Save({9, 40}));
  EXPECT_EQ(Stored(9), "40 " + monthly);
  EXPECT_EQ(Figures(9), "-40|-20|-30|30|");
  EXPECT_FALSE(editor_.Save({9, -40})) << "an expense is one with and without its sign";
  EXPECT_TRUE(editor_.Save({11, -1000.5}));
  EXPECT_EQ(Figures(11), "1000.5|1000.5|0|-2001|") << "and so is an income";
  EXPECT_TRUE(editor_.Save({9, 0}));
  EXPECT_EQ(Stored(9), "0 0");
  EXPECT_EQ(Figures(9), "0|0|-30|-30|");
}

TEST_F(BudgetEditors, TakeOneStepBackAtATime) {
  ASSERT_TRUE(editor_.Save({9, 40}));
  ASSERT_TRUE(editor_.Save({9, 50}));
  EXPECT_EQ(Ledger().Undo().UndoName(), "Set Budget");
  static_cast<void>(Ledger().Undo().Undo());
  EXPECT_EQ(Stored(9), "40 " + SqlNumber(Monthly()));
  static_cast<void>(Ledger().Undo().Undo());
  EXPECT_EQ(Stored(9), "7 3");
}

TEST_F(BudgetEditors, RefuseWhatIsNoPlan) {
  const double infinite = std::numeric_limits<double>::infinity();
  for (const BudgetForm& form : {BudgetForm{9, std::nullopt}, BudgetForm{9, infinite},
                                 BudgetForm{9, std::nan("")}, BudgetForm{9, 2 * kLargestAmount}}) {
    const auto warning = editor_.Check(form);
    ASSERT_TRUE(warning);
    EXPECT_EQ(warning->text, "You need to enter a valid Budget");
  }
  ASSERT_TRUE(editor_.Check({9999, 1}));
  EXPECT_FALSE(editor_.Save({9999, 1}));
  EXPECT_FALSE(editor_.Check({10, 0}));
}

TEST_F(BudgetEditors, ReadARowThatHasOnePlan) {
  request_.withAllCategories = true;
  const ReportTable table = Show();
  ASSERT_EQ(table.rows.size(), 5U) << "those without a plan and an amount, too";
  EXPECT_EQ(table.columns[kPlanColumn].header, "Plan");
  const auto plan = editor_.Load(request_, table.rows[1]);
  ASSERT_TRUE(plan);
  EXPECT_EQ(plan->categoryId, 9);
  EXPECT_EQ(plan->amount, 28) << "what the row shows";
  EXPECT_FALSE(editor_.Load(request_, table.rows.back())) << "a total";
  request_.foldsSubCategories = true;
  const ReportTable whole = Show();
  EXPECT_FALSE(editor_.Load(request_, whole.rows[0])) << "a plan of Fare is of two categories";
  EXPECT_TRUE(editor_.Load(request_, whole.rows[1]));
  request_.report = 4;
  EXPECT_FALSE(editor_.Load(request_, table.rows[1])) << "another report";
}

TEST_F(BudgetEditors, CarryOverOrNot) {
  EXPECT_TRUE(CarriesBudgetOver(machine_.registry));
  CarryBudgetOver(machine_.registry, false);
  EXPECT_FALSE(CarriesBudgetOver(machine_.registry));
  request_.carriesOver = false;
  EXPECT_EQ(Figures(9), "-28|0|-30|-2|");
  const ReportTable table = Show();
  double left = 0;
  for (const ExplainedRow& each : Explain(Ledger(), request_, table, 0, 5, machine_.Get())) {
    left += each.contribution;
  }
  EXPECT_EQ(left, -2);
}

}  // namespace
}  // namespace corvanta
