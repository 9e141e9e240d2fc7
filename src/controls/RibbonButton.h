#pragma once

#include <QAbstractButton>

class QAction;

namespace corvanta {

// One command of the ribbon: its icon above its name. A checked command carries a line in the
// program's colour below it.
class RibbonButton : public QAbstractButton {
  Q_OBJECT

 public:
  RibbonButton(QAction* action, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void TakeState();

  QAction* action_;
};

}  // namespace corvanta
