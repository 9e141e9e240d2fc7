#include "entry/FrmAccountTrans.h"

#include "controls/AmountEdit.h"
#include "controls/ChoiceRow.h"
#include "controls/DateField.h"
#include "controls/PickBox.h"
#include "controls/QtText.h"
#include "entry/FrmCategoryBoxes.h"
#include "platform/Platform.h"
#include "platform/Settings.h"

#include <QLineEdit>
#include <QPushButton>

namespace corvanta {

FrmAccountTrans::FrmAccountTrans(const EntryPlace& place, std::int64_t accountId)
    : FrmEntry(QStringLiteral("FrmAccountTrans"), tr("Transaction"), place),
      accountId_(accountId),
      editor_(place.ledger, place.platform, place.rates),
      txtDate_(new DateField(place.platform.locale, place.platform.clock, this)),
      opPayment_(new ChoiceRow(QStringLiteral("opPayment"),
                               {{0, tr("Uncleared")}, {1, tr("Cleared")}, {2, tr("Reconciled")}},
                               this)) {
  MakeFields();
  MakeTools();
  AddButtons();
  ConnectFields();
}

void FrmAccountTrans::MakeFields() {
  auto* currency = MakeButton(tr("C&urrency..."), "cmdCurrencyLookup");
  currency->setToolTip(tr("Currency Lookup"));
  connect(currency, &QPushButton::clicked, this, &FrmAccountTrans::LookUpCurrency);
  AddAccountRows();
  AddField(tr("Dat&e:"), txtDate_, "txtDate");
  AddPayeeRows({currency});
  AddTextRows();
  AddField(tr("Status:"), opPayment_, "opPayment");
  // The rows above are filled already in a new transaction.
  SetFirstField(txtDate_);
}

void FrmAccountTrans::MakeTools() {
  cmdAllocate_ = MakeButton(tr("&Allocate..."), "cmdAllocate");
  cmdAutoFill_ = MakeButton(tr("Auto&fill ..."), "cmdAutoFill");
  cmdAutoFill_->setToolTip(tr("Autofill Transactions"));
  cmdAddSchedule_ = MakeButton(tr("Add to Sc&hedule"), "cmdAddSchedule");
  auto* help = MakeButton(tr("&Help"), "cmdHelp");
  AddTools({cmdAllocate_, cmdAutoFill_, cmdAddSchedule_, help});
  connect(cmdAllocate_, &QPushButton::clicked, this, &FrmAccountTrans::Allocate);
  connect(cmdAutoFill_, &QPushButton::clicked, this, &FrmAccountTrans::Autofill);
  connect(cmdAddSchedule_, &QPushButton::clicked, this, &FrmAccountTrans::OpenSchedule);
  connect(help, &QPushButton::clicked, this, &FrmAccountTrans::Help);
}

void FrmAccountTrans::ConnectFields() {
  for (QWidget* field : std::initializer_list<QWidget*>{cmbType_, cmbPayment_, cmbCategory_,
                                                        cmbSubCategory_, txtAmount_}) {
    Watch(field);
  }
  connect(txtAmount_, &QLineEdit::textEdited, this, [this] { form_.DropRate(); });
  connect(cmbPayee_, &QComboBox::activated, this, &FrmAccountTrans::Propose);
  connect(cmbPayee_->lineEdit(), &QLineEdit::editingFinished, this, &FrmAccountTrans::Propose);
}

void FrmAccountTrans::Watch(QWidget* field) {
  auto* line = qobject_cast<QLineEdit*>(field);
  if (auto* box = qobject_cast<QComboBox*>(field)) {
    line = box->lineEdit();
    connect(box, &QComboBox::activated, this, [this, field] { Touch(field); });
  }
  if (line != nullptr) {
    connect(line, &QLineEdit::textEdited, this, [this, field] { Touch(field); });
  }
}

void FrmAccountTrans::Clear() {
  if (IsChanged() && place_.changed) place_.changed();
  touched_.clear();
  TransactionForm form = editor_.New(accountId_);
  form.status =
      static_cast<TransactionStatus>(Settings(place_.platform.registry).Choice(Setting::Payment));
  Show(form);
}

bool FrmAccountTrans::Load(std::int64_t key) {
  const auto form = editor_.Load(key);
  if (!form) return false;
  if (accountId_ == 0) accountId_ = form->accountId;
  Show(*form);
  return true;
}

void FrmAccountTrans::SetDay(Date day) {
  txtDate_->SetDay(day);
  FocusFirstField();
  KeepContents();
}

void FrmAccountTrans::Prefill(const TransactionForm& form) {
  TransactionForm shown = form;
  shown.status = Form().status;
  Show(shown);
  // It was typed, if in another dialog.
  Touch(cmbType_);
  if (form.amount.value_or(0) != 0) Touch(txtAmount_);
  if (!form.category.empty()) Touch(cmbCategory_);
  if (!form.payment.empty()) Touch(cmbPayment_);
  Propose();
}

void FrmAccountTrans::Show(const TransactionForm& form) {
  form_ = form;
  proposedFor_.clear();
  ShowFields(form);
  txtDate_->SetDay(form.date);
  opPayment_->SetChoice(static_cast<int>(form.status));
  ShowSchedule();
}

TransactionForm FrmAccountTrans::Form() {
  TransactionForm form = form_;
  ReadFields(form);
  form.transactionId = Key();
  form.date = txtDate_->Day();
  form.status = static_cast<TransactionStatus>(opPayment_->Choice().value_or(0));
  return form;
}

std::int64_t FrmAccountTrans::Save() {
  const std::int64_t key = editor_.Save(Form());
  if (key == 0) FocusOn(editor_.DeclinedField());
  return key;
}

void FrmAccountTrans::ShowType() {
  FrmEntry::ShowType();
  const bool isTransfer = Type() == EntryType::Transfer;
  cmdAllocate_->setText(isTransfer ? tr("&Transfer...") : tr("&Allocate..."));
  cmdAllocate_->setToolTip(isTransfer ? tr("Edit Transfer Item") : tr("Allocate Item"));
  cmdAutoFill_->setEnabled(!isTransfer);
}

void FrmAccountTrans::ShowSchedule() {
  const bool isPosted = form_.scheduleId != 0;
  cmdAddSchedule_->setText(isPosted ? tr("View S&chedule") : tr("Add to Sc&hedule"));
  cmdAddSchedule_->setToolTip(isPosted ? tr("View Schedule") : tr("Add to Schedule"));
}

}  // namespace corvanta
