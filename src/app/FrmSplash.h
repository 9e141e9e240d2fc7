#pragma once

#include <QWidget>

class QLabel;

namespace corvanta::inline app {

// Stands on the screen while the data file is opened. It never waits for anything.
class FrmSplash : public QWidget {
  Q_OBJECT

 public:
  FrmSplash();

  // Shows what is being done, at once.
  void Say(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QLabel* lblStatus_;
};

}  // namespace corvanta::inline app
