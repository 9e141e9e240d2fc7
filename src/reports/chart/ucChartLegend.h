#pragma once

#include <QString>
#include <QWidget>

#include <cstddef>
#include <vector>

namespace corvanta::inline reports {

struct ChartData;

// What the colours and strokes of a chart stand for, in as many rows as the names need.
class ucChartLegend : public QWidget {
  Q_OBJECT

 public:
  explicit ucChartLegend(QWidget* parent);

  void Show(const ChartData& chart);
  // As they stand, from the left.
  [[nodiscard]] QStringList Names() const;

  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Entry {
    QString name;
    bool isMarked = true;  // the currency of all has no mark
    bool isLine = false;
    Qt::PenStyle stroke = Qt::SolidLine;
    unsigned onLight = 0;  // 0xRRGGBB
    unsigned onDark = 0;
  };
  struct Row {
    std::size_t first = 0;
    std::size_t end = 0;
    int width = 0;
  };
  [[nodiscard]] int MarkWidth() const;
  [[nodiscard]] int WidthOf(const Entry& entry, int room) const;
  [[nodiscard]] std::vector<Row> RowsIn(int width) const;
  [[nodiscard]] int RowHeight() const;
  void Draw(QPainter& painter, const Entry& entry, const QRect& place) const;

  std::vector<Entry> entries_;
};

}  // namespace corvanta::inline reports
