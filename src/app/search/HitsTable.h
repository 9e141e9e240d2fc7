#pragma once

#include "app/lists/ChosenTotals.h"
#include "controls/ListTable.h"
#include "ledger/search/TransactionSearch.h"

#include <memory>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

class HitsModel;

// The list of what was found in all accounts, in the place of a register.
class HitsTable : public ListTable {
  Q_OBJECT

 public:
  HitsTable(const Locale& locale, QWidget* parent);

  // As HitsModel::SetHits; the row stays chosen that was, or else the newest is.
  void SetHits(std::shared_ptr<const SearchIndex> index, std::vector<SearchHit> hits);
  [[nodiscard]] const HitsModel& Hits() const { return *model_; }
  // What the chosen hits come to.
  [[nodiscard]] ChosenTotals Totals() const;
  // The hit that has the focus; null without one.
  [[nodiscard]] const SearchHit* Chosen() const;

 protected:
  // Copies the chosen rows as text.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  HitsModel* model_;
};

}  // namespace corvanta::inline app
