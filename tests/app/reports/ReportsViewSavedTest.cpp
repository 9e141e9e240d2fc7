#include "app/reports/ReportsViewTest.h"
#include "platform/SettingsTable.h"
#include "reports/custom/ReportDefinitions.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QListWidget>
#include <QStatusBar>
#include <QTreeWidget>

namespace corvanta {
namespace {

TEST_F(ReportsViewTest, AReportIsSavedWithAllThatWasChosenAndOpenedAgain) {
  Start();
  Trigger("mnuReport7");
  InNextDialog([](QDialog& dialog) {
    ASSERT_EQ(dialog.objectName(), "FrmColumns");
    Click(dialog, "cmdDSelect");
    auto& list = Find<QListWidget>(dialog, "lvColumns");
    for (const char* name : {"Payee", "Total"}) {
      list.findItems(QLatin1String(name), Qt::MatchExactly).front()->setCheckState(Qt::Checked);
    }
    Click(dialog, "cmdAccept");
  });
  Trigger("mnuReportColumns");
  EXPECT_EQ(Headings(), (std::vector<std::string>{"Payee", "Total"}));
  ClickRow(0);
  Trigger("mnuViewBack");
  EXPECT_EQ(Headings(), (std::vector<std::string>{"Payee", "Total"}));
  ViewCommand filtered = window_->Shown();
  filtered.rows.SetKeys(FilterKind::Payee, {500});
  window_->Show(filtered);
  machine_.prompts.ExpectText("Save Custom Report", "Name of the report:", " Bread ");
  Trigger("mnuReportSave");
  const auto read = ReportDefinitions(machine_.registry).Find("Bread");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->definition.report, 7);
  EXPECT_EQ(read->definition.columns, (std::vector<std::string>{"Payee", "Total"}));
  EXPECT_EQ(read->definition.widths.size(), 2U);
  EXPECT_FALSE(read->definition.range);
  Trigger("mnuFilterNone");
  Trigger("mnuReport1");
  EXPECT_EQ(Headings().size(), 5U);
  machine_.registry.Write(Hive::CurrentUser, std::string(kReportsKey) + "\\Item1", "Widths",
                          "333,111");
  InNextDialog([](QDialog& dialog) {
    ASSERT_EQ(dialog.objectName(), "FrmReport");
    Click(dialog, "cmdAccept");
  });
  Trigger("mnuReportCustom");
  EXPECT_EQ(Shown(), "Spending by Payee");
  EXPECT_EQ(Headings(), (std::vector<std::string>{"Payee", "Total"}));
  EXPECT_EQ(List().columnWidth(4), 111) << "as the report has it; names take what is left";
  EXPECT_EQ(Get<QLabel>("lblPayeeFilter").text(), "Baker");
  EXPECT_EQ(Cell(0, "Payee"), "Baker");
  EXPECT_EQ(Rows(), 2);
  // It stands in the list of reports, too.
  auto& list = Get<QTreeWidget>("tvReports");
  EXPECT_EQ(list.topLevelItem(1)->child(0)->text(0), "Bread");
}

TEST_F(ReportsViewTest, ASavedReportOfWhatIsGoneSaysSoAndShowsNoOtherRows) {
  Start();
  ReportDefinition gone;
  gone.name = "Gone";
  gone.report = 7;
  gone.filter.SetKeys(FilterKind::Account, {77});
  ReportDefinitions(machine_.registry).Save(gone);
  InNextDialog([](QDialog& dialog) { Click(dialog, "cmdAccept"); });
  machine_.prompts.ExpectTell("Open Custom Report", ScriptedPrompts::kAnyText);
  Trigger("mnuReportCustom");
  EXPECT_EQ(Shown(), "Spending by Payee");
  EXPECT_EQ(Rows(), 0);
  Trigger("mnuViewRefresh");
  EXPECT_EQ(Rows(), 0);
  EXPECT_EQ(ReportDefinitions(machine_.registry).Find("Gone")->definition, gone);
  machine_.prompts.ExpectText("Save Custom Report", "Name of the report:", "Still");
  Trigger("mnuReportSave");
  EXPECT_TRUE(ReportDefinitions(machine_.registry)
                  .Find("Still")
                  ->definition.filter.IsSet(FilterKind::Account))
      << "or it would be of all";
  Trigger("mnuReport7");
  EXPECT_EQ(Rows(), 3) << "the report itself is of all";
}

TEST_F(ReportsViewTest, ANameThatCannotBeTakenIsNotLost) {
  Start();
  Trigger("mnuReport7");
  const auto expectName = [this](std::optional<std::string> name) {
    machine_.prompts.ExpectText("Save Custom Report", "Name of the report:", std::move(name));
  };
  expectName("Mine");
  Trigger("mnuReportSave");
  Trigger("mnuReport5");
  const std::string tooLong(101, 'x');
  expectName(tooLong);
  machine_.prompts.ExpectTell("Save Warning", ScriptedPrompts::kAnyText);
  expectName("mine");
  machine_.prompts.ExpectAsk("Save Custom Report", ScriptedPrompts::kAnyText, false);
  expectName(std::nullopt);
  Trigger("mnuReportSave");
  std::vector<std::string> stood;
  for (const auto& shown : machine_.prompts.Shown()) {
    if (shown.kind == ScriptedPrompts::Kind::AskText) stood.push_back(shown.typed);
  }
  EXPECT_EQ(stood, (std::vector<std::string>{"", "", tooLong, "mine"}));
  EXPECT_EQ(ReportDefinitions(machine_.registry).Find("Mine")->definition.report, 7);
}

TEST_F(ReportsViewTest, ASavedReportBringsItsOtherChoicesAndNoneOfAnotherOne) {
  Start();
  ViewCommand compared{kReportSelected};
  compared.report.report = 13;
  compared.report.dates = DateRange{*Date::FromIso("2026-02-01"), *Date::FromIso("2026-02-28")};
  window_->Show(compared);
  machine_.prompts.ExpectText("Save Custom Report", "Name of the report:", "Plain");
  Trigger("mnuReportSave");
  EXPECT_EQ(window_->statusBar()->currentMessage(), "Saved as \"Plain\"");
  compared.report.otherDates =
      DateRange{*Date::FromIso("2026-01-10"), *Date::FromIso("2026-01-20")};
  compared.report.withoutTransfers = true;
  window_->Show(compared);
  machine_.prompts.ExpectText("Save Custom Report", "Name of the report:", "Rich");
  Trigger("mnuReportSave");
  EXPECT_EQ(window_->statusBar()->currentMessage(), "Saved as \"Rich\"");
  // What is opened is compared with the days before its own, not with those of another one.
  InNextDialog([](QDialog& dialog) { Click(dialog, "cmdAccept"); });
  Trigger("mnuReportCustom");
  EXPECT_EQ(window_->Shown().report.definition, "Plain");
  EXPECT_FALSE(window_->Shown().report.otherDates);
  EXPECT_EQ(Get<QDateEdit>("DTPickSOther").date(), QDate(2026, 1, 4));
  EXPECT_FALSE(Get<QCheckBox>("chkTransfers").isChecked());
  InNextDialog([](QDialog& dialog) {
    QTest::keyClick(&Find<QWidget>(dialog, "lvReports"), Qt::Key_Down);
    Click(dialog, "cmdAccept");
  });
  Trigger("mnuReportCustom");
  EXPECT_EQ(window_->Shown().report.definition, "Rich");
  EXPECT_EQ(window_->Shown().report.otherDates, compared.report.otherDates);
  EXPECT_TRUE(Get<QCheckBox>("chkTransfers").isChecked());
}

TEST_F(ReportsViewTest, WhatASavedReportDoesNotKeepIsSaid) {
  Start();
  ViewCommand expected{kReportSelected};
  expected.report.report = 15;
  expected.report.whatIf = {{*Date::FromIso("2026-12-24"), 1, -11}};
  window_->Show(expected);
  machine_.prompts.ExpectText("Save Custom Report", "Name of the report:", "Future");
  Trigger("mnuReportSave");
  EXPECT_EQ(window_->statusBar()->currentMessage(),
            "Saved as \"Future\". A saved report does not keep: What If");
}

}  // namespace
}  // namespace corvanta
