#include "app/secrets/FrmPassword.h"

#include "controls/CommandEdge.h"
#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/secrets/LoginPassword.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Settings.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

namespace corvanta::inline app {
namespace {

constexpr int kTextWidth = 48 * kRhythm;
constexpr std::chrono::milliseconds kCountDown(500);

QString Explanation(FrmPassword::Mode mode, bool isNew) {
  switch (mode) {
    case FrmPassword::Mode::Delete:
      return FrmPassword::tr(
          "Type your password once more. Nobody will be asked for it any more when this data file "
          "is opened.");
    case FrmPassword::Mode::Reveal:
      return FrmPassword::tr("Type your password to see the recovery key.");
    case FrmPassword::Mode::Change:
      return isNew ? FrmPassword::tr(
                         "The window and the commands will ask for it before they show anything of "
                         "this data file. Keep it in mind: nobody can tell it to you.")
                   : FrmPassword::tr("Type the present password, and twice the new one.");
    case FrmPassword::Mode::Login:
      break;
  }
  return isNew ? FrmPassword::tr("No password is set yet. What you type now becomes the password.")
               : FrmPassword::tr("Type your password to open your accounts.");
}

const char* NameOf(FrmPassword::Mode mode) {
  switch (mode) {
    case FrmPassword::Mode::Delete:
      return "DELETE";
    case FrmPassword::Mode::Reveal:
      return "REVEAL";
    case FrmPassword::Mode::Change:
      return "CHANGE";
    case FrmPassword::Mode::Login:
      break;
  }
  return "LOGIN";
}

std::string Typed(const QLineEdit& field) {
  return FromQt(field.text().trimmed());
}

}  // namespace

FrmPassword::FrmPassword(Mode mode, bool isNew, Platform& platform, PasswordActions actions,
                         QWidget* parent)
    : QuietEnd(parent),
      mode_(mode),
      platform_(platform),
      actions_(std::move(actions)),
      chkShowPwd_(new QCheckBox(tr("Sho&w the password"), this)),
      chkEnableLogin_(new QCheckBox(tr("&Ask for the password at start"), this)),
      lblWait_(new MutedLabel(this)),
      wait_(new QTimer(this)) {
  setObjectName(QStringLiteral("FrmPassword"));
  setProperty("mode", QLatin1String(NameOf(mode)));
  setWindowTitle(tr("Password"));
  auto* explanation = new MutedLabel(this);
  explanation->setText(Explanation(mode, isNew));
  explanation->setWordWrap(true);
  explanation->setMinimumWidth(kTextWidth);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(2 * kRhythm, 2 * kRhythm, 2 * kRhythm, 2 * kRhythm);
  page->setSpacing(2 * kRhythm);
  page->addWidget(explanation);
  MakeFields(isNew);
  lblWait_->setObjectName(QStringLiteral("lblWait"));
  lblWait_->setWordWrap(true);
  page->addWidget(lblWait_);
  MakeButtons();
  page->setSizeConstraint(QLayout::SetFixedSize);
  connect(chkShowPwd_, &QCheckBox::toggled, this, &FrmPassword::Show);
  wait_->setObjectName(QStringLiteral("tmrWait"));
  wait_->setInterval(kCountDown);
  connect(wait_, &QTimer::timeout, this, &FrmPassword::ShowWait);
  ShowWait();
  (txtPassword_ != nullptr ? txtPassword_ : txtNewPassword_)->setFocus();
}

void FrmPassword::MakeButtons() {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  cmdAccept_ = buttons->button(QDialogButtonBox::Ok);
  cmdAccept_->setObjectName(QStringLiteral("cmdAccept"));
  buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cmdCancel"));
  layout()->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &FrmPassword::Accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  if (mode_ == Mode::Delete) cmdAccept_->setText(tr("Switch &Off"));
  if (mode_ != Mode::Change || txtPassword_ == nullptr) return;
  auto* off = buttons->addButton(tr("Switch &Off..."), QDialogButtonBox::ActionRole);
  off->setObjectName(QStringLiteral("cmdDelete"));
  off->setToolTip(tr("Have nobody asked for a password any more"));
  off->setAutoDefault(false);
  connect(off, &QPushButton::clicked, this, [this] { done(kSwitchOff); });
}

void FrmPassword::ShowWait() {
  const std::int64_t seconds = actions_.wait && txtPassword_ != nullptr ? actions_.wait() : 0;
  lblWait_->setVisible(seconds > 0);
  cmdAccept_->setEnabled(seconds == 0);
  if (seconds == 0) return wait_->stop();
  lblWait_->setText(
      seconds == 1 ? tr("Several wrong passwords were entered. The next one can be tried in 1 "
                        "second.")
                   : tr("Several wrong passwords were entered. The next one can be tried in %1 "
                        "seconds.")
                         .arg(seconds));
  wait_->start();
}

void FrmPassword::MakeFields(bool isNew) {
  auto* form = new QFormLayout;
  form->setVerticalSpacing(kRhythm);
  const bool setsOne = mode_ == Mode::Change || (mode_ == Mode::Login && isNew);
  if (!setsOne || !isNew) {
    const QString label = setsOne ? tr("&Present password:") : tr("&Password:");
    txtPassword_ = AddField(*form, label, "txtPassword");
  }
  if (setsOne) {
    const QString label = isNew ? tr("&Password:") : tr("&New password:");
    txtNewPassword_ = AddField(*form, label, "txtNewPassword");
    txtPasswordAgain_ = AddField(*form, tr("Once &more:"), "txtPasswordAgain");
  }
  chkShowPwd_->setObjectName(QStringLiteral("chkShowPwd"));
  chkEnableLogin_->setObjectName(QStringLiteral("chkEnableLogin"));
  // A password that is kept is typed, or changed; it is switched off on purpose alone.
  chkEnableLogin_->setVisible(setsOne && isNew);
  chkEnableLogin_->setChecked(true);
  form->addRow(QString(), chkShowPwd_);
  form->addRow(QString(), chkEnableLogin_);
  static_cast<QVBoxLayout*>(layout())->addLayout(form);
  if (!setsOne) return;
  connect(chkEnableLogin_, &QCheckBox::toggled, this, [this](bool asks) {
    txtNewPassword_->setEnabled(asks);
    txtPasswordAgain_->setEnabled(asks);
  });
}

QLineEdit* FrmPassword::AddField(QFormLayout& form, const QString& label, const char* name) {
  auto* field = new QLineEdit(this);
  field->setObjectName(QLatin1String(name));
  field->setEchoMode(QLineEdit::Password);
  field->setMinimumWidth(30 * kRhythm);
  form.addRow(label, field);
  return field;
}

void FrmPassword::Show(bool show) {
  for (QLineEdit* field : {txtPassword_, txtNewPassword_, txtPasswordAgain_}) {
    if (field != nullptr) field->setEchoMode(show ? QLineEdit::Normal : QLineEdit::Password);
  }
}

bool FrmPassword::IsWanted() const {
  return chkEnableLogin_->isChecked();
}

void FrmPassword::Accept() {
  std::optional<Warning> warning;
  if (!RunCommand(platform_.prompts, [&] { warning = Finish(); })) return;
  if (!warning) return accept();
  platform_.prompts.Tell(warning->title, warning->text, Icon::Information);
  ShowWait();
  if (auto* field = findChild<QLineEdit*>(ToQt(warning->field))) {
    field->selectAll();
    field->setFocus();
  }
}

std::optional<Warning> FrmPassword::Finish() {
  if (txtPassword_ != nullptr && !actions_.matches(Typed(*txtPassword_))) {
    return Warning{kPasswordWarning, kWrongPassword, "txtPassword"};
  }
  if (mode_ == Mode::Reveal) return std::nullopt;
  if (mode_ == Mode::Delete) {
    actions_.set({});
    Settings(platform_.registry).SetOn(Setting::Login, false);
    return std::nullopt;
  }
  if (IsWanted() && txtNewPassword_ != nullptr) {
    const std::string typed = Typed(*txtNewPassword_);
    if (auto warning = CheckNewPassword(typed, Typed(*txtPasswordAgain_))) return warning;
    actions_.set(typed);
  } else if (!IsWanted()) {
    actions_.set({});
  }
  Settings(platform_.registry).SetOn(Setting::Login, IsWanted());
  return std::nullopt;
}

}  // namespace corvanta::inline app
