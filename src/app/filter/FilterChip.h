#pragma once

#include <QAbstractButton>

class QToolButton;

namespace corvanta::inline app {

// One filter as a button with the way out of it at its end.
class FilterChip : public QAbstractButton {
  Q_OBJECT

 public:
  explicit FilterChip(QWidget* parent);

  // `name` is of the widget, `caption` what is filtered.
  void SetCaption(const QString& name, const QString& caption);
  void Show(const QString& text, const QString& tip);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void Removed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString caption_;
  QToolButton* remove_;
};

}  // namespace corvanta::inline app
