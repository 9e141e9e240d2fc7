#include "reconcile/QtReconcileProgress.h"

#include "controls/QtText.h"
#include "controls/Style.h"

#include <QCoreApplication>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolButton>

#include <utility>

namespace corvanta::inline reconcile {
namespace {
// Handling events after every row would cost more than the rows; this is still fluent.
constexpr qint64 kYieldEvery = 40;
}  // namespace

QtReconcileProgress::QtReconcileProgress(QStatusBar& bar)
    : bar_(bar), steps_(new QProgressBar(&bar)), stop_(new QToolButton(&bar)) {
  steps_->setObjectName(QStringLiteral("pbStatus"));
  steps_->setAccessibleName(QCoreApplication::translate("FrmReconcile", "Progress"));
  steps_->setTextVisible(false);
  steps_->setFixedWidth(20 * kRhythm);
  stop_->setObjectName(QStringLiteral("cmdStop"));
  stop_->setText(QCoreApplication::translate("FrmReconcile", "Stop"));
  stop_->setToolTip(QCoreApplication::translate("FrmReconcile", "Stop (Esc)"));
  bar.addPermanentWidget(steps_);
  bar.addPermanentWidget(stop_);
  steps_->hide();
  stop_->hide();
  QObject::connect(stop_, &QToolButton::clicked, steps_, [this] { Stop(); });
}

std::string QtReconcileProgress::SetStatus(const std::string& text) {
  std::string former = std::exchange(status_, text);
  bar_.showMessage(ToQt(text));
  isStopped_ = false;
  lastYield_.start();
  SetStep(0, 0);
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  return former;
}

void QtReconcileProgress::SetStep(std::size_t done, std::size_t total) {
  steps_->setVisible(total > 0);
  stop_->setVisible(total > 0);
  // The bar counts in int; a thousand parts are finer than it is wide.
  steps_->setRange(0, 1000);
  steps_->setValue(total == 0 ? 0 : static_cast<int>(done * 1000 / total));
}

bool QtReconcileProgress::Yield() {
  if (lastYield_.elapsed() >= kYieldEvery) {
    QCoreApplication::processEvents();
    lastYield_.restart();
  }
  return !isStopped_;
}

}  // namespace corvanta::inline reconcile
