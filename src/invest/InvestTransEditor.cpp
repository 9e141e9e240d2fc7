#include "invest/InvestTransEditor.h"

#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/ClosedAccounts.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/ArithmeticText.h"
#include "platform/Clock.h"
#include "platform/Decimal.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Settings.h"
#include "platform/TextCase.h"
#include "reference/Deletion.h"
#include "reference/Rules.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"

#include <cmath>

namespace corvanta::inline invest {
namespace {

// On which side of the total the commission is: it adds to the cost (-1) or lessens what comes in.
int SignOf(std::optional<InvestAction> action) {
  if (action == InvestAction::Buy || action == InvestAction::ReinvestDividend) return -1;
  return action == InvestAction::Sell || action == InvestAction::Dividend ? 1 : 0;
}

struct Figure {
  double InvestTransForm::*value;
  bool InvestFigures::*isUsed;
  const char* field;
};
constexpr Figure kFigures[] = {
    {&InvestTransForm::dividend, &InvestFigures::dividend, "txtDividend"},
    {&InvestTransForm::shares, &InvestFigures::shares, "txtShares"},
    {&InvestTransForm::price, &InvestFigures::price, "txtPrice"},
    {&InvestTransForm::commission, &InvestFigures::commission, "txtCommission"},
    {&InvestTransForm::total, &InvestFigures::total, "txtTotal"}};

void DropUnused(InvestTransForm& form) {
  const InvestFigures used = FiguresOf(form.action);
  for (const Figure& figure : kFigures) {
    if (!(used.*figure.isUsed)) form.*figure.value = 0;
  }
}

Warning Refusal(const char* text, const char* field) {
  return {kSaveWarning, text, field};
}

// What no field of the editor lets a person type, but a script may.
std::optional<Warning> CheckFigures(const InvestTransForm& form) {
  for (const Figure& figure : kFigures) {
    const double value = form.*figure.value;
    if (value < 0) {
      return Refusal("Please enter the figures without a sign, the Action says where they go",
                     figure.field);
    }
    if (!(value <= kLargestAmount)) return Refusal("This figure is too large", figure.field);
  }
  return std::nullopt;
}

}  // namespace

InvestFigures FiguresOf(std::optional<InvestAction> action) {
  InvestFigures figures;
  if (!action) return figures;
  switch (*action) {
    case InvestAction::Buy:
    case InvestAction::Sell:
      figures.dividend = false;
      break;
    case InvestAction::Dividend:
      figures.shares = figures.price = false;
      break;
    case InvestAction::ReinvestDividend:
      break;
    case InvestAction::AddShares:
    case InvestAction::RemoveShares:
      figures.dividend = figures.price = figures.commission = figures.total = false;
      break;
  }
  return figures;
}

double TotalOf(const InvestTransForm& form) {
  const int sign = SignOf(form.action);
  const double traded = form.shares * form.price - sign * form.commission;
  return form.dividend > 0 ? traded * sign + form.dividend : traded;
}

InvestTransForm InvestTransEditor::New(std::int64_t accountId, std::int64_t investmentId) {
  InvestTransForm form;
  form.accountId = accountId;
  form.investmentId = investmentId;
  form.date = platform_.clock.Today();
  return form;
}

std::optional<InvestTransForm> InvestTransEditor::Load(std::int64_t key) {
  const auto row = ledger_.Transactions().ReadTransaction(key);
  if (!row || row->action == 0) return std::nullopt;
  InvestTransForm form;
  form.transactionId = row->transactionId;
  form.accountId = row->accountId;
  form.investmentId = row->payeeId;
  if (*ActionName(row->action) != '\0') form.action = static_cast<InvestAction>(row->action);
  form.date = row->date;
  form.dividend = row->dividend;
  form.shares = row->shares;
  form.price = row->price;
  form.commission = row->commission;
  form.total = std::fabs(row->amount);
  // A row that only its statement calls reconciled was never cleared.
  if (row->status.bankChk == 1) form.status = StatusFrom(row->status);
  form.description = row->description;
  return form;
}

std::optional<Warning> InvestTransEditor::CheckRow(std::int64_t key) {
  const auto row = ledger_.Transactions().ReadTransaction(key);
  if (!row) return Warning{kAmendItem, "This Item does not exist any more", {}};
  if (row->accountClosed) return Warning{kAmendItem, kAccountClosed, {}};
  return std::nullopt;
}

std::optional<Warning> InvestTransEditor::CheckOpen(std::int64_t key) {
  if (ledger_.Store().QueryValue("Select Count(*) from tblAccounts").Int() == 0) {
    return Warning{
        "Please Add Account", "There are no Accounts set up. Please add an Account to start", {}};
  }
  return Load(key) ? CheckRow(key) : std::nullopt;
}

double InvestTransEditor::ShownTotal(const InvestTransForm& form) const {
  return Rounded(TotalOf(form), Settings(platform_.registry).InvestmentDecimals());
}

void InvestTransEditor::Recalculate(InvestTransForm& form) const {
  form.total = ShownTotal(form);
}

void InvestTransEditor::ChooseAction(InvestTransForm& form,
                                     std::optional<InvestAction> action) const {
  const bool isTyped = form.total != ShownTotal(form);
  form.action = action;
  DropUnused(form);
  if (!isTyped) Recalculate(form);
}

std::optional<Warning> InvestTransEditor::Check(const InvestTransForm& form) {
  if (form.accountId == 0) return Refusal("You need to select an Account", "cmbAccount");
  const auto account = ledger_.Accounts().ReadAccount(form.accountId);
  if (account && account->closed) {
    return Refusal("This Account is closed, investments cannot be added", "cmbAccount");
  }
  if (form.investmentId == 0) return Refusal("You need to select an Investment", "cmbInvestment");
  if (!form.action) return Refusal("You need to select an Investment Action", "cmbAction");
  if (form.total < 0) return Refusal("Total can not be negative.", "txtTotal");
  if (!(form.total <= kLargestTotal)) return Refusal("Total is too large", "txtTotal");
  if (auto warning = CheckFigures(form)) return warning;
  if (auto warning = TextTooLong(ledger_, "tblTransactions",
                                 {{"Description", Trim(form.description), "txtDescription"}})) {
    return warning;
  }
  return form.transactionId == 0 ? std::nullopt : CheckRow(form.transactionId);
}

std::int64_t InvestTransEditor::Save(const InvestTransForm& form) {
  const bool isNew = form.transactionId == 0;
  const UndoLog::Step step =
      ledger_.Undo().Begin(isNew ? "Add Investment Transaction" : "Edit Investment Transaction");
  InvestTransForm saved = form;
  DropUnused(saved);
  // Shares that a split, a merger or a spin-off added have a price nobody types: what they cost.
  const auto stored = Load(form.transactionId);
  if (stored && stored->action == saved.action && !FiguresOf(saved.action).price) {
    saved.price = stored->price;
  }
  InvestmentTransaction record;
  record.transactionId = saved.transactionId;
  record.accountId = saved.accountId;
  record.payeeId = saved.investmentId;
  record.action = saved.action.value_or(InvestAction::Buy);
  record.dividend = saved.dividend;
  record.shares = saved.shares;
  record.price = saved.price;
  record.commission = saved.commission;
  record.total = saved.total;
  record.description = Trim(saved.description);
  record.date = saved.date;
  record.status = saved.status;
  return ledger_.Investments().SaveInvestmentTransaction(record);
}

bool InvestTransEditor::Delete(std::int64_t key) {
  if (ledger_.Transactions().ReachesClosedAccount({&key, 1})) {
    platform_.prompts.Tell(kAmendItem, kAccountClosed);
    return false;
  }
  if (!AskDelete(platform_.prompts)) return false;
  ledger_.Transactions().DeleteTransaction(key);
  return true;
}

}  // namespace corvanta::inline invest
