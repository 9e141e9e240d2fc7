#pragma once

#include "app/lists/ListView.h"

namespace corvanta::inline invest {
struct InvestPlace;
struct InvestResult;
}  // namespace corvanta::inline invest

namespace corvanta::inline app {

// The view of "InvestmentShow": what can be held, with its latest price.
class InvestmentsView : public ListView {
  Q_OBJECT

 public:
  InvestmentsView(const ViewPlace& place, QWidget* parent);

  void Show(const ViewCommand& command) override;
  // Prices with another number of decimals want another width.
  void ApplySettings() override;

 protected:
  void Add() override { Edit(0); }
  void Edit(std::int64_t key) override;
  void Delete(std::int64_t key) override;

 private:
  void ShowHistory();
  void Apply(const InvestResult& result);
};

// Where the dialogs of investments stand, and what they tell of changes.
[[nodiscard]] InvestPlace InvestHere(const ViewPlace& place);

}  // namespace corvanta::inline app
