#include "reference/FrmPayees.h"

#include "controls/QtText.h"
#include "ledger/ReferenceRecords.h"
#include "platform/Platform.h"
#include "reference/ReferenceDialogs.h"

#include <QLineEdit>
#include <QPushButton>

namespace corvanta {

FrmPayees::FrmPayees(Platform& platform, clsCorvanta& ledger, QWidget* parent)
    : EditorDialog(QStringLiteral("FrmPayees"), tr("Payee"), platform.prompts, parent),
      platform_(platform),
      ledger_(ledger),
      editor_(ledger, platform.prompts),
      txtPayee_(new QLineEdit(this)),
      txtDescription_(new QLineEdit(this)) {
  AddField(tr("&Payee:"), txtPayee_, "txtPayee");
  AddField(tr("Desc&ription:"), txtDescription_, "txtDescription");
  auto* merge = new QPushButton(tr("&Merge..."), this);
  merge->setObjectName(QStringLiteral("cmdMerge"));
  merge->setToolTip(tr("Move everything of this payee to another one"));
  connect(merge, &QPushButton::clicked, this, &FrmPayees::Merge);
  AddEditButton(merge);
  AddButtons();
}

bool FrmPayees::Load(std::int64_t key) {
  const auto row = editor_.Load(key);
  if (row) Show(*row);
  return row.has_value();
}

bool FrmPayees::Delete() {
  const Deletion deletion = editor_.Delete(Key());
  Note(ToQt(deletion.Notice()));
  return deletion.isGone;
}

QString FrmPayees::ItemName() const {
  return txtPayee_->text().trimmed();
}

void FrmPayees::Show(const PayeeRecord& row) {
  txtPayee_->setText(ToQt(row.payee));
  txtDescription_->setText(ToQt(row.description));
}

PayeeRecord FrmPayees::Form() const {
  PayeeRecord form;
  form.payeeId = Key();
  form.payee = FromQt(txtPayee_->text());
  form.description = FromQt(txtDescription_->text());
  return form;
}

void FrmPayees::Merge() {
  Run([this] {
    if (OpenMerge(MergeKind::Payee, Key(), {platform_, ledger_, this})) MarkChanged();
  });
}

}  // namespace corvanta
