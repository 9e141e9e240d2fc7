#include "cli/AccountsCommand.h"

#include "cli/OutputTable.h"
#include "cli/SavedForm.h"
#include "cli/Session.h"
#include "ledger/AccountBook.h"
#include "ledger/AccountRow.h"
#include "ledger/StatusFilter.h"
#include "ledger/clsCorvanta.h"
#include "reference/AccountEditor.h"

#include <CLI/CLI.hpp>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Account";

}  // namespace

CLI::App* AccountsCommand::Declare(CLI::App& parser) {
  CLI::App* command = parser.add_subcommand(
      "accounts", "List the accounts with their balances; add, edit, close and delete one");
  command->require_subcommand(0, 1);
  command->add_subcommand("list", "List them; so does the command alone");
  add_ = command->add_subcommand("add", "Add an account");
  add_->add_option("name", name_, "The new account's name")->required();
  added_.Declare(*add_, true);
  DeclareChanges(*command);
  return command;
}

void AccountsCommand::DeclareChanges(CLI::App& command) {
  edit_ = command.add_subcommand("edit", "Change an account, as far as options are given");
  close_ = command.add_subcommand("close", "Close an account: nothing in it can be changed");
  reopen_ = command.add_subcommand("reopen", "Open a closed account again");
  delete_ = command.add_subcommand("delete", "Delete an account with all that is in it");
  for (CLI::App* form : {edit_, close_, reopen_, delete_}) account_.Declare(*form);
  edit_->add_option("--name", newName_, "Another name");
  edited_.Declare(*edit_, false);
}

ExitStatus AccountsCommand::Run(Session& session) {
  const bool names = edit_->parsed() || close_->parsed() || reopen_->parsed() || delete_->parsed();
  const bool writes = names || add_->parsed();
  const std::optional<DataFile> file = session.Open(writes ? Access::Write : Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  if (!names) return writes ? Add(ledger, session) : List(ledger, session);
  const std::optional<AccountRow> account = account_.Find(ledger, session);
  if (!account) return ExitStatus::Refused;
  AccountEditor editor(ledger, session.Machine());
  if (edit_->parsed()) return Edit(*account, editor, ledger, session);
  return delete_->parsed() ? Delete(*account, editor, session) : Close(*account, editor, session);
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
  form->account = newName_.value_or(form->account);
  if (!edited_.Fill(*form, ledger, session)) return ExitStatus::Refused;
  if (!SaveChecked(editor, *form, session)) return ExitStatus::Refused;
  session.Tell(kTitle, "\"" + account.account + "\" changed");
  return ExitStatus::Done;
}

ExitStatus AccountsCommand::Close(const AccountRow& account, AccountEditor& editor,
                                  Session& session) const {
  std::optional<AccountForm> form = editor.Load(account.accountId);
  form->closed = close_->parsed();
  if (!SaveChecked(editor, *form, session)) return ExitStatus::Refused;
  session.Tell(kTitle, "\"" + account.account + (form->closed ? "\" is closed" : "\" is open"));
  return ExitStatus::Done;
}

ExitStatus AccountsCommand::Delete(const AccountRow& account, AccountEditor& editor,
                                   Session& session) const {
  if (!editor.Delete(account.accountId).isGone) return ExitStatus::Refused;
  session.Tell(kTitle, "\"" + account.account + "\" deleted");
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
