#include "entry/FrmAccountTrans.h"

#include "controls/AmountEdit.h"
#include "controls/ChoiceRow.h"
#include "controls/CommandEdge.h"
#include "controls/DateField.h"
#include "controls/PickBox.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "entry/ucCategoryBoxes.h"
#include "ledger/transactions/TransactionStatus.h"
#include "platform/CurrencyDecimals.h"
#include "platform/Platform.h"
#include "platform/Settings.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace corvanta::inline entry {

FrmAccountTrans::FrmAccountTrans(const EntryPlace& place, std::int64_t accountId)
    : FrmEntry(QStringLiteral("FrmAccountTrans"), tr("Transaction"), place, accountId),
      editor_(place.ledger, place.platform, place.rates),
      txtDate_(new DateField(place.platform.locale, place.platform.clock, this)),
      lblArrives_(new QLabel(this)),
      txtAmountTo_(new AmountEdit(place.platform.locale, this, AmountText::Rounded)),
      lblCurrencyTo_(new QLabel(this)),
      opPayment_(new ChoiceRow(QStringLiteral("opPayment"),
                               {{0, tr("Uncleared")}, {1, tr("Cleared")}, {2, tr("Reconciled")}},
                               this)) {
  MakeFields();
  MakeTools();
  AddButtons();
  KeepNotePlace();
  ConnectFields();
}

// The window does not move under the hand of whoever enters one transaction after the other.
void FrmAccountTrans::KeepNotePlace() {
  auto* note = findChild<QLabel*>(QStringLiteral("lblNote"));
  QSizePolicy policy = note->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  note->setSizePolicy(policy);
  note->setMinimumHeight(note->fontMetrics().lineSpacing());
}

void FrmAccountTrans::MakeFields() {
  auto* currency = MakeButton(tr("C&urrency..."), "cmdCurrencyLookup");
  currency->setToolTip(tr("Currency Lookup"));
  connect(currency, &QPushButton::clicked, this, &FrmAccountTrans::LookUpCurrency);
  AddAccountRows();
  AddField(tr("Dat&e:"), txtDate_, "txtDate");
  MakeArrival();
  AddPayeeRows({lblArrives_, txtAmountTo_, lblCurrencyTo_, currency});
  AddTextRows();
  AddField(tr("Status:"), opPayment_, "opPayment");
  // The rows above are filled already in a new transaction.
  SetFirstField(txtDate_);
}

void FrmAccountTrans::MakeArrival() {
  // Neither amount is squeezed by the other.
  const int wide = fontMetrics().horizontalAdvance(QStringLiteral("-10,000,000.00")) + 2 * kRhythm;
  for (AmountEdit* amount : {txtAmount_, txtAmountTo_}) amount->setMinimumWidth(wide);
  lblArrives_->setText(QStringLiteral("→"));
  txtAmountTo_->setObjectName(QStringLiteral("txtAmountTo"));
  txtAmountTo_->setAccessibleName(tr("Amount that arrives"));
  txtAmountTo_->setToolTip(
      tr("What arrives in the other account. Left empty it is worked out when you save."));
  txtAmountTo_->setPlaceholderText(tr("at its rate"));
  lblCurrencyTo_->setObjectName(QStringLiteral("lblCurrencyTo"));
  txtAmountTo_->SetMayBeEmpty();
  connect(txtAmountTo_, &QLineEdit::textEdited, this,
          [this](const QString& text) { isArrivalTyped_ = !text.trimmed().isEmpty(); });
  connect(txtAmountTo_, &QLineEdit::editingFinished, this, &FrmAccountTrans::ShowArrival);
}

void FrmAccountTrans::ShowArrival() {
  RunCommand(place_.platform.prompts, [this] {
    TransactionForm form = form_;
    form.type = Type();
    form.accountId = cmbAccount_->Key();
    form.accountToId = cmbAccountTo_->Key();
    form.amount = txtAmount_->Amount();
    form.amountTo.reset();
    const bool isConverted = editor_.IsConverted(form);
    for (QWidget* part :
         std::initializer_list<QWidget*>{lblArrives_, txtAmountTo_, lblCurrencyTo_}) {
      part->setVisible(isConverted);
    }
    if (!isConverted) return;
    const std::string currency = editor_.CurrencyOf(form.accountToId);
    lblCurrencyTo_->setText(ToQt(currency));
    txtAmountTo_->SetDecimals(CurrencyDecimals(currency));
    if (isArrivalTyped_) return;
    const auto known = editor_.KnownArrival(form);
    txtAmountTo_->SetAmount(known.value_or(0));
    if (!known) txtAmountTo_->clear();
  });
}

