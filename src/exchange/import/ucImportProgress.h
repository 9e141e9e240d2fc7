#pragma once

#include "platform/Progress.h"

#include <QElapsedTimer>
#include <QWidget>

class QLabel;
class QProgressBar;

namespace corvanta::inline exchange {

// The page of the import window while the file is read: what is done, how far it is, and a button
// that stops.
class ucImportProgress : public QWidget, public Progress {
  Q_OBJECT

 public:
  explicit ucImportProgress(QWidget* parent);

  // An import of that file begins; nobody has asked to stop it yet.
  void Begin(const QString& file);
  // Ends the import after the record in hand.
  void Stop();

  std::string SetStatus(const std::string& text) override;
  void SetStep(std::size_t done, std::size_t total) override;
  [[nodiscard]] bool Yield() override;

 private:
  QLabel* lblFile_;
  QLabel* lblStatus_;
  QProgressBar* pbStatus_;
  std::string status_;
  QElapsedTimer lastYield_;
  bool isStopped_ = false;
};

}  // namespace corvanta::inline exchange
