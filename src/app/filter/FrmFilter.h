#pragma once

#include "controls/FormDialog.h"
#include "ledger/register/FilterChoice.h"

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace corvanta::inline app {

// The items of one kind with a tick each, of which the chosen ones are shown: "ACCOUNT",
// "CATEGORY", "PAYEE", "INVESTMENT" or "KEYWORD". What is typed above the list keeps it to the
// items with those letters.
class FrmFilter : public FormDialog {
  Q_OBJECT

 public:
  // `choice` says what is ticked, at first and, once the dialog was accepted, afterwards.
  FrmFilter(FilterChoice& choice, Prompts& prompts, QWidget* parent);

  // The ticked identifiers joined by ","; empty where all rows are to be shown.
  [[nodiscard]] std::string List() const { return choice_.List(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] QWidget* MakeList();
  void MakeButtons();
  void Fill();
  QTreeWidgetItem* AddItem(QTreeWidgetItem* above, const QString& text, int group, int item);
  void ApplyTick(QTreeWidgetItem* item);
  // Shows the ticks as they are chosen.
  void ShowTicks();
  void ShowTicksOf(int group);
  void ShowCount();
  // Keeps the list to what is typed.
  void Search();
  // Ticks what the list shows.
  void TickShown();
  // The first of the groups that the list shows; null for none.
  [[nodiscard]] QTreeWidgetItem* FirstShown() const;
  // What the search means in that group.
  [[nodiscard]] QTreeWidgetItem* FirstFound(QTreeWidgetItem* whole) const;

  FilterChoice& choice_;
  QLineEdit* txtFind_;
  QTreeWidget* lvFilter_;
  QLabel* lblChosen_;
};

}  // namespace corvanta::inline app
