#pragma once

#include "platform/Progress.h"

#include <QObject>
#include <QPointer>

#include <functional>

class QLabel;
class QProgressBar;
class QStatusBar;
class QToolButton;

namespace corvanta::inline app {

// Shows a long operation in a status bar: its text, how far it is, and a button that stops it.
// While it runs, the rest of the program takes no input; Escape stops as the button does.
class QtProgress : public QObject, public Progress {
  Q_OBJECT

 public:
  explicit QtProgress(QObject* parent = nullptr) : QObject(parent) {}

  // The status bar to show in; it gets its widgets at once. Without one, `Progress` only reports to
  // the text sink.
  void ShowIn(QStatusBar* bar);
  // Gets every status text before there is a status bar.
  void SetTextSink(std::function<void(const QString&)> sink) { sink_ = std::move(sink); }

  std::string SetStatus(const std::string& text) override;
  void SetStep(std::size_t done, std::size_t total) override;
  [[nodiscard]] bool Yield() override;
  // An operation runs, and lets window messages through.
  [[nodiscard]] bool IsBusy() const { return busy_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void SetBusy(bool busy);

  QPointer<QLabel> text_;
  QPointer<QProgressBar> bar_;
  QPointer<QToolButton> stop_;
  std::function<void(const QString&)> sink_;
  std::string status_;
  QPointer<QWidget> behind_;  // the window that was in front when the operation began
  bool stopped_ = false;
  bool busy_ = false;
};

}  // namespace corvanta::inline app
