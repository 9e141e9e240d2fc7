#pragma once

#include "controls/ListDelegate.h"
#include "ledger/register/RegisterRow.h"

#include <QColor>
#include <QIcon>

namespace corvanta::inline app {

// The colours of a list that the person may choose.
struct ListColours {
  QColor uncleared;
  QColor cleared;
  QColor alternate1;   // background of even rows, in light
  QColor alternate2;   // and of odd ones
  bool ledger = true;  // rows in two colours at all
  bool grid = false;   // a line below each row
};

// Draws the cells of the register: the row's tint, its text in the colour of its status, money out
// and what is below zero in the colour for it, and the marks behind the payee. What is still to
// come stands in italics, below a line.
class RegisterDelegate : public ListDelegate {
  Q_OBJECT

 public:
  explicit RegisterDelegate(QObject* parent);

  void SetColours(const ListColours& colours) { colours_ = colours; }

  // The place of the mark that folds and unfolds a split row, in its payee's cell; empty for any
  // other row. `height` is that of a row without lines.
  [[nodiscard]] static QRect FoldMark(const QRect& cell, int height, const RegisterRow& row);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;

 private:
  [[nodiscard]] QColor Background(const QStyleOptionViewItem& cell, int row) const;
  [[nodiscard]] QColor TextColour(const RegisterRow& row, int column, const QPalette& palette,
                                  const QColor& background) const;
  // Draws the split lines below the row, each in the columns that are shown.
  static void DrawLines(QPainter& painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index, const QColor& text, bool isChosen);
  // Draws the row's marks at the right end of the cell; returns how wide they are.
  int DrawMarks(QPainter& painter, const RegisterRow& row, const QRect& cell, QIcon::Mode mode,
                bool isUnfolded) const;

  ListColours colours_;
  QIcon split_;
  QIcon transfer_;
  QIcon schedule_;
  QIcon attachment_;
  QIcon keyword_;
};

}  // namespace corvanta::inline app
