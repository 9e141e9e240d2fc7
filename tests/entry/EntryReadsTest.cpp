#include "entry/EntryTest.h"
#include "entry/ScheduleEditor.h"
#include "entry/TransactionEditor.h"
#include "support/StatementLog.h"

namespace corvanta {
namespace {

// It stands before the data file is opened.
struct Logged {
  StatementLog log_;
};

class EntryReads : protected Logged, public EntryTest {
 protected:
  // How often the row of that key was read with the names of what it points to.
  [[nodiscard]] std::size_t WholeReads(const std::string& column, std::int64_t key) const {
    return log_.With({"SELECT", "LineParent", Is(column, key)}).size();
  }
  // How often anything of it was read.
  [[nodiscard]] std::size_t Reads(const std::string& column, std::int64_t key) const {
    return log_.With({"SELECT", Is(column, key)}).size();
  }
  // Opens, changes, checks and saves it.
  template <typename Form, typename Editor>
  Form Edit(Editor& editor, std::int64_t key) {
    log_.Clear();
    if constexpr (requires { editor.CheckOpen(key); }) {
      EXPECT_FALSE(editor.CheckOpen(key));
    }
    Form form = editor.Load(key).value_or(Form());
    form.amount = form.amount.value_or(0) + 1;
    EXPECT_FALSE(editor.Check(form));
    EXPECT_EQ(editor.Save(form), key);
    return form;
  }

  TransactionEditor transactions_{ledger_, Services(), rates_};
  ScheduleEditor schedules_{ledger_, Services()};

 private:
  static std::string Is(const std::string& column, std::int64_t key) {
    return column + "\" = " + std::to_string(key);
  }
};

TEST_F(EntryReads, AnEditReadsItsRowOnce) {
  const std::int64_t key = AddRow(bank_, -30);
  auto form = Edit<TransactionForm>(transactions_, key);
  EXPECT_EQ(WholeReads("TransactionID", key), 1U);
  EXPECT_LE(Reads("TransactionID", key), 4U) << "the ledger looks at its links, and writes it";

  TransactionEditor::ChooseType(form, EntryType::Transfer);
  form.accountToId = cash_;
  ASSERT_EQ(transactions_.Save(form), key);
  Edit<TransactionForm>(transactions_, key);
  EXPECT_EQ(WholeReads("TransactionID", key), 1U);
  EXPECT_EQ(WholeReads("TransactionID", Row(key).transferId), 1U);

  const std::int64_t schedule = AddSchedule(-30);
  Edit<ScheduleForm>(schedules_, schedule);
  EXPECT_LE(WholeReads("ScheduleID", schedule), 3U) << "the ledger compares former and new plan";
}

TEST_F(EntryReads, WhatChangedMeanwhileIsNotWrittenOver) {
  const std::int64_t key = AddRow(bank_, -30);
  const std::int64_t schedule = AddSchedule(-30);
  TransactionForm form = *transactions_.Load(key);
  ScheduleForm plan = *schedules_.Load(schedule);
  const auto post = [&](std::int64_t scheduleId) {
    auto row = Row(key);
    row.scheduleId = scheduleId;
    row.scheduleDate = Today();
    ledger_.Transactions().SaveTransaction(row);
  };
  post(schedule);
  form.description = "edited before it was posted";
  transactions_.Save(form);
  EXPECT_EQ(Row(key).scheduleId, schedule);

  // Before it is committed, too.
  const std::int64_t other = AddSchedule(-30);
  Transaction all = store_.Db().Begin();
  ASSERT_FALSE(transactions_.Check(form));
  post(other);
  transactions_.Save(form);
  all.Commit();
  EXPECT_EQ(Row(key).scheduleId, other);

  ledger_.Schedules().DeleteSchedule(schedule, false);
  EXPECT_EQ(schedules_.Check(plan)->text, "This Item does not exist any more");
}

}  // namespace
}  // namespace corvanta
