#include "app/start/FrmSplash.h"

#include "controls/MutedLabel.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

namespace corvanta::inline app {
namespace {
constexpr int kPicture = 9 * kRhythm;
constexpr int kPatience = 1000;  // milliseconds
constexpr int kTurn = 20;        // milliseconds
}  // namespace

FrmSplash::FrmSplash()
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      lblStatus_(new MutedLabel(this)) {
  setObjectName(QStringLiteral("FrmSplash"));
  setWindowTitle(QStringLiteral("Corvanta Personal Finance"));
  setWindowIcon(ProgramIcon());
  auto* picture = new QLabel(this);
  picture->setPixmap(ProgramIcon().pixmap(kPicture, kPicture));
  auto* name = new QLabel(QStringLiteral("Corvanta"), this);
  name->setFont(ScaledFont(2, QFont::DemiBold));
  auto* purpose = new QLabel(tr("Personal Finance"), this);
  lblStatus_->setObjectName(QStringLiteral("lblStatus"));
  lblStatus_->setText(tr("Version %1").arg(QCoreApplication::applicationVersion()));
  auto* words = new QVBoxLayout;
  words->setSpacing(kRhythm / 4);
  words->addStretch();
  words->addWidget(name);
  words->addWidget(purpose);
  words->addSpacing(2 * kRhythm);
  words->addWidget(lblStatus_);
  words->addStretch();
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(5 * kRhythm, 3 * kRhythm, 5 * kRhythm, 3 * kRhythm);
  row->setSpacing(3 * kRhythm);
  row->addWidget(picture, 0, Qt::AlignVCenter);
  row->addLayout(words, 1);
  setFixedSize(52 * kRhythm, 24 * kRhythm);
  move(QGuiApplication::primaryScreen()->availableGeometry().center() - rect().center());
}

void FrmSplash::Appear() {
  show();
  // What follows keeps the program busy: the window must have been drawn before.
  const QDeadlineTimer patience(kPatience);
  while (!isPainted_ && !patience.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, kTurn);
  }
}

void FrmSplash::Say(const QString& text) {
  lblStatus_->setText(text);
  repaint();
}

void FrmSplash::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  painter.setPen(Hairline(palette()));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.fillRect(0, 0, width(), kRhythm / 2, AccentColour(palette()));
  isPainted_ = true;
}

}  // namespace corvanta::inline app
