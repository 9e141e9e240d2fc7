#pragma once

#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/QtProgress.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "store/datafile/OpenDataFile.h"
#include "store/sql/Connection.h"
#include "support/TemporaryStore.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace corvanta {

// The main window on a data file of its own, shown where nobody sees it.
class WindowTest : public testing::Test {
 protected:
  // Begins with the view that was left, as who has switched the overview off.
  WindowTest() { machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "ShowOverview", "0"); }
  ~WindowTest() override {
    window_.reset();
    session_.Close();
  }

  [[nodiscard]] std::string DataFolder() const { return machine_.folder.Path("data"); }
  [[nodiscard]] std::string DataFilePath() const { return DataFolder() + "/Corvanta.dat"; }

  // Makes the data file, with the sample rows or without any, and opens it.
  void OpenData(bool empty = false) {
    PutDataFile(machine_, empty ? StoreContent::Default : StoreContent::Sample);
    ASSERT_TRUE(session_.Open(true));
  }
  // A data file with one account of 100 pounds.
  void OpenPurse() {
    OpenData(true);
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Purse',2,17,100,0)");
  }
  // A monthly payment of the first account; returns its key.
  std::int64_t AddRent(Date from, double amount, AddToAccount add) {
    clsCorvanta& ledger = session_.Ledger();
    ScheduleRecord record;
    record.accountId = 1;
    record.categoryId = 2;
    record.paymentId = ledger.References().FindOrCreatePayment("Bank");
    record.payeeId = ledger.References().FindOrCreatePayee("Landlord");
    for (const PeriodRecord& period : ledger.References().Periods()) {
      if (period.period == "m") record.periodId = period.periodId;
    }
    record.amount = amount;
    record.dateFrom = from;
    record.addToAccount = add;
    return ledger.Schedules().SaveSchedule(record);
  }
  void Run(const std::string& sql) { session_.Ledger().Store().Execute(sql); }

  FrmMain& ShowWindow() {
    window_ = std::make_unique<FrmMain>(session_, machine_.Get(), progress_);
    window_->Restore();
    window_->show();
    return *window_;
  }
  // The window gets the keys.
  void BringForward() {
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  }

  // The widget or action of that name, which must be there.
  template <typename Widget>
  Widget& Find(const char* name) {
    auto* found = window_->findChild<Widget*>(QLatin1String(name));
    if (found == nullptr) throw std::runtime_error(std::string("no ") + name);
    return *found;
  }
  void Trigger(const char* action) { Find<QAction>(action).trigger(); }

  [[nodiscard]] std::string Setting(std::string_view name) const {
    return machine_.registry.Read(Hive::CurrentUser, kSettingsKey, name).value_or("(none)");
  }

  TestPlatform machine_;
  QtProgress progress_;
  DataFileOpener opener_{machine_.Get(), "a test"};
  LedgerSession session_{opener_, machine_.Get(), std::string()};
  std::unique_ptr<FrmMain> window_;
};

}  // namespace corvanta
