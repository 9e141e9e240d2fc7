#include "reference/AccountEditor.h"

#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/ReservedNames.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"
#include "reference/RowOf.h"
#include "reference/Rules.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"

#include <algorithm>

namespace corvanta::inline reference {
namespace {

bool IsNoBank(std::string_view bank) {
  return Trim(bank).empty() || EqualFolded(Trim(bank), kNoBank);
}

bool IsReserved(std::string_view name) {
  return FoldCase(Trim(name)).starts_with(FoldCase(kTransferMark)) ||
         EqualFolded(Trim(name), kEveryAccount);
}

}  // namespace

AccountForm AccountEditor::New(std::int64_t like) {
  AccountForm form;
  if (const auto other = like == 0 ? std::nullopt : Load(like)) {
    form.accountGroup = other->accountGroup;
    form.bank = other->bank;
    form.currencyId = other->currencyId;
    return form;
  }
  const auto groups = ledger_.References().AccountGroups();
  const auto first = std::ranges::min_element(groups, {}, &AccountGroupRecord::accountTypeId);
  const bool isFirst = ledger_.Store().QueryValue("Select Count(*) from tblAccounts").Int() == 0;
  // Who is new here need not find out which groups there are.
  if (isFirst && first != groups.end()) form.accountGroup = first->accountType;
  const std::string own = platform_.locale.CurrencyCode();
  const auto currencies = ledger_.References().Currencies();
  const auto currency = std::find_if(
      currencies.begin(), currencies.end(),
      [&](const CurrencyRecord& candidate) { return EqualFolded(candidate.currency, own); });
  if (currency != currencies.end()) form.currencyId = currency->currencyId;
  return form;
}

std::optional<AccountForm> AccountEditor::Load(std::int64_t key) {
  const auto row = ledger_.Accounts().ReadAccount(key);
  if (!row) return std::nullopt;
  const auto group = RowOf(ledger_.References().AccountGroups(), &AccountGroupRecord::accountTypeId,
                           row->accountTypeId);
  const auto bank = RowOf(ledger_.References().Banks(), &BankRecord::bankId, row->bankId);
  AccountForm form;
  form.accountId = row->accountId;
  form.account = row->account;
  form.accountNo = row->accountNo;
  if (group) form.accountGroup = group->accountType;
  if (bank) form.bank = bank->bank;
  form.currencyId = row->currencyId;
  form.openingBalance = row->openingBalance;
  form.description = row->description;
  form.closed = row->closed;
  return form;
}

std::optional<Warning> AccountEditor::Check(const AccountForm& form) {
  if (auto warning = Missing(form.account, "You need to enter an Account", "txtAccount"))
    return warning;
  if (auto warning =
          Missing(form.accountGroup, "You need to enter an Account Group", "cmbAccountType")) {
    return warning;
  }
  if (auto warning =
          NameTooLong(form.accountGroup, "Account Group must be less than 100 characters long",
                      "cmbAccountType")) {
    return warning;
  }
  if (auto warning =
          NameTooLong(form.bank, "Bank must be less than 100 characters long", "cmbBank"))
    return warning;
  if (form.currencyId == 0) {
    return Warning{kSaveWarning, "You need to select a Currency", "cmbCurrency"};
  }
  if (auto warning =
          NameTooLong(form.account, "Account must be less than 100 characters long", "txtAccount"))
    return warning;
  if (IsReserved(form.account)) {
    return Warning{kSaveWarning, "You can not select this as an Account", "txtAccount"};
  }
  if (!form.openingBalance) {
    return Warning{kSaveWarning, "You need to enter a valid Opening Balance", "txtOpeningBalance"};
  }
  if (auto warning = TextTooLong(ledger_, "tblAccounts",
                                 {{"AccountNo", form.accountNo, "txtAccountNo"},
                                  {"Description", form.description, "txtDescription"}})) {
    return warning;
  }
  return Duplicate(ledger_.Accounts().OtherAccount(form.account, form.accountId) != 0,
                   "Account already exists", "txtAccount");
}

std::int64_t AccountEditor::Save(const AccountForm& form) {
  const UndoLog::Step step =
      ledger_.Undo().Begin(form.accountId == 0 ? "Add Account" : "Edit Account");
  Transaction all = ledger_.Store().Begin();
  AccountRecord record;
  record.accountId = form.accountId;
  record.account = Trim(form.account);
  record.accountNo = Trim(form.accountNo);
  record.accountTypeId = ledger_.References().FindOrCreateAccountGroup(form.accountGroup);
  record.bankId = IsNoBank(form.bank) ? 0 : ledger_.References().FindOrCreateBank(form.bank);
  record.openingBalance = form.openingBalance.value_or(0);
  record.currencyId = form.currencyId;
  record.description = Trim(form.description);
  record.closed = form.closed;
  const std::int64_t key = ledger_.Accounts().SaveAccount(record);
  all.Commit();
  return key;
}

Deletion AccountEditor::Delete(std::int64_t key) {
  const bool isGone = ledger_.Accounts().DeleteAccount(key, platform_.prompts);
  return {isGone, isGone, {}};
}

std::optional<Warning> AccountEditor::CheckAddBank(std::int64_t key) {
  if (key != 0) return std::nullopt;
  return Warning{kSaveWarning,
                 "Account details have not been saved. Please save details before continuing",
                 "txtAccount"};
}

}  // namespace corvanta::inline reference
