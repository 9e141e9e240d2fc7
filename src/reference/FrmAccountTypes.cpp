#include "reference/FrmAccountTypes.h"

#include "controls/QtText.h"
#include "platform/Platform.h"

#include <QLineEdit>

namespace corvanta {

FrmAccountTypes::FrmAccountTypes(Platform& platform, clsCorvanta& ledger, QWidget* parent)
    : EditorDialog(QStringLiteral("FrmAccountTypes"), tr("Account Group"), platform.prompts,
                   parent),
      editor_(ledger, platform.prompts),
      txtAccountType_(new QLineEdit(this)),
      txtDescription_(new QLineEdit(this)) {
  AddField(tr("&Account Group:"), txtAccountType_, "txtAccountType");
  AddField(tr("Desc&ription:"), txtDescription_, "txtDescription");
  AddButtons();
}

bool FrmAccountTypes::Load(std::int64_t key) {
  const auto row = editor_.Load(key);
  if (row) Show(*row);
  return row.has_value();
}

bool FrmAccountTypes::Delete() {
  const Deletion deletion = editor_.Delete(Key());
  Note(ToQt(deletion.Notice()));
  return deletion.isGone;
}

QString FrmAccountTypes::ItemName() const {
  return txtAccountType_->text().trimmed();
}

void FrmAccountTypes::Show(const AccountGroupRecord& row) {
  txtAccountType_->setText(ToQt(row.accountType));
  txtDescription_->setText(ToQt(row.description));
}

AccountGroupRecord FrmAccountTypes::Form() const {
  AccountGroupRecord form;
  form.accountTypeId = Key();
  form.accountType = FromQt(txtAccountType_->text());
  form.description = FromQt(txtDescription_->text());
  return form;
}

}  // namespace corvanta
