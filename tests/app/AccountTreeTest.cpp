#include "app/WindowTest.h"
#include "app/tree/AccountTree.h"

#include <QSignalSpy>

namespace corvanta {
namespace {

AccountRow Account(std::int64_t id, const char* name, std::int64_t group, const char* groupName,
                   const char* currency, double balance, bool closed = false) {
  AccountRow row;
  row.accountId = id;
  row.account = name;
  row.accountTypeId = group;
  row.accountType = groupName;
  row.currency = currency;
  row.currencyId = row.currency == "EUR" ? 2 : 1;
  row.balance = balance;
  row.closed = closed;
  return row;
}

std::string Text(const QTreeWidgetItem* item) {
  return (item->text(0) + QStringLiteral("=") + item->text(1)).toStdString();
}

class Tree : public testing::Test {
 protected:
  void ShowSome() {
    tree_.SetAccounts({Account(1, "Current", 1, "Bank Accounts", "GBP", 1234.5),
                       Account(2, "Euro", 1, "Bank Accounts", "EUR", 10),
                       Account(3, "Old", 1, "Bank Accounts", "GBP", 0.1, true),
                       Account(4, "Visa", 3, "Credit Accounts", "GBP", -99.99)});
  }
  FixedLocale locale_;
  AccountTree tree_{locale_, nullptr};
};

TEST_F(Tree, GroupsTheAccountsAndTotalsEachCurrency) {
  ShowSome();
  ASSERT_EQ(tree_.topLevelItemCount(), 2);
  const QTreeWidgetItem* bank = tree_.topLevelItem(0);
  EXPECT_EQ(bank->text(0), "Bank Accounts");
  ASSERT_EQ(bank->childCount(), 5);
  EXPECT_EQ(Text(bank->child(0)), "Current=1,234.50");
  EXPECT_EQ(Text(bank->child(2)), "Old [Closed] =0.10");
  EXPECT_EQ(Text(bank->child(3)), "Total (GBP)=1,234.60");
  EXPECT_EQ(Text(bank->child(4)), "Total (EUR)=10.00");
  EXPECT_EQ(Text(tree_.topLevelItem(1)->child(1)), "Total (GBP)=-99.99");
}

TEST_F(Tree, KeepsTheChosenAccountAndTheFoldedGroups) {
  QSignalSpy chosen(&tree_, &AccountTree::AccountChosen);
  ShowSome();
  tree_.Choose(4);
  tree_.topLevelItem(0)->setExpanded(false);
  ShowSome();
  EXPECT_EQ(tree_.currentItem()->text(0), "Visa");
  EXPECT_FALSE(tree_.topLevelItem(0)->isExpanded());
  EXPECT_TRUE(tree_.topLevelItem(1)->isExpanded());
  EXPECT_EQ(chosen.count(), 0) << "only the person's choice is told";
}

TEST_F(Tree, TellsWhichAccountIsChosenByKeyAndPassesTotalsOver) {
  ShowSome();
  tree_.Choose(2);
  QSignalSpy chosen(&tree_, &AccountTree::AccountChosen);
  tree_.show();
  for (int press = 0; press < 5; ++press) QTest::keyClick(&tree_, Qt::Key_Down);
  ASSERT_EQ(chosen.count(), 2);
  EXPECT_EQ(chosen.at(0).at(0).toLongLong(), 3);
  EXPECT_EQ(chosen.at(1).at(0).toLongLong(), 4);
}

}  // namespace
}  // namespace corvanta
