// Every cell of every report, over random filters, against a calculation of its own: plain loops
// over the rows, without the engine.
#include "ledger/LedgerTest.h"
#include "platform/TextCase.h"
#include "reports/query/DrillDown.h"
#include "reports/query/Explain.h"
#include "reports/query/PlainLedger.h"
#include "reports/query/PlainReports.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportRunner.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace corvanta {
namespace {

std::vector<Cells> WorkOut(const PlainRows& plain) {
  switch (plain.Request().report) {
    case 1:
      return PlainAccountSummary(plain);
    case 2:
      return PlainCashFlow(plain);
    case 3:
      return PlainTransactions(plain);
    case 4:
      return PlainBudget(plain);
    case 5:
    case 7:
    case 9:
      return PlainSpending(plain);
    case 6:
    case 8:
      return PlainMonthly(plain);
    case 10:
      return PlainGains(plain);
    case 11:
      return PlainTrades(plain);
    case 12:
      return PlainNetWorth(plain);
    case 13:
      return PlainComparison(plain);
    case 14:
      return PlainBudgetOfMonth(plain);
    case 15:
      return PlainForecast(plain);
    default:
      throw std::logic_error("a report that nobody has worked out");
  }
}

class ReportProof : public LedgerTest {
 protected:
  ReportTable Run(const ReportRequest& request) {
    return RunReport(Ledger(), request, rates_, machine_.Get());
  }
  static bool IsFigure(const Value& value) { return value.IsInteger() || value.IsDouble(); }
  static std::string TextOf(const Cells& cells) {
    std::string text;
    for (const Value& cell : cells) text += cell.Text() + "|";
    return text;
  }
  // The texts first, so that a figure's last digit does not decide where a row stands.
  static bool IsBefore(const Cells& first, const Cells& second) {
    std::string texts[2];
    for (std::size_t i = 0; i < first.size(); ++i) {
      if (!IsFigure(first[i])) texts[0] += first[i].Text() + "|";
      if (!IsFigure(second[i])) texts[1] += second[i].Text() + "|";
    }
    if (texts[0] != texts[1]) return texts[0] < texts[1];
    for (std::size_t i = 0; i < first.size(); ++i) {
      if (!IsFigure(first[i])) continue;
      const double apart = first[i].Double() - second[i].Double();
      if (std::abs(apart) > kNear) return apart < 0;
    }
    return false;
  }
  static bool AreEqual(const Cells& first, const Cells& second) {
    return std::ranges::equal(first, second, [](const Value& one, const Value& other) {
      if (!IsFigure(one) || !IsFigure(other)) return one.Text() == other.Text();
      return std::abs(one.Double() - other.Double()) < kNear;
    });
  }
  static std::string Told(const ReportRequest& request) {
    return "report " + std::to_string(request.report) + " " + request.filter.Tables() +
           request.filter.Clause() +
           (request.range ? " " + request.range->from.ToIso() + " " + request.range->to.ToIso()
                          : "") +
           (request.converts ? " converted" : "") + (request.foldsSubCategories ? " folded" : "") +
           (request.withoutTransfers ? " without transfers" : "") +
           (request.withClosedAccounts ? " closed" : "") + (request.isOfFewDays ? " by day" : "");
  }
  // Rows by name, and by category below each other, are in the order of the alphabet.
  static void CheckOrder(const ReportTable& table) {
    if (table.report < 5 || table.report > 9) return;
    const bool isDivided = table.report < 7;
    for (std::size_t i = 1; i < table.rows.size(); ++i) {
      const Cells& first = table.rows[i - 1].cells;
      const Cells& second = table.rows[i].cells;
      if (table.rows[i].kind == ReportRowKind::Total) return;
      int order = CompareFolded(first[0].Text(), second[0].Text());
      if (order == 0 && isDivided) order = CompareFolded(first[1].Text(), second[1].Text());
      EXPECT_LE(order, 0) << first[0].Text() << " stands before " << second[0].Text();
    }
  }
  // Row by row; where the order of rows is not the report's own, in any order.
  static void Compare(const ReportTable& table, std::vector<Cells> expected) {
    std::vector<Cells> rows;
    for (const ReportRow& row : table.rows) rows.push_back(row.cells);
    if ((table.report >= 5 && table.report <= 9) || table.report > kStandardReports) {
      std::ranges::sort(rows, IsBefore);
      std::ranges::sort(expected, IsBefore);
    }
    CheckOrder(table);
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      EXPECT_TRUE(AreEqual(rows[i], expected[i]))
          << "row " << i << " is " << TextOf(rows[i]) << " and not " << TextOf(expected[i]);
    }
  }

