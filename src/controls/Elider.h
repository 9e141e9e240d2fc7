#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace corvanta::inline controls {

// Keeps the text of a label or a button as long as there is room for it; what is longer ends in
// dots, whole again once the widget is wider.
class Elider : public QObject {
  Q_OBJECT

 public:
  // Of that label or button, whose own it is.
  explicit Elider(QWidget& shown);

  void SetText(const QString& text);
  [[nodiscard]] const QString& Text() const { return text_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Fit();

  QWidget& shown_;
  QString text_;
};

}  // namespace corvanta::inline controls
