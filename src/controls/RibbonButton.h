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

  // How much room there is for a button: for its name with some air, for its name, or for its icon
  // alone, while the tool tip still says the name.
  enum class Room { Ample, Tight, Icon };

  void SetRoom(Room room);
  [[nodiscard]] int WidthIn(Room room) const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void ApplyState();
  void DrawCount(QPainter& painter, const QRect& picture) const;

  QAction* action_;
  Room room_ = Room::Ample;
};

}  // namespace corvanta::inline controls
