#pragma once

#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace corvanta::inline controls {
class Elider;
}

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
  // Puts a button at the end, on the line of the box.
  void AddBeside(QWidget& button);
  // What the title and the box need, the title up to a usual name's length.
  [[nodiscard]] int WantedWidth() const;

 private:
  QLabel* title_;
  QLabel* details_;
  Elider* titleText_;
  Elider* detailsText_;
  SearchBox* search_;
  QHBoxLayout* line_;
};

}  // namespace corvanta::inline app
