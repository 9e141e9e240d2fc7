// What the person does in the editor of transactions beyond filling it in.
#include "controls/AmountEdit.h"
#include "controls/CommandEdge.h"
#include "controls/PickBox.h"
#include "controls/QtText.h"
#include "entry/FrmAccountTrans.h"
#include "entry/ucCategoryBoxes.h"
#include "invest/InvestDialogs.h"
#include "ledger/KeywordBook.h"
#include "ledger/Money.h"
#include "ledger/ReferenceRecords.h"
#include "notes/NoteDialogs.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include <cmath>

namespace corvanta::inline entry {
namespace {

constexpr const char* kEditTransfer = "Edit Transfer Item";

constexpr const char* kHelp =
    "Enter saves from any field; Ctrl+Enter saves and goes on with a new transaction.\n\n"
    "Amount: without a sign, the type says where the money goes. A sum such as 12.50+3*4 is "
    "worked out. A transfer into another currency shows beside it what arrives, which you can "
    "type; "
    "left empty it is worked out at the current rate.\n\n"
    "Date: + and - move by a day, [ and ] by a week, Page Up and Page Down by a month. T is today, "
    "F4 opens a calendar.\n\n"
    "Names complete while you type. A payee or payment type that is new is added to its list, a "
    "category after a question. After a payee is chosen in a new transaction, the last one of that "
    "payee fills what you have not typed.\n\n"
    "A transaction that is split over several categories keeps the sum of its parts as its amount.";

}  // namespace

void FrmAccountTrans::ApplyType() {
  TransactionForm form = Form();
  form.type = form_.type;
  form.accountToId = cmbAccountTo_->Key();
  form.amountTo = form_.amountTo;
  if (form_.IsTransfer()) {
    form.amountTo = isArrivalTyped_ ? txtAmountTo_->Amount() : std::nullopt;
  }
  TransactionEditor::ChooseType(form, Type());
  form_.type = form.type;
  form_.amountTo = form.amountTo;
  isArrivalTyped_ = form.IsTransfer() && form.amountTo.has_value();
  if (isArrivalTyped_) txtAmountTo_->SetAmount(*form.amountTo);
  cmbAccount_->SetKey(form.accountId);
  cmbAccountTo_->SetKey(form.accountToId);
  cmbCategory_->setEditText(ToQt(form.category));
  if (form.amount != txtAmount_->Amount()) txtAmount_->SetAmount(form.amount.value_or(0));
}

void FrmAccountTrans::Propose() {
  const QString payee = cmbPayee_->currentText().trimmed();
  if (!IsNew() || Type() == EntryType::Transfer || payee == proposedFor_) return;
  proposedFor_ = payee;
  RunCommand(place_.platform.prompts, [&] {
    const auto last = editor_.Propose(cmbAccount_->Key(), FromQt(payee));
    if (!last) return;
    if (IsUntouched(cmbType_)) SetType(last->type);
    if (IsUntouched(cmbPayment_)) cmbPayment_->setEditText(ToQt(last->payment));
    if (IsUntouched(cmbCategory_) && IsUntouched(cmbSubCategory_)) {
      categories_->Show(last->category, last->subCategory);
    }
    if (IsUntouched(txtAmount_)) txtAmount_->SetAmount(last->amount);
  });
}

void FrmAccountTrans::Allocate() {
  Run([this] {
    if (Type() == EntryType::Transfer) return OpenOtherHalf();
    OpenLines(AllocationSource::Transaction);
  });
}

void FrmAccountTrans::ApplyLines(bool isChanged) {
  const auto row = editor_.Load(Key());
  if (!row) return;
  form_.hasLines = row->hasLines;
  form_.lines = row->lines;
  ShowLines(form_.lines);
  ReadBack(isChanged, row->hasLines, row->SignedAmount());
}

void FrmAccountTrans::OpenOtherHalf() {
  if (IsNew() || form_.transferId == 0) {
    place_.platform.prompts.Tell(kEditTransfer,
                                 "Save the transfer first, its other half can be edited then");
    return;
  }
  if (!MayDrop(QLatin1String(kEditTransfer)) || !Open(form_.transferId)) return;
  const QString account =
      form_.isToHalf ? cmbAccountTo_->currentText() : cmbAccount_->currentText();
  Note(tr("This is the half in “%1”.").arg(account));
}

void FrmAccountTrans::OpenSchedule() {
  Run([this] {
    const bool wasEdited = IsEdited();
    const bool isChanged =
        place_.openSchedule
            ? place_.openSchedule(Form(), form_.scheduleId, this)
            : corvanta::OpenSchedule({form_.scheduleId, accountId_, Form()}, Place()).isChanged;
    if (!isChanged) return;
    isScheduleChanged_ = true;
    MarkChanged();
    // A schedule changes and deletes what was posted from it.
    if (!IsNew() && !wasEdited && !Open(Key())) accept();
  });
}

void FrmAccountTrans::Autofill() {
  Run([this] {
    const std::int64_t account = cmbAccount_->Key();
    if (account == 0) {
      return Warn({"Save Warning", "You need to select an Account / Transfer From", "cmbAccount"});
    }
    if (!IsNew() && !MayDrop(tr("Autofill Transactions"))) return;
    const EntryResult result = OpenAutofill(account, Key(), Place());
    isScheduleChanged_ = isScheduleChanged_ || result.isScheduleChanged;
    if (!result.isChanged) return;
    MarkSaved(result.savedKey);
    if (!IsNew() && !Open(Key())) accept();
  });
}

void FrmAccountTrans::OpenNotes(const std::function<bool(std::int64_t key)>& open) {
  Run([&] {
    // They need a row to belong to.
    if (IsNew() && (!SaveRow() || !Open(SavedKey()))) return;
    if (open(Key())) MarkChanged();
    ShowNotes(Key());
  });
}

void FrmAccountTrans::ChooseKeywords() {
  OpenNotes([this](std::int64_t key) {
    return OpenKeywords({&key, 1}, {place_.platform, place_.ledger, this});
  });
}

void FrmAccountTrans::OpenFiles() {
  OpenNotes([this](std::int64_t key) {
    return OpenAttachments(key, {place_.platform, place_.ledger, this});
  });
}

void FrmAccountTrans::ShowNotes(std::int64_t key) {
  QStringList keywords;
  QStringList files;
  if (key != 0) {
    for (const KeywordRecord& row : place_.ledger.Notes().KeywordsOf(key)) {
      keywords.append(ToQt(row.keyword));
    }
    for (const AttachmentRecord& row : place_.ledger.Notes().AttachmentsOf(key)) {
      files.append(ToQt(row.file));
    }
  }
  const auto show = [](QPushButton& button, const QString& word, const QStringList& names,
                       const QString& none) {
    button.setText(names.isEmpty() ? word + QStringLiteral("...")
                                   : word + QStringLiteral(" (%1)...").arg(names.size()));
    button.setToolTip(names.isEmpty() ? none : names.join(QStringLiteral(", ")));
  };
  show(*cmdKeywords_, tr("&Keywords"), keywords, tr("Choose the keywords of the transaction"));
  show(*cmdAttachments_, tr("Fi&les"), files, tr("Attach files to the transaction"));
}

void FrmAccountTrans::LookUpCurrency() {
  Run([this] {
    const TransactionForm form = Form();
    const auto found =
        OpenCurrency({place_.platform, place_.ledger, place_.rates, this},
                     editor_.CurrencyOf(form.accountId), std::fabs(form.amount.value_or(0)));
    if (!found) return;
    txtAmount_->SetAmount(found->amount);
    Touch(txtAmount_);
    // A rate into any other currency is none for the transfer.
    const std::string to = editor_.CurrencyOf(form.accountToId);
    if (form.type != EntryType::Transfer || to != found->code) return;
    form_.arrival = Arrival{found->amount, RoundToCurrency(found->amountCurrency, to),
                            editor_.CurrencyOf(form.accountId), to};
    isArrivalTyped_ = false;
    ShowArrival();
  });
}

void FrmAccountTrans::Help() {
  place_.platform.prompts.Tell("Transactions", kHelp);
}

}  // namespace corvanta::inline entry
