#include "cli/exchange/ExportCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "exchange/export/FileExport.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/clsCorvanta.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/Period.h"
#include "ledger/register/RegisterRow.h"
#include "platform/Files.h"

namespace corvanta::inline cli {

Parser* ExportCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("export", "Export the transactions of an account to a file");
  command->AddOption("file", file_, "The file to write: .qif, .ofx, .csv, .xls or .xlsx")
      ->Required()
      ->Check(EmptyFault);
  command->AddOption("--account", account_.name, "The account's name, or # and its key")
      ->TypeName("A")
      ->Required();
  command->AddFlag("--force", force_, "Replace the file where it is there already");
  period_.Declare(*command);
  status_.Declare(*command);
  filter_.Declare(*command);
  return command;
}

ExitStatus ExportCommand::Run(Session& session) {
  if (const auto warning = FileExport::Check(file_)) {
    return session.Refuse(warning->title, warning->text);
  }
  if (!force_ && FileExists(file_)) {
    return session.Refuse("File Export",
                          "There is a file " + file_ + " already. Use --force to replace it.");
  }
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const std::optional<AccountRow> account = account_.Find(ledger, session);
  if (!account) return ExitStatus::Refused;
  const std::optional<RowFilter> filter = filter_.Find(ledger, session);
  if (!filter) return ExitStatus::Refused;
  const std::optional<Period> period = period_.Get();
  std::vector<RegisterRow> rows =
      ledger.Balances().Register(account->accountId, status_.Get(), period);
  if (const auto keys = FilterArguments::KeysOf(ledger, *filter, account->accountId)) {
    std::erase_if(rows, [&](const RegisterRow& row) { return !keys->Has(row.transactionId); });
  }
  FileExport(ledger, session.Machine())
      .Write(account->accountId, rows, period, file_,
             force_ ? FormerFile::Replace : FormerFile::Refuse);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
