#include "reports/custom/DefinitionRequest.h"
#include "reports/custom/ReportColumns.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportTable.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

using Names = std::vector<std::string>;

TEST(DefinitionRequests, KeepWhatASavedReportHolds) {
  TemporaryStore store;
  ReportRequest request;
  request.report = 5;
  request.filter.SetKeys(FilterKind::Account, {1});
  request.filter.SetSearch({"food"});
  request.actions = {"Buy"};
  request.paymentTypes = {2};
  request.withoutTransfers = true;
  request.foldsSubCategories = true;
  request.range = Period{*Date::FromIso("2026-01-01"), *Date::FromIso("2026-12-31")};
  request.currency = "GBP";
  const ReportDefinition plain = MakeDefinition(" Mine ", request, {"Total"}, store.Db());
  EXPECT_EQ(plain.name, "Mine");
  EXPECT_EQ(plain.columns, Names{"Total"});
  EXPECT_EQ(plain.widths, std::vector<int>{0});
  EXPECT_EQ(plain.currency, "") << "it does not convert";
  request.converts = true;
  const ReportDefinition saved = MakeDefinition("Mine", request, {}, store.Db());
  EXPECT_EQ(saved.columns, (Names{"Category", "Currency", "Expense", "Income", "Records",
                                  "Sub Category", "Total"}));
  EXPECT_EQ(MakeRequest({saved, {}, {}}), request) << "and comes back as it was";
}

TEST(DefinitionRequests, KeepThePickedColumnsAlone) {
  TemporaryStore store;
  ReportRequest request;
  request.report = kBudgetOfMonth;
  const Names picked = {"Category", "Plan"};
  EXPECT_EQ(MakeDefinition("Plans", request, picked, store.Db()).columns, picked);
}

TEST(DefinitionRequests, OfWhatIsGoneHaveNoRows) {
  ReportDefinition saved;
  saved.report = 7;
  const ReportRequest request = MakeRequest({saved, {FilterKind::Payee}, {}});
  EXPECT_EQ(request.filter.List(FilterKind::Payee), "-1");
  EXPECT_FALSE(request.filter.IsSet(FilterKind::Account));
}

TEST(ReportColumns, ShowThePickedOnesAndThoseThatCannotBePicked) {
  const Names budget = {"Category", "Plan", "Actual", "Left", "Currency"};
  EXPECT_EQ(ShownColumns(budget, {"Currency", "Actual", "Payee"}),
            (Names{"Actual", "Currency", "Plan", "Left"}));
  EXPECT_EQ(ShownColumns(budget, {"Payee"}),
            (Names{"Actual", "Category", "Currency", "Plan", "Left"}));
  EXPECT_EQ(ShownColumns(budget, {"Category", "Plan"}), (Names{"Category", "Plan"}));
}

TEST(ReportColumns, NarrowAReport) {
  ReportTable report;
  report.columns = {{"Payee"}, {"Income"}, {"Total"}};
  report.rows = {{ReportRowKind::Group, "1", {}, 0, "EUR", {"Baker", 1.0, 2.0}}};
  const ReportTable narrow = OnlyColumns(report, {"Total", "Payee", "Date"});
  ASSERT_EQ(narrow.columns.size(), 2U);
  EXPECT_EQ(narrow.columns[1].header, "Total");
  EXPECT_EQ(narrow.rows[0].cells[1].Double(), 2);
  EXPECT_EQ(narrow.rows[0].groupKey, "1");
  EXPECT_EQ(OnlyColumns(report, {"Date"}).columns.size(), 3U) << "none of them is its own";
}

}  // namespace
}  // namespace corvanta
