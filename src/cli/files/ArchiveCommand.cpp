#include "cli/files/ArchiveCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/AccountArgument.h"
#include "cli/arguments/Arguments.h"
#include "cli/output/OutputTable.h"
#include "ledger/clsCorvanta.h"
#include "safety/ArchiveEditor.h"

#include <filesystem>

namespace corvanta::inline cli {

Parser* ArchiveCommand::Declare(Parser& parser) {
  Parser* command =
      parser.AddCommand("archive", "Move old transactions into a data file of their own");
  command->AddOption("file", file_, "The archive, which must not be there yet")
      ->Required()
      ->Check(EmptyFault);
  command->AddOption("--before", before_, "Transactions before this day move")
      ->TypeName("YYYY-MM-DD")
      ->Required()
      ->Check(DateFault);
  command->AddOption("--account", accounts_, "Of this account (default: of all); may be repeated")
      ->TypeName("A")
      ->Repeated()
      ->Check(EmptyFault);
  command->AddFlag("--reconciled", onlyReconciled_,
                   "Leave what no balanced statement holds where it is");
  command->AddFlag("--dry-run", isDry_, "Show what would move, and move nothing");
  return command;
}

ExitStatus ArchiveCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(isDry_ ? Access::Read : Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  ArchiveEditor editor(ledger, {file->connection->Path(), file->password}, session.Machine(),
                       session.Opener().AsWriter());
  ArchiveForm form = editor.Load();
  form.path = std::filesystem::absolute(file_).string();
  form.before = Date::FromIso(before_);
  form.onlyReconciled = onlyReconciled_;
  if (!FindAccounts(ledger, session, form)) return ExitStatus::Refused;
  if (const auto warning = editor.Check(form)) {
    return session.Refuse(warning->title, warning->text);
  }
  Print(editor.Plan(form), session);
  if (isDry_) return ExitStatus::Done;
  return editor.Save(form) ? ExitStatus::Done : ExitStatus::Refused;
}

bool ArchiveCommand::FindAccounts(clsCorvanta& ledger, Session& session, ArchiveForm& form) const {
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
