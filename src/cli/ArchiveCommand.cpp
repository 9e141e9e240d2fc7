#include "cli/ArchiveCommand.h"

#include "cli/AccountArgument.h"
#include "cli/Arguments.h"
#include "cli/OutputTable.h"
#include "cli/Session.h"
#include "ledger/clsCorvanta.h"
#include "safety/ArchiveEditor.h"

#include <CLI/CLI.hpp>

namespace corvanta::inline cli {

CLI::App* ArchiveCommand::Declare(CLI::App& parser) {
  CLI::App* command =
      parser.add_subcommand("archive", "Move old transactions into a data file of their own");
  command->add_option("file", file_, "The archive, which must not be there yet")
      ->required()
      ->check(EmptyFault);
  command->add_option("--before", before_, "Transactions before this day move")
      ->type_name("YYYY-MM-DD")
      ->required()
      ->check(DateFault);
  command->add_option("--account", accounts_, "Of this account (default: of all); may be repeated")
      ->type_name("A")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->expected(1)
      ->allow_extra_args(false)
      ->check(EmptyFault);
  command->add_flag("--reconciled", onlyReconciled_,
                    "Leave what no balanced statement holds where it is");
  command->add_flag("--dry-run", isDry_, "Show what would move, and move nothing");
  return command;
}

ExitStatus ArchiveCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(isDry_ ? Access::Read : Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  ArchiveEditor editor(ledger, {file->connection->Path(), file->password}, session.Machine(),
                       session.Opener().AsWriter());
  ArchiveForm form = editor.Load();
  form.path = file_;
  form.before = Date::FromIso(before_);
  form.onlyReconciled = onlyReconciled_;
  if (!TakeAccounts(ledger, session, form)) return ExitStatus::Refused;
  if (const auto warning = editor.Check(form)) {
    return session.Refuse(warning->title, warning->text);
  }
  Print(editor.Plan(form), session);
  if (isDry_) return ExitStatus::Done;
  return editor.Save(form) ? ExitStatus::Done : ExitStatus::Refused;
}

bool ArchiveCommand::TakeAccounts(clsCorvanta& ledger, Session& session, ArchiveForm& form) const {
  if (accounts_.empty()) return true;
  form.accounts.clear();
  for (const std::string& name : accounts_) {
    const auto account = AccountArgument{name}.Find(ledger, session);
    if (!account) return false;
    form.accounts.push_back(account->accountId);
  }
  return true;
}

void ArchiveCommand::Print(const ArchivePlan& plan, Session& session) {
  OutputTable table({{"Account"},
                     {"Rows", OutputKind::Integer},
                     {"Stay", OutputKind::Integer},
                     {"Opening balance", OutputKind::Money},
                     {"Then", OutputKind::Money}});
  for (const ArchivedAccount& account : plan.accounts) {
    table.AddRow({account.account, static_cast<std::int64_t>(account.rows),
                  static_cast<std::int64_t>(account.stay), account.opening, account.newOpening});
  }
  session.Print(table);
}

}  // namespace corvanta::inline cli
