#include "entry/FrmAccountAuto.h"

#include "controls/AmountEdit.h"
#include "controls/ChoiceRow.h"
#include "controls/CommandEdge.h"
#include "controls/DateField.h"
#include "controls/PickBox.h"
#include "controls/PickItems.h"
#include "controls/QtText.h"
#include "entry/ucCategoryBoxes.h"
#include "ledger/accounts/CurrencyOf.h"
#include "platform/CurrencyDecimals.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace corvanta::inline entry {
namespace {

constexpr const char* kHelp =
    "Type date, amount, payee and category. Payment type, reference and description are those of "
    "the latest transaction of this account with the same payee and category; there must be "
    "one.\n\n"
    "More Details goes on in the full editor with what you have typed.";

}  // namespace

FrmAccountAuto::FrmAccountAuto(const EntryPlace& place, std::int64_t accountId)
    : EditorDialog(QStringLiteral("FrmAccountAuto"), tr("Transaction"), place.platform.prompts,
                   place.parent),
      place_(place),
      accountId_(accountId),
      editor_(place.ledger, place.platform),
      txtDate_(new DateField(place.platform.locale, place.platform.clock, this)),
      txtAmount_(new AmountEdit(place.platform.locale, this, AmountText::Rounded)),
      lblCurrency_(new QLabel(this)),
      opType_(
          new ChoiceRow(QStringLiteral("opType"), {{0, tr("&Expense")}, {1, tr("&Income")}}, this)),
      cmbPayee_(new PickBox(this)),
      cmbCategory_(new PickBox(this)) {
  MakeFields();
  auto* full = MakeButton(tr("More Details..."), "cmdFull");
  full->setToolTip(tr("Use the full transaction dialogue"));
  auto* help = MakeButton(tr("&Help"), "cmdHelp");
  AddTools({full, help});
  AddButtons(false);
  connect(full, &QPushButton::clicked, this, &FrmAccountAuto::OpenDetails);
  connect(help, &QPushButton::clicked, this, &FrmAccountAuto::Help);
}

void FrmAccountAuto::MakeFields() {
  lblCurrency_->setObjectName(QStringLiteral("lblCurrency"));
  AddField(tr("D&ate:"), txtDate_, "txtDate");
  AddField(tr("Am&ount:"), txtAmount_, "txtAmount", lblCurrency_);
  AddField(tr("Type:"), opType_, "opType");
  AddField(tr("&Payee:"), cmbPayee_, "cmbPayee");
  AddField(tr("Cate&gory:"), cmbCategory_, "cmbCategory");
  connect(cmbPayee_, &QComboBox::activated, this, &FrmAccountAuto::Propose);
  connect(cmbPayee_->lineEdit(), &QLineEdit::editingFinished, this, &FrmAccountAuto::Propose);
  const auto chosen = [this] { isCategoryChosen_ = true; };
  connect(cmbCategory_, &QComboBox::activated, this, chosen);
  connect(cmbCategory_->lineEdit(), &QLineEdit::textEdited, this, chosen);
}

void FrmAccountAuto::Clear() {
  if (IsChanged() && place_.changed) place_.changed();
  AutofillForm form = editor_.New(accountId_);
  if (lastDay_) form.date = *lastDay_;
  isCategoryChosen_ = false;
  Show(form);
}

std::int64_t FrmAccountAuto::Save() {
  const AutofillForm form = Form();
  const std::int64_t key = editor_.Save(form);
  if (key != 0) lastDay_ = form.date;
  return key;
}

void FrmAccountAuto::Propose() {
  if (!IsNew() || isCategoryChosen_) return;
  RunCommand(place_.platform.prompts, [this] {
    const std::int64_t category = editor_.ProposeCategory(accountId_, cmbPayee_->Key());
    if (category != 0) cmbCategory_->SetKey(category);
  });
}

bool FrmAccountAuto::Load(std::int64_t key) {
  const auto form = editor_.Load(key);
  if (!form) return false;
  if (accountId_ == 0) accountId_ = form->accountId;
  Show(*form);
  return true;
}

void FrmAccountAuto::Show(const AutofillForm& form) {
  form_ = form;
  FillBox(*cmbPayee_, PayeeChoices(place_.ledger));
  FillBox(*cmbCategory_, CategoryPairs(place_.ledger));
  txtDate_->SetDay(form.date);
  txtAmount_->SetAmount(form.amount.value_or(0));
  opType_->SetChoice(form.type == EntryType::Income ? 1 : 0);
  cmbPayee_->SetKey(form.payeeId);
  cmbCategory_->SetKey(form.categoryId);
  const std::string currency = CurrencyOf(place_.ledger, form.accountId);
  lblCurrency_->setText(ToQt(currency));
  txtAmount_->SetDecimals(CurrencyDecimals(currency));
}

AutofillForm FrmAccountAuto::Form() {
  txtAmount_->Settle();
  AutofillForm form = form_;
  form.transactionId = Key();
  form.date = txtDate_->Day();
  form.amount = txtAmount_->Amount();
  const auto type = opType_->Choice();
  form.type = !type ? EntryType::None : *type == 1 ? EntryType::Income : EntryType::Expense;
  form.payeeId = cmbPayee_->Key();
  form.categoryId = cmbCategory_->Key();
  return form;
}

QString FrmAccountAuto::ItemName() const {
  return tr("%1, %2").arg(cmbPayee_->currentText().trimmed(), txtAmount_->text());
}

void FrmAccountAuto::OpenDetails() {
  Run([this] {
    const TransactionForm details = editor_.Details(Form(), FromQt(cmbPayee_->currentText()),
                                                    FromQt(cmbCategory_->currentText()));
    const EntryResult result = OpenTransaction({0, accountId_, details}, place_);
    isScheduleChanged_ = isScheduleChanged_ || result.isScheduleChanged;
    if (result.isChanged) MarkSaved(result.savedKey);
    accept();
  });
}

void FrmAccountAuto::Help() {
  place_.platform.prompts.Tell("Autofill Transactions", kHelp);
}

}  // namespace corvanta::inline entry
