#include "app/FrmPassword.h"

#include "controls/CommandEdge.h"
#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Settings.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvanta {
namespace {

QString Explanation(FrmPassword::Mode mode, bool isNew) {
  if (isNew) {
    return FrmPassword::tr("No password is set yet. What you type now becomes the password.");
  }
  if (mode == FrmPassword::Mode::Login) {
    return FrmPassword::tr("Type your password to open your accounts.");
  }
  return FrmPassword::tr("Type your password to go on with deleting.");
}

}  // namespace

FrmPassword::FrmPassword(Mode mode, bool isNew, Platform& platform, Check check, QWidget* parent)
    : QuietEnd(parent),
      platform_(platform),
      check_(std::move(check)),
      txtPassword_(new QLineEdit(this)),
      chkShowPwd_(new QCheckBox(tr("&Show the password"), this)),
      chkEnableLogin_(new QCheckBox(tr("&Ask for the password at start"), this)) {
  setObjectName(QStringLiteral("FrmPassword"));
  setWindowTitle(tr("Password"));
  txtPassword_->setObjectName(QStringLiteral("txtPassword"));
  txtPassword_->setEchoMode(QLineEdit::Password);
  txtPassword_->setMinimumWidth(30 * kRhythm);
  chkShowPwd_->setObjectName(QStringLiteral("chkShowPwd"));
  chkEnableLogin_->setObjectName(QStringLiteral("chkEnableLogin"));
  chkEnableLogin_->setVisible(mode == Mode::Login);
  chkEnableLogin_->setChecked(Settings(platform.registry).IsOn(Setting::Login));

  auto* explanation = new MutedLabel(this);
  explanation->setText(Explanation(mode, isNew));
  auto* form = new QFormLayout;
  form->setVerticalSpacing(kRhythm);
  form->addRow(tr("&Password:"), txtPassword_);
  form->addRow(QString(), chkShowPwd_);
  form->addRow(QString(), chkEnableLogin_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdAccept"));
  buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cmdCancel"));
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(2 * kRhythm, 2 * kRhythm, 2 * kRhythm, 2 * kRhythm);
  page->setSpacing(2 * kRhythm);
  page->addWidget(explanation);
  page->addLayout(form);
  page->addWidget(buttons);
  page->setSizeConstraint(QLayout::SetFixedSize);

  connect(chkShowPwd_, &QCheckBox::toggled, this, [this](bool show) {
    txtPassword_->setEchoMode(show ? QLineEdit::Normal : QLineEdit::Password);
  });
  connect(buttons, &QDialogButtonBox::accepted, this, &FrmPassword::Accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  txtPassword_->setFocus();
}

void FrmPassword::Accept() {
  bool isRight = false;
  const bool checked = RunCommand(platform_.prompts, [&] {
    isRight = check_(FromQt(txtPassword_->text().trimmed()));
    if (isRight && chkEnableLogin_->isVisibleTo(this)) {
      Settings(platform_.registry).SetOn(Setting::Login, chkEnableLogin_->isChecked());
    }
  });
  if (isRight) return accept();
  if (checked) {
    platform_.prompts.Tell("Password warning", "Incorrect password entered", Icon::Information);
  }
  txtPassword_->selectAll();
  txtPassword_->setFocus();
}

}  // namespace corvanta
