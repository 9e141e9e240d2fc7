#include "entry/FrmAccountTransMulti.h"

#include "controls/ChoiceRow.h"
#include "controls/MutedLabel.h"
#include "controls/PickBox.h"
#include "controls/PickItems.h"
#include "controls/QtText.h"
#include "entry/ucCategoryBoxes.h"
#include "ledger/transactions/BulkChange.h"
#include "ledger/transactions/TransactionStatus.h"
#include "notes/NoteDialogs.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "reference/AccountChoices.h"

#include <QLineEdit>
#include <QPushButton>

namespace corvanta::inline entry {
namespace {

// Behind the codes of the three statuses.
constexpr int kUnchanged = 3;

constexpr const char* kHelp =
    "What you fill in is changed in every chosen transaction; what you leave empty stays as it "
    "is.\n\n"
    "Type: Income and Expense turn the amounts that go the other way, Reverse turns all. Transfers "
    "and investment transactions keep theirs. The parts of a split transaction follow it.";

}  // namespace

FrmAccountTransMulti::FrmAccountTransMulti(Keys keys, const EntryPlace& place)
    : FormDialog(QStringLiteral("FrmAccountTransMulti"), place.platform.prompts, place.parent),
      platform_(place.platform),
      ledger_(place.ledger),
      editor_(place.ledger, place.platform),
      keys_(keys.begin(), keys.end()),
      cmbAccount_(new PickBox(this)),
      cmbType_(new QComboBox(this)),
      cmbPayment_(new PickBox(this)),
      cmbPayee_(new PickBox(this)),
      cmbCategory_(new PickBox(this)),
      cmbSubCategory_(new PickBox(this)),
      categories_(new ucCategoryBoxes(place.ledger, place.platform.prompts, *cmbCategory_,
                                      *cmbSubCategory_, this)),
      opPayment_(new ChoiceRow(QStringLiteral("opPayment"),
                               {{0, tr("Uncleared")},
                                {1, tr("Cleared")},
                                {2, tr("Reconciled")},
                                {kUnchanged, tr("Unchanged")}},
                               this)) {
  setWindowTitle(tr("Multiple Account Transactions"));
  auto* count = new MutedLabel(this);
  count->setText(keys.size() == 1 ? tr("1 transaction is chosen.")
                                  : tr("%1 transactions are chosen.").arg(keys.size()));
  count->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  AddAbove(count);
  MakeFields();
  MakeButtons();
  KeepContents();
}

void FrmAccountTransMulti::MakeFields() {
  cmbType_->addItem(tr("Unchanged"), static_cast<int>(TypeChange::None));
  cmbType_->addItem(tr("Income"), static_cast<int>(TypeChange::Income));
  cmbType_->addItem(tr("Expense"), static_cast<int>(TypeChange::Expense));
  cmbType_->addItem(tr("Reverse"), static_cast<int>(TypeChange::Reverse));
  FillBox(*cmbAccount_, AccountChoices(ledger_));
  FillBox(*cmbPayment_, PaymentChoices(ledger_));
  FillBox(*cmbPayee_, PayeeChoices(ledger_));
  categories_->Show({}, {});
  opPayment_->SetChoice(kUnchanged);
  for (PickBox* box : {cmbAccount_, cmbPayment_, cmbPayee_, cmbCategory_, cmbSubCategory_}) {
    box->lineEdit()->setPlaceholderText(tr("Unchanged"));
  }
  AddField(tr("Acc&ount:"), cmbAccount_, "cmbAccount");
  AddField(tr("&Type:"), cmbType_, "cmbType");
  AddField(tr("Pay&ment Type:"), cmbPayment_, "cmbPayment");
  AddField(tr("&Payee:"), cmbPayee_, "cmbPayee");
  AddField(tr("Cate&gory:"), cmbCategory_, "cmbCategory");
  AddField(tr("Su&b Category:"), cmbSubCategory_, "cmbSubCategory");
  AddField(tr("Status:"), opPayment_, "opPayment");
}

void FrmAccountTransMulti::MakeButtons() {
  auto* accept = MakeButton(tr("&Save"), "cmdAccept");
  auto* remove = MakeButton(tr("&Delete"), "cmdDelete");
  auto* help = MakeButton(tr("&Help"), "cmdHelp");
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  auto* keywords = MakeButton(tr("&Keywords..."), "cmdKeywords");
  keywords->setToolTip(tr("Choose keywords for all of the transactions"));
  accept->setDefault(true);
  AddButtonRow({remove, keywords, help}, {accept, cancel});
  connect(keywords, &QPushButton::clicked, this, [this] {
    Run([this] {
      if (OpenKeywords(keys_, {platform_, ledger_, this})) MarkChanged();
    });
  });
  connect(accept, &QPushButton::clicked, this, &FrmAccountTransMulti::Accept);
  connect(remove, &QPushButton::clicked, this, &FrmAccountTransMulti::Delete);
  connect(help, &QPushButton::clicked, this, &FrmAccountTransMulti::Help);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

MultiEditForm FrmAccountTransMulti::Form() const {
  MultiEditForm form;
  form.accountId = cmbAccount_->Key();
  form.type = static_cast<TypeChange>(cmbType_->currentData().toInt());
  form.payment = FromQt(cmbPayment_->currentText());
  form.payee = FromQt(cmbPayee_->currentText());
  form.category = categories_->Category();
  form.subCategory = categories_->SubCategory();
  const int status = opPayment_->Choice().value_or(kUnchanged);
  if (status != kUnchanged) form.status = static_cast<TransactionStatus>(status);
  return form;
}

void FrmAccountTransMulti::Accept() {
  Run([this] {
    const MultiEditForm form = Form();
    if (form.accountId == 0 && !cmbAccount_->currentText().trimmed().isEmpty()) {
      // A name of no account must not pass for an empty field.
      return Warn({"Save Warning", "You need to select an Account", "cmbAccount"});
    }
    if (const auto warning = editor_.Check(form, keys_)) return Warn(*warning);
    if (!WhileShut([&] { return editor_.Save(form, keys_).has_value(); })) {
      return FocusOn(*cmbCategory_);
    }
    MarkChanged();
    accept();
  });
}

// Window messages run between the rows: nothing may be asked for a second time meanwhile.
bool FrmAccountTransMulti::WhileShut(const std::function<bool()>& change) {
  setEnabled(false);
  bool isDone = false;
  try {
    isDone = change();
  } catch (...) {
    setEnabled(true);
    throw;
  }
  setEnabled(true);
  return isDone;
}

void FrmAccountTransMulti::Delete() {
  Run([this] {
    if (!WhileShut([&] { return editor_.Delete(keys_); })) return;
    MarkChanged();
    accept();
  });
}

void FrmAccountTransMulti::Help() {
  platform_.prompts.Tell("Multiple Account Transactions", kHelp);
}

}  // namespace corvanta::inline entry
