#include "invest/HoldingsTest.h"
#include "invest/holdings/CorporateAction.h"
#include "invest/holdings/Holdings.h"
#include "ledger/register/BalanceBook.h"
#include "store/sql/UndoLog.h"
#include "support/LedgerProblems.h"

namespace corvanta {
namespace {

using Texts = std::vector<std::string>;

class CorporateActionTest : public HoldingsTest {
 protected:
  CorporateActionTest() {
    ledger_.Undo().Start();
    Add(InvestAction::Buy, broker_, acme_, Day("2026-01-05"), 10, 12);
    Add(InvestAction::Buy, broker_, acme_, Day("2026-01-06"), 20, 9);
    Add(InvestAction::Buy, other_, acme_, Day("2026-01-06"), 5, 8);
    Add(InvestAction::Buy, other_, acme_, Day("2026-06-01"), 5, 8);  // after all of it
    AddPrice(acme_, "2026-01-06", 9);
  }
  CorporateForm Form(CorporateKind kind, double given, double held) const {
    CorporateForm form;
    form.kind = kind;
    form.payeeId = acme_;
    form.day = Day("2026-02-02");
    form.given = given;
    form.held = held;
    form.otherId = kind == CorporateKind::Split ? 0 : spun_;
    return form;
  }
  // What the rows are, each as "account: action units investment at price".
  static Texts TextsOf(const CorporatePlan& plan) {
    Texts texts;
    for (const CorporateRow& row : plan.rows) {
      const bool adds = row.record.action == InvestAction::AddShares;
      EXPECT_TRUE(adds || row.record.action == InvestAction::RemoveShares);
      EXPECT_EQ(row.record.total, 0);
      texts.push_back(row.account + (adds ? ": +" : ": -") + SqlNumber(row.record.shares) + " " +
                      row.investment + " at " + SqlNumber(row.record.price));
    }
    return texts;
  }
  Holding HoldingOf(std::int64_t account, std::int64_t payee) {
    for (const Holding& row : Read(CostMethod::Average, true).holdings) {
      if (row.accountId == account && row.payeeId == payee) return row;
    }
    return {};
  }
  std::string Rows() {
    return std::to_string(store_.Number("Select Count(*) from tblTransactions")) + " " +
           std::to_string(store_.Number("Select Count(*) from tblHistory"));
  }

