#pragma once

#include <QWidget>

class QAction;
class QLabel;
class QPushButton;

namespace corvanta::inline controls {

// What a view shows while it has nothing to show: a picture, what is the case, what to do next,
// and the button that does it.
class EmptyState : public QWidget {
  Q_OBJECT

 public:
  explicit EmptyState(QWidget* parent = nullptr);

  // Shows an icon by its name, a title, a sentence, and a button that
  // says what the command does by its status tip (none for null).
  void Show(const QString& icon, const QString& title, const QString& text, QAction* action);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Colour();

  QString icon_;
  QLabel* picture_;
  QLabel* title_;
  QLabel* text_;
  QPushButton* button_;
  QAction* action_ = nullptr;
};

}  // namespace corvanta::inline controls
