#include "app/start/FrmWelcome.h"

#include "controls/LongText.h"
#include "controls/MutedLabel.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"

#include <QCommandLinkButton>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <utility>

namespace corvanta::inline app {
namespace {
constexpr int kWidth = 64 * kRhythm;
constexpr int kPicture = 3 * kRhythm;
}  // namespace

FrmWelcome::FrmWelcome(WelcomeActions actions, const QString& backup, QWidget* parent)
    : QuietEnd(parent), actions_(std::move(actions)) {
  setObjectName(QStringLiteral("FrmWelcome"));
  setWindowTitle(tr("Welcome"));
  auto* content = new QWidget;
  page_ = new QVBoxLayout(content);
  page_->setContentsMargins(0, 0, 0, 0);
  page_->setSpacing(kRhythm / 2);
  AddTitle(tr("Welcome to Corvanta"), 2);
  AddTitle(tr("How do you want to begin?"), 1);
  auto* account = AddWay("cmdAccount", "accounts", tr("Add an &account of your own"),
                         tr("A bank account, cash, a credit card or a loan"));
  auto* import = AddWay("cmdImport", "import", tr("&Import a file of your bank"),
                        tr("QIF, OFX or CSV, as most banks offer them"));
  auto* sample = AddWay("cmdSample", "register", tr("&Look at the sample"),
                        tr("A made-up account to try everything on"));
  AddTitle(tr("Keep it safe"), 1);
  auto* key = AddWay("cmdKey", "key", tr("Save or print the recovery &key"),
                     tr("It alone opens your data on another machine"));
  cmdBackup_ = AddWay("cmdBackup", "save", tr("Choose where &backups go"), QString());
  ShowBackup(backup);
  page_->addStretch(1);

  auto* scroll = new QScrollArea(this);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setWidgetResizable(true);
  scroll->setWidget(content);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setMinimumWidth(kWidth);
  auto* note = new MutedLabel(this);
  note->setText(tr("This page does not come again by itself. Help, Welcome shows it."));
  note->setWordWrap(true);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  buttons->button(QDialogButtonBox::Close)->setObjectName(QStringLiteral("cmdClose"));
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(2 * kRhythm, 2 * kRhythm, 2 * kRhythm, 2 * kRhythm);
  rows->setSpacing(kRhythm);
  rows->addWidget(scroll, 1);
  rows->addWidget(note);
  rows->addWidget(buttons);
  const int whole = page_->totalHeightForWidth(kWidth + 2 * kRhythm) + 14 * kRhythm;
  resize(kWidth + 6 * kRhythm, std::min(whole, screen()->availableSize().height() - 6 * kRhythm));

  connect(account, &QPushButton::clicked, this, [this] { Leave(actions_.addAccount); });
  connect(import, &QPushButton::clicked, this, [this] { Leave(actions_.importFile); });
  connect(sample, &QPushButton::clicked, this, [this] { Leave(actions_.showSample); });
  connect(key, &QPushButton::clicked, this, [this] { actions_.showKey(); });
  connect(cmdBackup_, &QPushButton::clicked, this, [this] { ShowBackup(actions_.chooseBackup()); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  account->setDefault(true);
  account->setFocus();
}

void FrmWelcome::AddTitle(const QString& text, int step) {
  auto* title = new QLabel(text, this);
  title->setFont(ScaledFont(step, QFont::DemiBold));
  if (page_->count() > 0) page_->addSpacing(kRhythm);
  page_->addWidget(title);
}

QCommandLinkButton* FrmWelcome::AddWay(const char* name, const char* icon, const QString& title,
                                       const QString& text) {
  auto* way = new QCommandLinkButton(title, text, this);
  way->setObjectName(QLatin1String(name));
  way->setIcon(SvgIcon(QLatin1String(icon)));
  way->setIconSize(QSize(kPicture, kPicture));
  way->setAccessibleDescription(text);
  page_->addWidget(way);
  return way;
}

void FrmWelcome::Leave(const std::function<void()>& action) {
  accept();
  action();
}

void FrmWelcome::ShowBackup(const QString& path) {
  const QString text = path.isEmpty() ? tr("A folder beside the data so far; another disk is safer")
                                      : tr("They go to %1").arg(Shortened(path, 60));
  cmdBackup_->setDescription(text);
  cmdBackup_->setAccessibleDescription(text);
}

}  // namespace corvanta::inline app
