#include "reference/FrmBanks.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/ReferenceRecords.h"
#include "platform/Platform.h"

#include <QLineEdit>
#include <QPlainTextEdit>

namespace corvanta {
namespace {
constexpr int kAddressLines = 3;
}

FrmBanks::FrmBanks(Platform& platform, clsCorvanta& ledger, QWidget* parent)
    : EditorDialog(QStringLiteral("FrmBanks"), tr("Bank"), platform.prompts, parent),
      editor_(ledger, platform.prompts),
      txtBank_(new QLineEdit(this)),
      txtAddress_(new QPlainTextEdit(this)),
      txtPostcode_(new QLineEdit(this)),
      txtTelephone_(new QLineEdit(this)),
      txtAccount_(new QLineEdit(this)),
      txtSortcode_(new QLineEdit(this)),
      txtWeb_(new QLineEdit(this)),
      txtDescription_(new QLineEdit(this)) {
  txtAddress_->setTabChangesFocus(true);
  txtAddress_->setFixedHeight(kAddressLines * fontMetrics().lineSpacing() + 2 * kRhythm);
  AddField(tr("&Bank:"), txtBank_, "txtBank");
  AddField(tr("&Address:"), txtAddress_, "txtAddress");
  AddField(tr("&Postcode:"), txtPostcode_, "txtPostcode");
  AddField(tr("&Telephone:"), txtTelephone_, "txtTelephone");
  AddField(tr("C&ustomer Reference:"), txtAccount_, "txtAccount");
  AddField(tr("S&ort Code:"), txtSortcode_, "txtSortcode");
  AddField(tr("&Web Address:"), txtWeb_, "txtWeb");
  AddField(tr("Desc&ription:"), txtDescription_, "txtDescription");
  AddButtons();
}

bool FrmBanks::Load(std::int64_t key) {
  const auto row = editor_.Load(key);
  if (row) Show(*row);
  return row.has_value();
}

bool FrmBanks::Delete() {
  const Deletion deletion = editor_.Delete(Key());
  Note(ToQt(deletion.Notice()));
  return deletion.isGone;
}

QString FrmBanks::ItemName() const {
  return txtBank_->text().trimmed();
}

void FrmBanks::Show(const BankRecord& row) {
  txtBank_->setText(ToQt(row.bank));
  txtAddress_->setPlainText(ToQt(row.address));
  txtPostcode_->setText(ToQt(row.postcode));
  txtTelephone_->setText(ToQt(row.telephone));
  txtAccount_->setText(ToQt(row.account));
  txtSortcode_->setText(ToQt(row.sortcode));
  txtWeb_->setText(ToQt(row.web));
  txtDescription_->setText(ToQt(row.description));
}

BankRecord FrmBanks::Form() const {
  BankRecord form;
  form.bankId = Key();
  form.bank = FromQt(txtBank_->text());
  form.address = FromQt(txtAddress_->toPlainText());
  form.postcode = FromQt(txtPostcode_->text());
  form.telephone = FromQt(txtTelephone_->text());
  form.account = FromQt(txtAccount_->text());
  form.sortcode = FromQt(txtSortcode_->text());
  form.web = FromQt(txtWeb_->text());
  form.description = FromQt(txtDescription_->text());
  return form;
}

}  // namespace corvanta
