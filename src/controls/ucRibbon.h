#pragma once

#include <QWidget>

#include <vector>

class QAbstractButton;
class QAction;
class QHBoxLayout;
class QKeyEvent;

namespace corvanta::inline controls {

// A bar of large buttons below the menu, one per command. It draws itself. Where it is too narrow
// for their names it shows the icons alone; folded it is a thin bar. It is one stop of the Tab key:
// Left and Right, Home and End move between its buttons, Enter and the space bar press them.
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
  // Leaves nothing but the button that unfolds it.
  void SetFolded(bool folded);
  [[nodiscard]] bool IsFolded() const { return isFolded_; }

  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void FoldRequested();  // to be folded, or unfolded

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  // Gives the buttons as much room as there is for all of them.
  void Arrange();
  // From the left, those that can be pressed now.
  [[nodiscard]] std::vector<QAbstractButton*> Stops() const;
  // The button that the Tab key comes to; it stays one that can be pressed.
  void KeepStop();
  void SetStop(QAbstractButton* stop);
  void Move(int steps);
  // Whether the key moves between the buttons.
  bool Take(const QKeyEvent& event);

  QWidget* panel_;
  QHBoxLayout* buttons_;
  QAbstractButton* fold_;
  QAbstractButton* stop_ = nullptr;
  std::vector<QAbstractButton*> all_;
  bool isFolded_ = false;
};

}  // namespace corvanta::inline controls
