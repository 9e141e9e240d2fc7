#pragma once

#include <QPixmap>
#include <QWidget>

namespace corvanta::inline notes {

// A picture, as large as there is room for it and never larger than it is.
class ucPicture : public QWidget {
  Q_OBJECT

 public:
  explicit ucPicture(QWidget* parent = nullptr);

  // False, and nothing is shown, when the bytes are no picture that is known. `name` is what it is
  // called to assistive tools.
  bool Show(const QByteArray& bytes, const QString& name);
  void Clear();

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_;
};

}  // namespace corvanta::inline notes
