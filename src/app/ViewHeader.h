#pragma once

#include <QWidget>

class QLabel;

namespace corvanta::inline app {

class SearchBox;

// The head of a view: what it shows, a word about it, and the box to search it.
class ViewHeader : public QWidget {
  Q_OBJECT

 public:
  explicit ViewHeader(QWidget* parent);
  void Show(const QString& title, const QString& details);
  [[nodiscard]] QString Title() const;
  [[nodiscard]] SearchBox& Search() const { return *search_; }
  // What the title and the box need, the title up to a usual name's length.
  [[nodiscard]] int WantedWidth() const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Elide();

  QString name_;
  QString text_;
  QLabel* title_;
  QLabel* details_;
  SearchBox* search_;
};

}  // namespace corvanta::inline app
