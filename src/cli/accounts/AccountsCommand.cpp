#include "cli/accounts/AccountsCommand.h"

#include "cli/Parser.h"
#include "cli/SavedForm.h"
#include "cli/Session.h"
#include "cli/output/OutputTable.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/clsCorvanta.h"
#include "ledger/register/StatusFilter.h"
#include "reference/AccountEditor.h"

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Account";

}  // namespace

Parser* AccountsCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand(
      "accounts", "List the accounts with their balances; add, edit, close and delete one");
  command->AllowCommand();
  command->AddCommand("list", "List them; so does the command alone");
  add_ = command->AddCommand("add", "Add an account");
  add_->AddOption("name", name_, "The new account's name")->Required();
  added_.Declare(*add_, true);
  DeclareChanges(*command);
  return command;
}

void AccountsCommand::DeclareChanges(Parser& command) {
  edit_ = command.AddCommand("edit", "Change an account, as far as options are given");
  close_ = command.AddCommand("close", "Close an account: nothing in it can be changed");
  reopen_ = command.AddCommand("reopen", "Open a closed account again");
  delete_ = command.AddCommand("delete", "Delete an account with all that is in it");
  for (Parser* form : {edit_, close_, reopen_, delete_}) account_.Declare(*form);
  edit_->AddOption("--name", newName_, "Another name");
  edited_.Declare(*edit_, false);
}

ExitStatus AccountsCommand::Run(Session& session) {
  const bool names = edit_->Parsed() || close_->Parsed() || reopen_->Parsed() || delete_->Parsed();
  const bool writes = names || add_->Parsed();
  const std::optional<DataFile> file = session.Open(writes ? Access::Write : Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  if (!names) return writes ? Add(ledger, session) : List(ledger, session);
  const std::optional<AccountRow> account = account_.Find(ledger, session);
  if (!account) return ExitStatus::Refused;
  AccountEditor editor(ledger, session.Machine());
  if (edit_->Parsed()) return Edit(*account, editor, ledger, session);
  return delete_->Parsed() ? Delete(*account, editor, session) : Close(*account, editor, session);
}

ExitStatus AccountsCommand::List(clsCorvanta& ledger, Session& session) const {
  OutputTable table({{"ID", OutputKind::Integer},
                     {"Account"},
                     {"Number"},
                     {"Group"},
                     {"Bank"},
                     {"Currency"},
                     {"Opening", OutputKind::Money},
                     {"Balance", OutputKind::Money},
                     {"Closed", OutputKind::Integer},
                     {"Description"}});
  for (const AccountRow& row : ledger.Accounts().Accounts(StatusFilter{}, true)) {
    table.AddRow({row.accountId, row.account, row.accountNo, row.accountType, row.bank,
                  row.currency, row.openingBalance, row.balance, row.closed ? 1 : 0,
                  row.description});
  }
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus AccountsCommand::Add(clsCorvanta& ledger, Session& session) const {
  AccountForm form;
  form.account = name_;
  if (!added_.Fill(form, ledger, session)) return ExitStatus::Refused;
  AccountEditor editor(ledger, session.Machine());
  const std::optional<std::int64_t> key = SaveChecked(editor, form, session);
  if (!key) return ExitStatus::Refused;
  PrintKey(*key, session);
  return ExitStatus::Done;
}

ExitStatus AccountsCommand::Edit(const AccountRow& account, AccountEditor& editor,
                                 clsCorvanta& ledger, Session& session) const {
  std::optional<AccountForm> form = editor.Load(account.accountId);
  const AccountForm loaded = *form;
  form->account = newName_.value_or(form->account);
  if (!edited_.Fill(*form, ledger, session)) return ExitStatus::Refused;
  return SaveChanges(editor, loaded, *form, kTitle, '"' + account.account + '"', session);
}

ExitStatus AccountsCommand::Close(const AccountRow& account, AccountEditor& editor,
                                  Session& session) const {
  std::optional<AccountForm> form = editor.Load(account.accountId);
  const bool isSo = form->closed == close_->Parsed();
  form->closed = close_->Parsed();
  if (!isSo && !SaveChecked(editor, *form, session)) return ExitStatus::Refused;
  session.Tell(kTitle, '"' + account.account + "\" is " + (form->closed ? "closed" : "open") +
                           (isSo ? " already" : ""));
  return ExitStatus::Done;
}

ExitStatus AccountsCommand::Delete(const AccountRow& account, AccountEditor& editor,
                                   Session& session) const {
  if (!editor.Delete(account.accountId).isGone) return ExitStatus::Refused;
  session.Tell(kTitle, "\"" + account.account + "\" deleted");
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
