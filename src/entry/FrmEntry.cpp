#include "entry/FrmEntry.h"

#include "controls/AmountEdit.h"
#include "controls/CommandEdge.h"
#include "controls/MutedLabel.h"
#include "controls/PickBox.h"
#include "controls/PickItems.h"
#include "controls/QtText.h"
#include "entry/ucCategoryBoxes.h"
#include "ledger/accounts/CurrencyOf.h"
#include "platform/CurrencyDecimals.h"
#include "platform/Platform.h"
#include "reference/AccountChoices.h"

#include <QLabel>
#include <QLineEdit>

#include <cmath>

namespace corvanta::inline entry {

FrmEntry::FrmEntry(const QString& name, const QString& what, const EntryPlace& place,
                   std::int64_t accountId)
    : EditorDialog(name, what, place.platform.prompts, place.parent),
      place_(place),
      accountId_(accountId),
      cmbAccount_(new PickBox(this)),
      cmbType_(new QComboBox(this)),
      cmbPayee_(new PickBox(this)),
      cmbAccountTo_(new PickBox(this)),
      cmbCategory_(new PickBox(this)),
      cmbSubCategory_(new PickBox(this)),
      categories_(new ucCategoryBoxes(place.ledger, place.platform.prompts, *cmbCategory_,
                                      *cmbSubCategory_, this)),
      cmbPayment_(new PickBox(this)),
      txtAmount_(new AmountEdit(place.platform.locale, this, AmountText::Rounded)),
      lblCurrency_(new QLabel(this)),
      lblSplit_(new MutedLabel(this)),
      txtReference_(new QLineEdit(this)),
      txtDescription_(new QLineEdit(this)) {
  for (const auto type : {EntryType::Expense, EntryType::Income, EntryType::Transfer}) {
    cmbType_->addItem(QLatin1String(TextOf(type)), static_cast<int>(type));
  }
  lblCurrency_->setObjectName(QStringLiteral("lblCurrency"));
  lblSplit_->setObjectName(QStringLiteral("lblSplit"));
  lblSplit_->hide();
  cmbAccountTo_->setObjectName(QStringLiteral("cmbAccountTo"));
  cmbAccountTo_->setAccessibleName(tr("To"));
  cmbAccountTo_->hide();
  ConnectFields();
}

void FrmEntry::AddAccountRows() {
  lblAccount_ = AddField(tr("Accounts:"), cmbAccount_, "cmbAccount");
  AddField(tr("T&ype:"), cmbType_, "cmbType");
}

void FrmEntry::AddPayeeRows(const std::vector<QWidget*>& besideAmount) {
  std::vector<QWidget*> beside = besideAmount;
  beside.insert(beside.begin(), lblCurrency_);
  lblPayee_ = AddField(tr("&Payee:"), cmbPayee_, "cmbPayee", cmbAccountTo_);
  AddField(tr("Cate&gory:"), cmbCategory_, "cmbCategory", lblSplit_);
  AddField(tr("Su&b Category:"), cmbSubCategory_, "cmbSubCategory");
  AddField(tr("Pay&ment Type:"), cmbPayment_, "cmbPayment");
  AddField(tr("Am&ount:"), txtAmount_, "txtAmount", beside);
}

void FrmEntry::AddTextRows() {
  AddField(tr("&Reference:"), txtReference_, "txtReference");
  AddField(tr("Descr&iption:"), txtDescription_, "txtDescription");
}

void FrmEntry::ConnectFields() {
  connect(cmbType_, &QComboBox::currentIndexChanged, this, &FrmEntry::ChooseType);
  for (PickBox* account : {cmbAccount_, cmbAccountTo_}) {
    connect(account, &QComboBox::currentTextChanged, this, &FrmEntry::ChooseAccount);
  }
}

void FrmEntry::ChooseType() {
  if (isShowing_) return;
  isShowing_ = true;
  ApplyType();
  isShowing_ = false;
  ShowType();
  ShowCurrency();
}

void FrmEntry::ChooseAccount() {
  if (isShowing_) return;
  ApplyAccount();
  ShowCurrency();
}

void FrmEntry::ShowFields(const EntryForm& form) {
  isShowing_ = true;
  const auto accounts = AccountChoices(place_.ledger, {form.accountId, form.accountToId});
  FillBox(*cmbAccount_, accounts);
  FillBox(*cmbAccountTo_, accounts);
  FillBox(*cmbPayee_, PayeeChoices(place_.ledger));
  FillBox(*cmbPayment_, PaymentChoices(place_.ledger));
  cmbAccount_->SetKey(form.accountId);
  cmbAccountTo_->SetKey(form.accountToId);
  SetType(form.type);
  cmbPayee_->setEditText(ToQt(form.payee));
  categories_->Show(form.category, form.subCategory);
  cmbPayment_->setEditText(ToQt(form.payment));
  txtAmount_->SetAmount(form.amount.value_or(0));
  txtReference_->setText(ToQt(form.reference));
  txtDescription_->setText(ToQt(form.description));
  isShowing_ = false;
  ShowType();
  ShowCurrency();
}

void FrmEntry::ReadFields(EntryForm& form) {
  txtAmount_->Settle();
  form.type = Type();
  form.accountId = cmbAccount_->Key();
  form.accountToId = form.type == EntryType::Transfer ? cmbAccountTo_->Key() : 0;
  form.payee = FromQt(cmbPayee_->currentText());
  form.payment = FromQt(cmbPayment_->currentText());
  form.category = categories_->Category();
  form.subCategory = categories_->SubCategory();
  form.amount = txtAmount_->Amount();
  form.reference = FromQt(txtReference_->text());
  form.description = FromQt(txtDescription_->text());
}

EntryType FrmEntry::Type() const {
  return static_cast<EntryType>(cmbType_->currentData().toInt());
}

void FrmEntry::SetType(EntryType type) {
  cmbType_->setCurrentIndex(cmbType_->findData(static_cast<int>(type)));
}

void FrmEntry::OpenLines(AllocationSource source) {
  EntryForm form;
  ReadFields(form);
  if (const auto warning = EntryEditor::CheckAllocate(form)) return Warn(*warning);
  // Lines need a row to belong to.
  if (IsNew() && (!SaveRow() || !Open(SavedKey()))) return;
  ReadFields(form);
  const EntryResult lines =
      OpenAllocation({Key(), source, form.amount.value_or(0), SignOf(form.type),
                      CurrencyOf(place_.ledger, form.accountId)},
                     Place());
  ApplyLines(lines.isChanged);
}

void FrmEntry::ReadBack(bool isChanged, bool hasLines, double amount) {
  const bool wasEdited = IsEdited();
  if (isChanged) MarkChanged();
  // What was typed for a row that has no lines yet is not to be lost.
  if (isChanged || hasLines) txtAmount_->SetAmount(std::fabs(amount));
  if (isChanged && amount * SignOf(Type()) < 0) {
    SetType(amount > 0 ? EntryType::Income : EntryType::Expense);
  }
  if (!wasEdited) KeepContents();
}

void FrmEntry::ShowLines(std::size_t count) {
  lblSplit_->setText(count == 1 ? tr("split, 1 part") : tr("split into %1").arg(count));
  lblSplit_->setVisible(count > 0);
}

EntryPlace FrmEntry::Place() {
  EntryPlace place = place_;
  place.parent = this;
  return place;
}

std::int64_t FrmEntry::Saved(std::int64_t key, const EntryEditor& editor) {
  if (key == 0) FocusOn(editor.DeclinedField());
  return key;
}

QString FrmEntry::ItemName() const {
  const bool isTransfer = Type() == EntryType::Transfer;
  const QString whom = isTransfer ? cmbAccountTo_->currentText() : cmbPayee_->currentText();
  return tr("%1, %2").arg(whom.trimmed(), txtAmount_->text());
}

void FrmEntry::ShowType() {
  const bool isTransfer = Type() == EntryType::Transfer;
  Relabel(*lblAccount_, isTransfer ? tr("From:") : tr("Accounts:"), *cmbAccount_);
  PickBox& whom = isTransfer ? *cmbAccountTo_ : *cmbPayee_;
  Relabel(*lblPayee_, isTransfer ? tr("To:") : tr("&Payee:"), whom);
  // One goes before the other comes: for both side by side the window would grow, and stay so.
  PickBox& other = isTransfer ? *cmbPayee_ : *cmbAccountTo_;
  other.hide();
  whom.show();
}

void FrmEntry::ShowCurrency() {
  RunCommand(place_.platform.prompts, [this] {
    const std::string currency = CurrencyOf(place_.ledger, cmbAccount_->Key());
    lblCurrency_->setText(ToQt(currency));
    txtAmount_->SetDecimals(CurrencyDecimals(currency));
  });
}

}  // namespace corvanta::inline entry
