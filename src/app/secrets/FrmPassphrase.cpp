#include "app/secrets/FrmPassphrase.h"

#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/secrets/PassphrasePrompt.h"
#include "platform/Platform.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

namespace corvanta::inline app {
namespace {
constexpr int kTextWidth = 56 * kRhythm;
}  // namespace

FrmPassphrase::FrmPassphrase(bool isSet, Platform& platform, QWidget* parent)
    : FormDialog(QStringLiteral("FrmPassphrase"), platform.prompts, parent),
      txtPassphrase_(MakeSecret()),
      txtPassphraseAgain_(MakeSecret()),
      chkShowPwd_(new QCheckBox(tr("Sho&w the passphrase"), this)),
      chkKey_(new QCheckBox(tr("&No passphrase: open it on this computer without asking"), this)) {
  setWindowTitle(tr("Passphrase"));
  auto* explanation = new MutedLabel(this);
  explanation->setText(tr(
      "With a passphrase the data file is encrypted anew, and opens on every computer with it and "
      "with nothing else: Corvanta asks for it at each start. The recovery key opens the file no "
      "more. Backups that were made before keep the key they were made with. Nobody can find out "
      "a passphrase that is forgotten."));
  explanation->setWordWrap(true);
  explanation->setMinimumWidth(kTextWidth);
  AddAbove(explanation);
  MakeFields(isSet);
  auto* accept = MakeButton(tr("&Encrypt"), "cmdAccept");
  auto* cancel = MakeButton(tr("Cancel"), "cmdCancel");
  accept->setDefault(true);
  AddButtonRow({}, {accept, cancel});
  connect(accept, &QPushButton::clicked, this, &FrmPassphrase::Accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

QLineEdit* FrmPassphrase::MakeSecret() {
  auto* field = new QLineEdit(this);
  field->setEchoMode(QLineEdit::Password);
  return field;
}

void FrmPassphrase::MakeFields(bool isSet) {
  AddField(isSet ? tr("New &passphrase:") : tr("&Passphrase:"), txtPassphrase_, "txtPassphrase");
  AddField(tr("Once &more:"), txtPassphraseAgain_, "txtPassphraseAgain");
  AddTick(chkShowPwd_, "chkShowPwd");
  AddTick(chkKey_, "chkKey");
  chkKey_->setVisible(isSet);
  connect(chkShowPwd_, &QCheckBox::toggled, this, &FrmPassphrase::Show);
  connect(chkKey_, &QCheckBox::toggled, this, [this](bool isKey) {
    txtPassphrase_->setEnabled(!isKey);
    txtPassphraseAgain_->setEnabled(!isKey);
  });
}

void FrmPassphrase::Show(bool show) {
  for (QLineEdit* field : {txtPassphrase_, txtPassphraseAgain_}) {
    field->setEchoMode(show ? QLineEdit::Normal : QLineEdit::Password);
  }
}

void FrmPassphrase::Accept() {
  if (!chkKey_->isChecked()) {
    const std::string typed = FromQt(txtPassphrase_->text());
    const std::string again = FromQt(txtPassphraseAgain_->text());
    if (const auto warning = CheckNewPassphrase(typed, again)) return Warn(*warning);
    chosen_ = typed;
  }
  accept();
}

}  // namespace corvanta::inline app
