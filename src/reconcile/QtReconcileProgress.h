#pragma once

#include "platform/Progress.h"

#include <QElapsedTimer>

class QProgressBar;
class QStatusBar;
class QToolButton;

namespace corvanta::inline reconcile {

// Shows in the dialog's status bar how far the rows are written, and a button that stops. The
// dialog's own controls are for the caller to disable meanwhile.
class QtReconcileProgress : public Progress {
 public:
  // The bar gets its widgets, which belong to it, and must outlive this object.
  explicit QtReconcileProgress(QStatusBar& bar);

  // Ends the operation after the row in hand.
  void Stop() { isStopped_ = true; }

  std::string SetStatus(const std::string& text) override;
  void SetStep(std::size_t done, std::size_t total) override;
  [[nodiscard]] bool Yield() override;

 private:
  QStatusBar& bar_;
  QProgressBar* steps_;
  QToolButton* stop_;
  std::string status_;
  QElapsedTimer lastYield_;
  bool isStopped_ = false;
};

}  // namespace corvanta::inline reconcile
