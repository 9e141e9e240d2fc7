#pragma once

#include "app/MainView.h"
#include "app/ViewCommand.h"
#include "app/ViewHost.h"
#include "app/overview/OverviewTile.h"
#include "reports/overview/Overview.h"

#include <QWidget>

#include <memory>

class QCheckBox;
class QHBoxLayout;
class QTimer;

namespace corvanta::inline app {

class ViewHeader;

// Whether the program begins with the overview. As long as the person has not said otherwise it
// does.
[[nodiscard]] bool BeginsWithOverview(const Registry& registry);

// The view of "OverviewShow": how things stand at a glance. Each part leads to the view or the
// report that says more.
class OverviewView : public QWidget, public MainView {
  Q_OBJECT

 public:
  OverviewView(const ViewPlace& place, QWidget* parent);

  [[nodiscard]] std::string_view Name() const override { return kOverviewShow; }
  [[nodiscard]] QAction* Entry() const override;
  [[nodiscard]] QWidget* Widget() override { return this; }
  [[nodiscard]] QString Title() const override { return tr("Overview"); }
  [[nodiscard]] QAction* AddCommand() const override;
  [[nodiscard]] SortedTable* Table() const override { return nullptr; }

  void Show(const ViewCommand& command) override;
  void LetGo() override;
  void Restore(const Registry& registry) override;
  void Keep(std::map<std::string, std::string>& values) const override;

  [[nodiscard]] bool Can(EditTask /*task*/) const override { return false; }
  void Do(EditTask /*task*/) override {}
  void MarkCommands(bool /*isShown*/) override {}
  [[nodiscard]] PrintTable Printed() const override;

  [[nodiscard]] std::int64_t RowCount() const override { return 0; }
  [[nodiscard]] std::set<std::int64_t> ShownOf(
      const std::vector<std::int64_t>& /*transactions*/) const override {
    return {};
  }
  bool ChooseKey(std::int64_t /*key*/) override { return false; }

 Q_SIGNALS:
  // All parts are of the data that were asked for last.
  void ReadWhole();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  using Line = OverviewTile::Line;

  void Connect();
  // Shows another piece of what is not read yet, so that nothing waits for all of it.
  void ReadOn();
  // What is read by now.
  [[nodiscard]] const Overview& Now() const;
  void ArrangeTiles(int columns);

  // --- What the tiles say (OverviewViewLines.cpp)

  [[nodiscard]] std::vector<Line> BalanceLines() const;
  [[nodiscard]] std::vector<Line> DueLines() const;
  [[nodiscard]] std::vector<Line> MonthLines() const;
  [[nodiscard]] std::vector<Line> BudgetLines() const;
  [[nodiscard]] std::vector<Line> WorthLines() const;
  [[nodiscard]] OverviewTile::Cell Money(double amount, bool isStrong = false) const;

  // A report of these days; nullopt: of all.
  void ShowReport(int number, const std::optional<Period>& days);

  ViewPlace place_;
  ViewHeader* header_;
  QWidget* page_;
  QHBoxLayout* columns_;
  int columnCount_ = 0;
  OverviewTile* balances_;
  OverviewTile* due_;
  OverviewTile* month_;
  OverviewTile* budget_;
  OverviewTile* worth_;
  QCheckBox* chkOverview_;
  QTimer* rest_;
  std::unique_ptr<OverviewReader> reader_;
  bool hasFailed_ = false;
};

}  // namespace corvanta::inline app