  static constexpr double kNear = 1e-4;
  PlainRates rates_;
};

TEST_F(ReportProof, EveryCellIsWhatTheRowsComeTo) {
  rates_.rates = {{"USD", 0.875}, {"GBP", 1.15625}};
  std::mt19937 random(14);
  const PlainLedger plain = RandomLedger(random, 160);
  WriteLedger(plain, Store());
  for (int round = 0; round < 30; ++round) {
    for (const ReportInfo& info : ReportCatalogue()) {
      ReportRequest request = RandomRequest(random, plain, info.number);
      request.isOfFewDays = round % 2 == 1;
      const ReportTable table = Run(request);
      SCOPED_TRACE(Told(request));
      Compare(table, WorkOut({plain, request, rates_, machine_.clock.Today()}));
      if (HasFailure()) return;
    }
  }
}

TEST_F(ReportProof, EveryFigureIsTheSumOfWhatItIsExplainedBy) {
  rates_.rates = {{"USD", 0.875}, {"GBP", 1.15625}};
  std::mt19937 random(41);
  const PlainLedger plain = RandomLedger(random, 60);
  WriteLedger(plain, Store());
  for (int round = 0; round < 4; ++round) {
    for (const ReportInfo& info : ReportCatalogue()) {
      const ReportRequest request = RandomRequest(random, plain, info.number);
      const ReportTable table = Run(request);
      SCOPED_TRACE(Told(request));
      // All of the last rows, where the totals are, and some of the others.
      for (std::size_t row = 0; row < table.rows.size(); ++row) {
        if (row % 5 != 0 && row + 4 < table.rows.size()) continue;
        for (std::size_t column = 0; column < table.columns.size(); ++column) {
          const Value& cell = table.rows[row].cells[column];
          double sum = 0;
          const auto rows = Explain(Ledger(), request, table, row, column, machine_.Get());
          for (const ExplainedRow& each : rows) {
            EXPECT_NEAR(each.contribution, each.amount * each.rate * each.sign, 1e-9);
            sum += each.contribution;
          }
          if (!table.columns[column].HoldsNumbers()) {
            EXPECT_TRUE(rows.empty()) << table.columns[column].header;
          } else {
            EXPECT_NEAR(sum, cell.Double(), 1e-3) << row << " " << table.columns[column].header;
          }
        }
      }
      if (HasFailure()) return;
    }
  }
}

TEST_F(ReportProof, LookingIntoARowShowsTheRowsThatItIsMadeOf) {
  std::mt19937 random(7);
  WriteLedger(RandomLedger(random, 120), Store());
  for (const int report : {1, 2, 5, 6, 13, 14}) {
    ReportRequest request;
    request.report = report;
    request.foldsSubCategories = report == 6;
    const ReportTable table = Run(request);
    for (const ReportRow& row : table.rows) {
      ReportRequest of = request;
      if (!table.periods.empty()) of.range = table.periods.front();
      const std::optional<DrillStep> step = DrillDown(Ledger(), of, row);
      ASSERT_EQ(step.has_value(), row.kind == ReportRowKind::Group);
      if (!step) continue;
      EXPECT_EQ(step->request.report, 3);
      const ReportTable inside = Run(step->request);
      double sum = 0;
      for (const ReportRow& each : inside.rows) {
        if (each.kind == ReportRowKind::Total || each.currency != row.currency) continue;
        sum += each.cells[7].Double() + each.cells[8].Double();
      }
      const auto figureOf = [&](const char* header) {
        const auto column = table.Column(header);
        return column ? row.cells[*column].Double() : 0;
      };
      const double figure = report == 6    ? figureOf("Total")
                            : report == 13 ? figureOf("This Period")
                            : report == 14 ? figureOf("Actual")
                                           : figureOf("Income") + figureOf("Expense");
      EXPECT_NEAR(sum, figure, 1e-4) << report << " " << row.cells.front().Text();
    }
  }
}

}  // namespace
}  // namespace corvanta
