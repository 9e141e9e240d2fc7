#pragma once

#include <QWidget>

class QLabel;

namespace corvanta {

// The line under a list: how many rows it has, and what they come to.
class TotalsLine : public QWidget {
  Q_OBJECT

 public:
  explicit TotalsLine(QWidget* parent);

  // `negative` gives the figure the colour for what is below zero.
  void Show(const QString& rows, const QString& figure, bool negative);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QLabel* rows_;
  QLabel* figure_;
};

}  // namespace corvanta
