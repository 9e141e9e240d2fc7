#pragma once

#include <QAbstractButton>

class QAction;

namespace corvanta::inline controls {

// One command of the ribbon: its icon above its name. A checked command carries a line in the
// program's colour below it.
class RibbonButton : public QAbstractButton {
  Q_OBJECT

 public:
  RibbonButton(QAction* action, QWidget* parent);

  // Without its name, which the tool tip still says.
  void SetCompact(bool compact);
  [[nodiscard]] QSize FullSize() const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void ApplyState();
  void DrawCount(QPainter& painter, const QRect& picture) const;

  QAction* action_;
  bool isCompact_ = false;
};

}  // namespace corvanta::inline controls
