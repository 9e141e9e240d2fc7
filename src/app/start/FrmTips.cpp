#include "app/start/FrmTips.h"

#include "app/start/Tips.h"
#include "controls/CommandEdge.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Settings.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvanta::inline app {
namespace {
constexpr int kPicture = 4 * kRhythm;
constexpr int kTextWidth = 44 * kRhythm;
}  // namespace

FrmTips::FrmTips(Platform& platform, QWidget* parent, const QString& file)
    : QuietEnd(parent),
      platform_(platform),
      tips_(ReadTips(file.isEmpty() ? TipsFile() : file)),
      lblTip_(new QLabel(this)),
      chkLoadTipsAtStartup_(new QCheckBox(tr("&Show a tip at start"), this)) {
  setObjectName(QStringLiteral("FrmTips"));
  setWindowTitle(tr("Tip of the Day"));
  shown_ = platform.clock.Today().Serial() % tips_.size();
  lblTip_->setObjectName(QStringLiteral("lblTip"));
  lblTip_->setTextFormat(Qt::PlainText);
  lblTip_->setWordWrap(true);
  lblTip_->setFixedWidth(kTextWidth);
  lblTip_->setMinimumHeight(4 * fontMetrics().lineSpacing());
  lblTip_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  chkLoadTipsAtStartup_->setObjectName(QStringLiteral("chkLoadTipsAtStartup"));
  chkLoadTipsAtStartup_->setChecked(Settings(platform.registry).IsOn(Setting::ShowTips));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  auto* next = buttons->addButton(tr("&Next Tip"), QDialogButtonBox::ActionRole);
  next->setObjectName(QStringLiteral("cmdNext"));
  buttons->button(QDialogButtonBox::Close)->setObjectName(QStringLiteral("cmdClose"));
  Arrange(*buttons);
  connect(next, &QPushButton::clicked, this, [this] {
    shown_ = (shown_ + 1) % tips_.size();
    ShowTip();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(chkLoadTipsAtStartup_, &QCheckBox::toggled, this, [this](bool show) {
    RunCommand(platform_.prompts,
               [&] { Settings(platform_.registry).SetOn(Setting::ShowTips, show); });
  });
  ShowTip();
}

void FrmTips::Arrange(QDialogButtonBox& buttons) {
  auto* picture = new QLabel(this);
  picture->setPixmap(SvgIcon(QStringLiteral("tips")).pixmap(kPicture, kPicture));
  picture->setAlignment(Qt::AlignTop);
  auto* title = new QLabel(tr("Did you know..."), this);
  title->setFont(ScaledFont(1, QFont::DemiBold));
  auto* text = new QVBoxLayout;
  text->setSpacing(kRhythm);
  text->addWidget(title);
  text->addWidget(lblTip_, 1);
  auto* top = new QHBoxLayout;
  top->setSpacing(2 * kRhythm);
  top->addWidget(picture);
  top->addLayout(text, 1);
  auto* bottom = new QHBoxLayout;
  bottom->setSpacing(2 * kRhythm);
  bottom->addWidget(chkLoadTipsAtStartup_);
  bottom->addStretch();
  bottom->addWidget(&buttons);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(2 * kRhythm, 2 * kRhythm, 2 * kRhythm, 2 * kRhythm);
  page->setSpacing(2 * kRhythm);
  page->addLayout(top, 1);
  page->addLayout(bottom);
  page->setSizeConstraint(QLayout::SetFixedSize);
}

void FrmTips::ShowTip() {
  lblTip_->setText(tips_.at(shown_));
}

}  // namespace corvanta::inline app
