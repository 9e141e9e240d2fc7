#include "app/QtProgress.h"

#include "controls/QtText.h"
#include "controls/Style.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolButton>

namespace corvanta::inline app {

void QtProgress::ShowIn(QStatusBar* bar) {
  text_ = new QLabel(bar);
  text_->setObjectName(QStringLiteral("lblStatus"));
  bar_ = new QProgressBar(bar);
  bar_->setObjectName(QStringLiteral("pbStatus"));
  bar_->setTextVisible(false);
  bar_->setFixedWidth(20 * kRhythm);
  bar_->setAccessibleName(tr("Progress"));
  stop_ = new QToolButton(bar);
  stop_->setObjectName(QStringLiteral("cmdStop"));
  stop_->setText(tr("Stop"));
  stop_->setToolTip(tr("Stop the running operation (Esc)"));
  bar->addWidget(text_, 1);
  bar->addPermanentWidget(bar_);
  bar->addPermanentWidget(stop_);
  bar_->hide();
  stop_->hide();
  connect(stop_, &QToolButton::clicked, this, [this] { stopped_ = true; });
}

std::string QtProgress::SetStatus(const std::string& text) {
  std::string former = std::move(status_);
  status_ = text;
  if (text_) text_->setText(ToQt(text));
  if (!text_ && sink_) sink_(ToQt(text));
  if (former.empty()) stopped_ = false;
  SetBusy(!text.empty());
  if (text.empty()) SetStep(0, 0);
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  return former;
}

void QtProgress::SetStep(std::size_t done, std::size_t total) {
  if (!bar_) return;
  bar_->setVisible(total > 0);
  stop_->setVisible(total > 0);
  // The bar counts in int; a thousand parts are finer than it is wide.
  bar_->setRange(0, 1000);
  bar_->setValue(total == 0 ? 0 : static_cast<int>(done * 1000 / total));
}

bool QtProgress::Yield() {
  QCoreApplication::processEvents();
  return !stopped_;
}

void QtProgress::SetBusy(bool busy) {
  if (busy == busy_) return;
  busy_ = busy;
  if (busy) {
    behind_ = QApplication::activeModalWidget();
    qApp->installEventFilter(this);
  } else {
    qApp->removeEventFilter(this);
  }
}

bool QtProgress::eventFilter(QObject* watched, QEvent* event) {
  // A question that the operation itself asks must be answered.
  if (QApplication::activeModalWidget() != behind_) return false;
  switch (event->type()) {
    case QEvent::KeyPress:
      if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) stopped_ = true;
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
      return watched->isWidgetType() && watched != stop_.data();
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::Close:
      if (event->type() == QEvent::Close) event->ignore();
      return true;
    default:
      return false;
  }
}

}  // namespace corvanta::inline app
