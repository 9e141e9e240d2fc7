#include "exchange/import/ucImportProgress.h"

#include "controls/QtText.h"
#include "controls/Style.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace corvanta::inline exchange {
namespace {
// Handling events after every record would cost more than the records; this is still fluent.
constexpr qint64 kYieldEvery = 40;
constexpr int kWidth = 52 * kRhythm;
}  // namespace

ucImportProgress::ucImportProgress(QWidget* parent)
    : QWidget(parent),
      lblFile_(new QLabel(this)),
      lblStatus_(new QLabel(this)),
      pbStatus_(new QProgressBar(this)) {
  // Enter that starts an import and is pressed twice must not stop it again, so the button does
  // not have the focus.
  setFocusPolicy(Qt::StrongFocus);
  lblFile_->setObjectName(QStringLiteral("lblFile"));
  lblFile_->setTextFormat(Qt::PlainText);
  lblFile_->setFont(ScaledFont(1, QFont::DemiBold));
  lblStatus_->setObjectName(QStringLiteral("lblStatus"));
  lblStatus_->setTextFormat(Qt::PlainText);
  pbStatus_->setObjectName(QStringLiteral("pbStatus"));
  pbStatus_->setAccessibleName(tr("Progress"));
  pbStatus_->setTextVisible(false);
  pbStatus_->setMinimumWidth(kWidth);
  auto* stop = new QPushButton(tr("&Stop"), this);
  stop->setObjectName(QStringLiteral("cmdStop"));
  stop->setToolTip(tr("Stop the import (Esc)"));
  stop->setAutoDefault(false);
  connect(stop, &QPushButton::clicked, this, &ucImportProgress::Stop);
  auto* row = new QHBoxLayout;
  row->addStretch(1);
  row->addWidget(stop);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(0, 0, 0, 0);
  page->setSpacing(kRhythm + kRhythm / 2);
  page->addWidget(lblFile_);
  page->addWidget(lblStatus_);
  page->addWidget(pbStatus_);
  page->addStretch(1);
  page->addLayout(row);
}

void ucImportProgress::Begin(const QString& file) {
  isStopped_ = false;
  lastYield_.start();
  lblFile_->setText(lblFile_->fontMetrics().elidedText(file, Qt::ElideMiddle, kWidth));
  SetStep(0, 0);
  setFocus();
}

void ucImportProgress::Stop() {
  isStopped_ = true;
}

std::string ucImportProgress::SetStatus(const std::string& text) {
  std::string former = std::exchange(status_, text);
  lblStatus_->setText(ToQt(text));
  setAccessibleName(ToQt(text));
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  return former;
}

// While nobody knows how much is to be done, the bar says that something is.
void ucImportProgress::SetStep(std::size_t done, std::size_t total) {
  // The bar counts in int; a thousand parts are finer than it is wide.
  pbStatus_->setRange(0, total == 0 ? 0 : 1000);
  pbStatus_->setValue(total == 0 ? 0 : static_cast<int>(done * 1000 / total));
}

bool ucImportProgress::Yield() {
  if (lastYield_.elapsed() >= kYieldEvery) {
    QCoreApplication::processEvents();
    lastYield_.restart();
  }
  return !isStopped_;
}

}  // namespace corvanta::inline exchange
