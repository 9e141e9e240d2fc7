#pragma once

#include "app/filter/FilterStrip.h"

#include <QFrame>

#include <array>

class QGridLayout;
class QLabel;
class QPushButton;

namespace corvanta::inline app {

// The filters as a small window below their button: for each one the button that opens its dialog
// with what it keeps to at its side, and the one that takes all of them off. It is of the window,
// whatever view is in front.
class FilterPanel : public QFrame {
  Q_OBJECT

 public:
  explicit FilterPanel(QWidget* parent);

  // The text of each filter, empty for one that filters nothing. The statuses have no part in it.
  // `hasOthers`: there are filters that the panel does not show.
  void Show(const FilterStrip::Texts& texts, const FilterStrip::Texts& tips, bool hasOthers);
  void Open(const QWidget& button);

 Q_SIGNALS:
  void Chosen(FilterPiece piece);
  void Cleared();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  static constexpr std::size_t kRows = kFilterPieces.size() - 1;
  void AddRow(QGridLayout& rows, FilterPiece piece, const QString& caption);

  std::array<QPushButton*, kRows> buttons_;
  std::array<QLabel*, kRows> labels_;
  QPushButton* cmdNoFilter_;
};

}  // namespace corvanta::inline app
