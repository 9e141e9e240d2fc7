#pragma once

#include "app/ViewHost.h"
#include "app/filter/FilterStrip.h"
#include "ledger/register/RowFilter.h"

#include <QObject>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline app {

class FilterPanel;
class MainView;

// The filters of the window: their buttons, menu entries and dialogs, and the words that say what
// is filtered. The filter itself is a part of what is shown.
class FilterCommands : public QObject {
  Q_OBJECT

 public:
  // Of the views that have a strip for it.
  FilterCommands(const ViewPlace& place, const std::vector<MainView*>& views, QWidget* parent);

  // The filter without what the data file has no more. Throws StoreError.
  [[nodiscard]] RowFilter Existing(const RowFilter& filter);
  // Says what the command that is shown filters, in all views. Throws StoreError.
  void Mark();

 private:
  void Connect(FilterStrip& strip);
  // The ticks of the View menu, below their piece.
  void ShowStatuses(const FilterStrip& strip);
  // Opens the dialog of that filter.
  void Choose(FilterPiece piece);
  void ChooseItems(FilterKind kind);
  void ChooseText();
  void Remove(FilterPiece piece);
  void Clear();
  void ShowAllStatuses();
  void Apply(const RowFilter& filter);
  [[nodiscard]] QString StatusText() const;

  ViewPlace place_;
  std::vector<FilterStrip*> strips_;
  FilterPanel* panel_;
  // Of the filter that was looked up last, and how the data stood then.
  RowFilter known_;
  std::uint64_t knownAt_ = 0;
  std::array<std::vector<std::string>, kFilterKinds.size()> names_;
};

}  // namespace corvanta::inline app
