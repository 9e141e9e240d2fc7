#pragma once

#include <QLabel>

namespace corvanta::inline controls {

// A label of second rank; its colour follows the palette from light to dark.
class MutedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit MutedLabel(QWidget* parent = nullptr);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Colour();
  bool colouring_ = false;
};

}  // namespace corvanta::inline controls