  std::int64_t broker_ = AddAccount("Broker");
  std::int64_t other_ = AddAccount("Other");
  std::int64_t acme_ = AddInvestment("Acme");
  std::int64_t spun_ = AddInvestment("Spun");
  CorporateAction action_{ledger_, store_.platform.Get()};
};

TEST_F(CorporateActionTest, ASplitAddsUnitsInEveryAccountAndDividesThePrice) {
  const CorporateForm form = Form(CorporateKind::Split, 3, 1);
  const CorporatePlan plan = action_.Plan(form);
  EXPECT_EQ(TextsOf(plan), (Texts{"Broker: +60 Acme at 0", "Other: +10 Acme at 0"}));
  EXPECT_EQ(plan.rows[0].record.description, "Split 3 for 1");
  ASSERT_TRUE(plan.price);
  EXPECT_EQ(*plan.price, 3);
  const std::string before = Rows();
  EXPECT_EQ(action_.Write(form, plan), 2U);
  EXPECT_EQ(LedgerProblems(store_.Db()), Texts());
  const Holding held = HoldingOf(broker_, acme_);
  EXPECT_EQ(held.units, 90);
  EXPECT_EQ(held.cost, 300);
  EXPECT_EQ(held.value, 270) << "worth what it was";
  ledger_.Undo().Undo();
  EXPECT_EQ(Rows(), before) << "all of it is one step";
  EXPECT_EQ(HoldingOf(broker_, acme_).units, 30);
}

TEST_F(CorporateActionTest, WhatIsPutTogetherKeepsItsCost) {
  const CorporateForm form = Form(CorporateKind::Split, 1, 5);
  const CorporatePlan plan = action_.Plan(form);
  EXPECT_EQ(TextsOf(plan), (Texts{"Broker: -30 Acme at 10", "Broker: +6 Acme at 50",
                                  "Other: -5 Acme at 8", "Other: +1 Acme at 40"}));
  action_.Write(form, plan);
  const Holding held = HoldingOf(broker_, acme_);
  EXPECT_EQ(held.units, 6);
  EXPECT_EQ(held.cost, 300);
  EXPECT_EQ(held.realised, 0);
  EXPECT_EQ(held.value, 270);
}

TEST_F(CorporateActionTest, AMergerAndASpinOffCarryTheCostOver) {
  const CorporateForm merger = Form(CorporateKind::Merger, 1, 2);
  const CorporatePlan plan = action_.Plan(merger);
  EXPECT_EQ(TextsOf(plan), (Texts{"Broker: -30 Acme at 10", "Broker: +15 Spun at 20",
                                  "Other: -5 Acme at 8", "Other: +2.5 Spun at 16"}));
  EXPECT_FALSE(plan.price) << "what it is worth now, nobody has said";
  action_.Write(merger, plan);
  EXPECT_EQ(HoldingOf(broker_, acme_).units, 0);
  EXPECT_EQ(HoldingOf(broker_, acme_).realised, 0);
  EXPECT_EQ(HoldingOf(broker_, spun_).cost, 300);
  EXPECT_EQ(HoldingOf(other_, acme_).units, 5) << "bought later";
  ledger_.Undo().Undo();

  CorporateForm spinOff = Form(CorporateKind::SpinOff, 1, 10);
  spinOff.costPart = 25;
  action_.Write(spinOff, action_.Plan(spinOff));
  EXPECT_EQ(HoldingOf(broker_, acme_).units, 30);
  EXPECT_EQ(HoldingOf(broker_, acme_).cost, 225);
  EXPECT_EQ(HoldingOf(broker_, spun_).units, 3);
  EXPECT_EQ(HoldingOf(broker_, spun_).cost, 75);
  EXPECT_EQ(HoldingOf(broker_, spun_).realised, 0);
  const Period period{Day("2026-01-01"), Day("2026-03-01")};
  EXPECT_EQ(Read(CostMethod::Average, true, period).totals.at(0).earned.paidIn, 340)
      << "nothing was paid for it";
}

TEST_F(CorporateActionTest, ThePersonsWayToCountCostsIsUsed) {
  Add(InvestAction::Sell, broker_, acme_, Day("2026-01-07"), 10, 12);
  const CorporateForm form = Form(CorporateKind::Merger, 1, 1);
  EXPECT_EQ(action_.Plan(form).rows[0].record.price, 10);
  ChooseCostMethod(store_.platform.registry, CostMethod::FirstInFirstOut);
  EXPECT_EQ(action_.Plan(form).rows[0].record.price, 9) << "the dearer ones are sold";
}

TEST_F(CorporateActionTest, WhatCannotBeIsRefusedAndClosedAccountsAreLeftAlone) {
  CorporateForm form = Form(CorporateKind::SpinOff, 1, 10);
  const auto refused = [&](const char* field) {
    const CorporatePlan plan = action_.Plan(form);
    ASSERT_TRUE(plan.warning) << field;
    EXPECT_EQ(plan.warning->title, "Save Warning");
    EXPECT_EQ(plan.warning->field, field) << plan.warning->text;
    EXPECT_TRUE(plan.rows.empty());
  };
  form.costPart = 101;
  refused("txtCostPart");
  form.otherId = acme_;
  refused("cmbOther");
  form.held = 0;
  refused("txtHeld");
  form.given = std::nullopt;
  refused("txtGiven");
  form.day = std::nullopt;
  refused("dtInvest");
  form.payeeId = 0;
  refused("cmbInvestment");
  form = Form(CorporateKind::Split, 2, 2);
  refused("txtGiven");
  form = Form(CorporateKind::Split, 2, 1);
  form.day = Day("2025-01-01");
  refused("cmbInvestment");

  store_.Db().Execute("UPDATE tblAccounts SET CloseAccount = 1 WHERE AccountID = " +
                      SqlNumber(other_));
  const CorporatePlan plan = action_.Plan(Form(CorporateKind::Split, 2, 1));
  EXPECT_EQ(plan.rows.size(), 1U);
  EXPECT_EQ(plan.closed, Texts{"Other"});
}

}  // namespace
}  // namespace corvanta