void FrmAccountTrans::MakeTools() {
  cmdAllocate_ = MakeButton(tr("&Allocate..."), "cmdAllocate");
  cmdAutoFill_ = MakeButton(tr("Auto&fill ..."), "cmdAutoFill");
  cmdAutoFill_->setToolTip(tr("Autofill Transactions"));
  cmdAddSchedule_ = MakeButton(tr("Add to Sc&hedule"), "cmdAddSchedule");
  cmdKeywords_ = MakeButton(tr("&Keywords..."), "cmdKeywords");
  cmdAttachments_ = MakeButton(tr("Fi&les..."), "cmdAttachments");
  auto* help = MakeButton(tr("&Help"), "cmdHelp");
  AddTools({cmdAllocate_, cmdAutoFill_, cmdAddSchedule_, cmdKeywords_, cmdAttachments_, help});
  connect(cmdAllocate_, &QPushButton::clicked, this, &FrmAccountTrans::Allocate);
  connect(cmdAutoFill_, &QPushButton::clicked, this, &FrmAccountTrans::Autofill);
  connect(cmdAddSchedule_, &QPushButton::clicked, this, &FrmAccountTrans::OpenSchedule);
  connect(cmdKeywords_, &QPushButton::clicked, this, &FrmAccountTrans::ChooseKeywords);
  connect(cmdAttachments_, &QPushButton::clicked, this, &FrmAccountTrans::OpenFiles);
  connect(help, &QPushButton::clicked, this, &FrmAccountTrans::Help);
}

void FrmAccountTrans::ConnectFields() {
  for (QWidget* field : std::initializer_list<QWidget*>{cmbType_, cmbPayment_, cmbCategory_,
                                                        cmbSubCategory_, txtAmount_}) {
    Watch(field);
  }
  connect(txtAmount_, &QLineEdit::textChanged, this, &FrmAccountTrans::ShowArrival);
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
  if (lastDay_) form.date = *lastDay_;
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
  isArrivalTyped_ = form.IsTransfer() && form.amountTo.has_value();
  if (isArrivalTyped_) txtAmountTo_->SetAmount(*form.amountTo);
  ShowFields(form);
  txtDate_->SetDay(form.date);
  opPayment_->SetChoice(static_cast<int>(form.status));
  ShowSchedule();
  ShowNotes(form.transactionId);
  ShowLines(form.lines);
}

TransactionForm FrmAccountTrans::Form() {
  TransactionForm form = form_;
  ReadFields(form);
  if (form.IsTransfer()) {
    txtAmountTo_->Settle();
    form.amountTo.reset();
    // What is no amount is refused, not worked out.
    const bool isTyped = isArrivalTyped_ && editor_.IsConverted(form);
    if (isTyped) form.amountTo = txtAmountTo_->Amount().value_or(0);
  }
  form.transactionId = Key();
  form.date = txtDate_->Day();
  form.status = static_cast<TransactionStatus>(opPayment_->Choice().value_or(0));
  return form;
}

std::int64_t FrmAccountTrans::Save() {
  const TransactionForm form = Form();
  const std::int64_t key = Saved(editor_.Save(form), editor_);
  if (key != 0) lastDay_ = form.date;
  return key;
}

void FrmAccountTrans::ShowType() {
  FrmEntry::ShowType();
  const bool isTransfer = Type() == EntryType::Transfer;
  cmdAllocate_->setText(isTransfer ? tr("&Transfer...") : tr("&Allocate..."));
  cmdAllocate_->setToolTip(isTransfer ? tr("Edit Transfer Item") : tr("Allocate Item"));
  cmdAutoFill_->setEnabled(!isTransfer);
  ShowArrival();
}

void FrmAccountTrans::ShowSchedule() {
  const bool isPosted = form_.scheduleId != 0;
  cmdAddSchedule_->setText(isPosted ? tr("View S&chedule") : tr("Add to Sc&hedule"));
  cmdAddSchedule_->setToolTip(isPosted ? tr("View Schedule") : tr("Add to Schedule"));
}

}  // namespace corvanta::inline entry
