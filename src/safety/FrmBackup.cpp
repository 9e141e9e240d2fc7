#include "safety/FrmBackup.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

namespace corvanta::inline safety {
namespace {
constexpr int kPathWidth = 52 * kRhythm;
}

FrmBackup::FrmBackup(const BackedFile& file, const SafetyPlace& place)
    : FormDialog(QStringLiteral("FrmBackup"), place.platform.prompts, place.parent),
      place_(place),
      editor_(file, place.platform, place.writer),
      txtBackup_(new QLineEdit(this)),
      chkBackupstore_(new QCheckBox(tr("&Attached files, too"), this)),
      chkTransfer_(new QCheckBox(tr("Write a &transfer file beside it"), this)) {
  setWindowTitle(tr("Backup"));
  auto* browse = MakeButton(tr("B&rowse..."), "cmdBrowse");
  txtBackup_->setMinimumWidth(kPathWidth);
  AddField(tr("&Backup file:"), txtBackup_, "txtBackup", browse);
  AddTick(chkBackupstore_, "chkBackupstore");
  AddTick(chkTransfer_, "chkTransfer");
  chkBackupstore_->setToolTip(tr("Copies the folder FileStore, in which attached files are kept"));
  chkTransfer_->setToolTip(
      tr("It holds the key of the data file and your settings, for another machine. Whoever has it "
         "and the backup can read your accounts."));
  auto* accept = MakeButton(tr("Back &Up"), "cmdAccept");
  accept->setDefault(true);
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  AddButtonRow({}, {accept, cancel});
  connect(browse, &QPushButton::clicked, this, &FrmBackup::Browse);
  connect(accept, &QPushButton::clicked, this, &FrmBackup::Accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  Run([this] {
    const BackupForm form = editor_.Load();
    txtBackup_->setText(ToQt(form.path));
    chkBackupstore_->setChecked(form.wishes.withFileStore);
    Note(ToQt(editor_.State()));
  });
  FocusFirstField();
}

void FrmBackup::Browse() {
  const auto path = place_.platform.prompts.SaveFile(
      {"Save Backup File As", "Data Files", "*.dat", "dat", std::string()});
  if (path) txtBackup_->setText(ToQt(*path));
}

void FrmBackup::Accept() {
  Run([this] {
    const BackupForm form{FromQt(txtBackup_->text().trimmed()),
                          {chkBackupstore_->isChecked(), chkTransfer_->isChecked()}};
    if (const auto warning = editor_.Check(form)) return Warn(*warning);
    const bool writesKey = form.wishes.withTransfer && place_.mayWriteKey;
    if (writesKey && !place_.mayWriteKey()) return;
    const auto result = editor_.Save(form);
    if (!result) return FocusOn(*txtBackup_);
    place_.platform.prompts.Tell("Backup", "The data file is backed up as " + result->path + ".");
    MarkChanged();
    accept();
  });
}

}  // namespace corvanta::inline safety
