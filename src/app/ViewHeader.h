#pragma once

#include <QWidget>

class QLabel;

namespace corvanta::inline app {

// The head of a view: what it shows, and a word about it.
class ViewHeader : public QWidget {
  Q_OBJECT

 public:
  explicit ViewHeader(QWidget* parent);
  void Show(const QString& title, const QString& details);
  [[nodiscard]] QString Title() const;
  // What the title needs, up to a usual name's length.
  [[nodiscard]] int WantedWidth() const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Elide();

  QString name_;
  QString text_;
  QLabel* title_;
  QLabel* details_;
};

}  // namespace corvanta::inline app
