#pragma once

#include "app/search/Palette.h"
#include "controls/QuietEnd.h"

#include <QDialog>

#include <optional>
#include <vector>

class QLineEdit;
class QStandardItemModel;

namespace corvanta::inline controls {
class ListTable;
}

namespace corvanta::inline app {

// One box from which everything can be gone to: a person types, moves with the arrows, and Enter
// does it.
class FrmPalette : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  // The palette outlives it.
  FrmPalette(const Palette& palette, QWidget* parent);

  // What was chosen; nullopt where the person turned back.
  [[nodiscard]] const std::optional<PaletteItem>& Chosen() const { return chosen_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void Arrange();
  void Fill();
  void Choose();

  const Palette& palette_;
  QLineEdit* text_;
  ListTable* list_;
  QStandardItemModel* model_;
  std::vector<PaletteItem> shown_;
  std::optional<PaletteItem> chosen_;
};

}  // namespace corvanta::inline app
