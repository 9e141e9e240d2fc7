#include "reference/FrmPayments.h"

#include "controls/QtText.h"
#include "platform/Platform.h"

#include <QLineEdit>

namespace corvanta {

FrmPayments::FrmPayments(Platform& platform, clsCorvanta& ledger, QWidget* parent)
    : EditorDialog(QStringLiteral("FrmPayments"), tr("Payment Type"), platform.prompts, parent),
      editor_(ledger, platform.prompts),
      txtPayment_(new QLineEdit(this)),
      txtDescription_(new QLineEdit(this)) {
  AddField(tr("&Payment Type:"), txtPayment_, "txtPayment");
  AddField(tr("Desc&ription:"), txtDescription_, "txtDescription");
  AddButtons();
}

bool FrmPayments::Load(std::int64_t key) {
  const auto row = editor_.Load(key);
  if (row) Show(*row);
  return row.has_value();
}

bool FrmPayments::Delete() {
  const Deletion deletion = editor_.Delete(Key());
  Note(ToQt(deletion.Notice()));
  return deletion.isGone;
}

QString FrmPayments::ItemName() const {
  return txtPayment_->text().trimmed();
}

void FrmPayments::Show(const PaymentRecord& row) {
  txtPayment_->setText(ToQt(row.payment));
  txtDescription_->setText(ToQt(row.description));
}

PaymentRecord FrmPayments::Form() const {
  PaymentRecord form;
  form.paymentId = Key();
  form.payment = FromQt(txtPayment_->text());
  form.description = FromQt(txtDescription_->text());
  return form;
}

}  // namespace corvanta
