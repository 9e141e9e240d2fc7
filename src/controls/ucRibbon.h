#pragma once

#include <QWidget>

class QAction;
class QHBoxLayout;

namespace corvanta::inline controls {

// A bar of large buttons below the menu, one per command. It draws itself. Where it is too narrow
// for their names it shows the icons alone. Left and right move between its buttons, Enter and the
// space bar press them.
class ucRibbon : public QWidget {
  Q_OBJECT

 public:
  explicit ucRibbon(QWidget* parent = nullptr);

  // A button for the command at the right end: its icon, its text without mnemonic and dots, its
  // tool tip and its state. The action is not owned. The button's name is "rb" and the action's
  // name.
  void AddButton(QAction* action);
  // A line between two groups of buttons.
  void AddSeparator();

  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Arrange();
  // Of the buttons side by side with their names.
  [[nodiscard]] int FullWidth() const;

  QHBoxLayout* buttons_;
};

}  // namespace corvanta::inline controls
