#pragma once

#include "app/investments/KeptRates.h"
#include "app/lists/ListView.h"
#include "invest/holdings/Holdings.h"

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

class HoldingsBar;
class HoldingsCharts;

// The view of "HoldingShow": what is held of each investment and what it has earned, with a chart
// of its prices and one of its worth.
class HoldingsView : public ListView {
  Q_OBJECT

 public:
  HoldingsView(const ViewPlace& place, QWidget* parent);

  void Show(const ViewCommand& command) override;
  // The days of the returns.
  void Remember(ViewCommand& command) const override;
  void LetGo() override;
  // The days of its returns begin as those of the register, in force when they were.
  void Restore(const Registry& registry) override;
  void Keep(std::map<std::string, std::string>& values) const override;
  void MarkCommands(bool isShown) override;
  [[nodiscard]] std::int64_t ChosenAccount() const override;

 protected:
  // Another transaction of the chosen holding, or of any.
  void Add() override;
  // The investment.
  void Edit(std::int64_t key) override;
  void Delete(std::int64_t /*key*/) override {}
  void Open(std::int64_t key) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FillBar();
  [[nodiscard]] QStringList Figures();
  void ShowCharts();
  void FetchRates();
  void ActOnShares();
  // What that row shows; null when there is none. The list holds it until it is read anew.
  [[nodiscard]] const Holding* Find(std::int64_t key) const;

  const Locale& locale_;
  HoldingsBar* bar_;
  HoldingsCharts* charts_;
  HoldingsList list_;
  Period period_;
  KeptRates rates_;
};

}  // namespace corvanta::inline app
