#pragma once

#include <QWidget>

class QLabel;

namespace corvanta::inline app {

// Stands on the screen while the data file is opened. It waits for nothing but the screen.
class FrmSplash : public QWidget {
  Q_OBJECT

 public:
  FrmSplash();

  // Comes up, and returns when it is painted; or after a moment, where the screen takes longer.
  void Appear();
  // Shows what is being done, at once.
  void Say(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QLabel* lblStatus_;
  bool isPainted_ = false;
};

}  // namespace corvanta::inline app
