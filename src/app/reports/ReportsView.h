#pragma once

#include "app/MainView.h"
#include "app/ViewCommand.h"
#include "app/ViewHost.h"
#include "reports/query/ReportTable.h"

#include <QWidget>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

class QStackedWidget;
class QTabBar;

namespace corvanta::inline controls {
class EmptyState;
}

namespace corvanta::inline reports {
class ucReportChart;
struct ReadDefinition;
}  // namespace corvanta::inline reports

namespace corvanta::inline app {

class ListModel;
struct ListColumn;
class ListSearch;
class PlanCells;
class ReportBar;
class ReportList;
class TotalsLine;
class ViewHeader;

// The view of "LoadReport", "LoadReportSelected" and "LoadReportChart": the list of reports, the
// rows of the one that was chosen, and its chart, each behind a tab. A click on a row that stands
// for others looks into it; a figure says what it is made of.
class ReportsView : public QWidget, public MainView {
  Q_OBJECT

 public:
  ReportsView(const ViewPlace& place, QWidget* parent);
  ~ReportsView() override;

  [[nodiscard]] std::string_view Name() const override { return kReportShow; }
  [[nodiscard]] bool Answers(std::string_view command) const override;
  [[nodiscard]] QAction* Entry() const override;
  [[nodiscard]] QWidget* Widget() override { return this; }
  [[nodiscard]] QString Title() const override;
  [[nodiscard]] QAction* AddCommand() const override { return nullptr; }
  // Null while the list of reports or a chart is shown.
  [[nodiscard]] SortedTable* Table() const override {
    return page_ == Page::Rows ? table_ : nullptr;
  }
  [[nodiscard]] FilterStrip* Strip() const override { return strip_; }
  [[nodiscard]] SearchBox* Search() const override;
  [[nodiscard]] bool FollowsDialogs() const override {
    return page_ == Page::List || !request_.converts;
  }

  void Show(const ViewCommand& command) override;
  // The report, its days and ticks.
  void Remember(ViewCommand& command) const override;
  [[nodiscard]] ViewSurroundings Surroundings() const override;
  void Forget() override { isCurrent_ = false; }
  void LetGo() override;
  void ApplySettings() override { isCurrent_ = false; }
  // The days of the register, in force when those of the reports were.
  void Restore(const Registry& registry) override;
  void Keep(std::map<std::string, std::string>& values) const override;

  [[nodiscard]] bool Can(EditTask task) const override;
  void Do(EditTask task) override;
  void MarkCommands(bool isShown) override;
  [[nodiscard]] PrintTable Printed() const override;
  [[nodiscard]] SpreadsheetTable Sheet(const Locale& locale) const override;
  [[nodiscard]] ChosenTotals TotalsOfChosen() const override;

  [[nodiscard]] std::int64_t RowCount() const override;
  [[nodiscard]] std::set<std::int64_t> ShownOf(
      const std::vector<std::int64_t>& transactions) const override;
  bool ChooseKey(std::int64_t key) override;

 private:
  enum class Page { List, Rows, Chart };

  void Arrange();
  void MakeTable();
  void Connect();
  void ConnectCommands();

  // --- Showing

  void ShowPage(Page page);
  void ShowTabs();

  // --- Choices (ReportsViewChoices.cpp)

  void ShowChoices();
  void FillCurrencies();
  [[nodiscard]] QString PaymentNames() const;
  [[nodiscard]] QString Details() const;
  // On paper: which days and rows these are, and the rates they were converted at.
  [[nodiscard]] QString Subject() const;
  // What is shown, with the shared filter and ticks, as the beginning of another command.
  [[nodiscard]] ViewCommand Base() const;

  // --- Rows and columns (ReportsViewRows.cpp)

  // Works the report out, unless it stands there already.
  void Run(const ViewCommand& command);
  void Fill();
  void FillColumns();
  void FitToRows();
  void FitColumns(const std::vector<ListColumn>& columns);
  void ApplyColumns();
  // Puts the widths that were set by hand away, before another report takes the columns.
  void KeepWidths();
  [[nodiscard]] std::vector<std::string> ShownColumns() const;
  void PickColumns();
  void ShowTotals();

  // --- Saved reports (ReportsViewSaved.cpp)

  void FillSaved();
  void OpenCustom();
  void OpenSaved(const std::string& name);
  void Open(const ReadDefinition& read);
  void SaveReport();
  // False where the name is another report's, which the person keeps.
  [[nodiscard]] bool SaveUnder(const std::string& name);
  // What was chosen that a saved report has no place for.
  [[nodiscard]] QStringList NotSaved() const;

  // --- Figures (ReportsViewFigures.cpp)

  // The place among the report's rows; nullopt for none.
  [[nodiscard]] std::optional<std::size_t> RowAt(const QModelIndex& index) const;
  void LookInto(std::size_t row);
  // Whether looking into the row narrows what is shown.
  [[nodiscard]] bool LeadsOn(const ReportRow& row) const;
  // The row that the list or the chart is at.
  void LookIntoChosen();
  void ShowInRegister(std::int64_t transactionId);
  void ExplainChosen();
  void ExplainInChart();
  void Explain(std::size_t row, std::size_t column);
  // What the figures of these rows in that column are made of together; `name` is what they are of.
  void Explain(const std::vector<std::size_t>& rows, std::size_t column, const QString& name);

  // --- Commands (ReportsViewCommands.cpp)

  void RunReport(int number);
  // Opens the editor of the category that a row of a budget is of.
  void EditBudget(std::size_t row);

  ViewPlace place_;
  ViewHeader* header_;
  FilterStrip* strip_;
  ReportBar* bar_;
  QTabBar* tabs_;
  QStackedWidget* pages_;
  ReportList* list_;
  QStackedWidget* rowPages_;
  SortedTable* table_;
  EmptyState* empty_;
  TotalsLine* totals_;
  ListModel* model_;
  ListSearch* search_;
  ucReportChart* chart_;
  ReportState state_;
  ReportRequest request_;
  ReportTable report_;
  PlanCells* plans_;
  Page page_ = Page::List;
  // A plan is read again: the rates of what stands there still hold.
  bool keepsRates_ = false;
  bool isCurrent_ = false;  // what stands there is the report as it would be worked out now
  std::uint64_t readAt_ = 0;
  int filled_ = 0;                                   // the report whose columns the list has
  std::map<int, QString> widths_;                    // of each report's columns, set by hand
  std::map<int, std::vector<std::string>> columns_;  // that were picked of each report
  bool arePicked_ = false;                           // the columns, so that none of them leaves
  bool hasSavedWidths_ = false;                      // the list has those of a saved report
};

}  // namespace corvanta::inline app
