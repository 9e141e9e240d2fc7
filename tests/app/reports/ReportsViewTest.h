#pragma once

#include "app/WindowTest.h"
#include "controls/SortedTable.h"
#include "support/DialogTest.h"

#include <QTabBar>

#include <functional>
#include <string>
#include <vector>

namespace corvanta {

// The main window with a data file whose figures the tests of the reports know.
class ReportsViewTest : public DialogTest<WindowTest> {
 protected:
  // Two accounts of pounds, a baker who is paid and a boss who pays.
  void Start() {
    OpenPurse();
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Bank',2,17,1000,0)");
    Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (500,'Baker',0)");
    Run("INSERT INTO tblPayees (PayeeID,Payee,Investment) VALUES (501,'Boss',0)");
    Add(1, 2, 500, "#01/05/2026#,-20");
    Add(1, 2, 500, "#02/05/2026#,-9");
    Add(2, 1, 501, "#02/20/2026#,100");
    ShowWindow();
    window_->resize(1400, 900);
    BringForward();
  }
  void Add(int account, int category, int payee, const std::string& values) {
    Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,"
        "TransferID,[Date],[Amount],BankChk,BankRec) VALUES (" +
        std::to_string(account) + "," + std::to_string(category) + ",1," + std::to_string(payee) +
        ",0,0," + values + ",0,0)");
  }
  template <typename Widget>
  Widget& Get(const char* name) {
    return WindowTest::Find<Widget>(name);
  }
  SortedTable& List() { return Get<SortedTable>("lvReportSelect"); }
  QTabBar& Tabs() { return Get<QTabBar>("tbReport"); }
  int Rows() { return List().model()->rowCount(); }
  std::string Cell(int row, const char* head) {
    const QAbstractItemModel& model = *List().model();
    for (int column = 0; column < model.columnCount(); ++column) {
      if (model.headerData(column, Qt::Horizontal).toString() != QLatin1String(head)) continue;
      return model.index(row, column).data().toString().toStdString();
    }
    return "no such column";
  }
  std::string Shown() { return Tabs().count() > 1 ? Tabs().tabText(1).toStdString() : "none"; }
  // What the click leads to comes once the list is done with it.
  void ClickRow(int row, int column = 0, Qt::KeyboardModifiers held = {},
                const std::function<void(QDialog&)>& inDialog = {}) {
    const QRect cell = List().visualRect(List().model()->index(row, column));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, held, cell.center());
    if (inDialog) InNextDialog(inDialog);
    QApplication::processEvents();
  }
  // Of the columns that are shown.
  std::vector<std::string> Headings() {
    std::vector<std::string> shown;
    for (int column = 0; column < List().model()->columnCount(); ++column) {
      if (List().isColumnHidden(column)) continue;
      shown.push_back(List().model()->headerData(column, Qt::Horizontal).toString().toStdString());
    }
    return shown;
  }
};

}  // namespace corvanta
