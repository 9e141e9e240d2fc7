#pragma once

#include <QLayout>

#include <vector>

namespace corvanta::inline controls {

// Widgets in rows, as words stand in a text: what has no room begins the next row. One that is
// wider than a row is cut to it.
class FlowLayout : public QLayout {
  Q_OBJECT

 public:
  explicit FlowLayout(QWidget* parent);
  ~FlowLayout() override;

  void addItem(QLayoutItem* item) override;
  [[nodiscard]] int count() const override;
  [[nodiscard]] QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSize() const override;
  void setGeometry(const QRect& place) override;

 private:
  // The height that they take in that width; places them there where `places` says so.
  int Arrange(const QRect& place, bool places) const;

  std::vector<QLayoutItem*> items_;
};

}  // namespace corvanta::inline controls
