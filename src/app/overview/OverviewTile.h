#pragma once

#include <QFrame>

#include <functional>
#include <vector>

class QGridLayout;
class QPushButton;

namespace corvanta::inline app {

// A part of the overview: a heading that leads on, and a few lines of texts and figures. A line may
// lead somewhere of its own.
class OverviewTile : public QFrame {
  Q_OBJECT

 public:
  // `name` goes into the names of its parts; `tip` says where the heading leads.
  OverviewTile(const char* name, const QString& heading, const QString& tip, QWidget* parent);

  struct Cell {
    QString text;
    bool isNegative = false;
    bool isStrong = false;
    bool isMuted = false;
  };
  struct Line {
    std::vector<Cell> cells;        // the first at the left, the others are figures
    std::function<void()> go = {};  // where it leads; empty for nowhere
  };
  // In place of the lines that were there.
  void Show(const std::vector<Line>& lines);
  // What is shown, a line each, the cells with tabs between them.
  [[nodiscard]] const std::vector<Line>& Lines() const { return lines_; }
  [[nodiscard]] QString Heading() const;

 Q_SIGNALS:
  void Chosen();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void AddLine(const Line& line, int row, int columns);
  [[nodiscard]] QWidget* MakeLink(const Line& line);

  QPushButton* heading_;
  QWidget* body_ = nullptr;
  std::vector<Line> lines_;
};

}  // namespace corvanta::inline app
