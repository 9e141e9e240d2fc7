#include "cli/transactions/RegisterCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/output/OutputTable.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/clsCorvanta.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/RegisterRow.h"

namespace corvanta::inline cli {

Parser* RegisterCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("register", "List the transactions of an account");
  account_.Declare(*command);
  period_.Declare(*command);
  status_.Declare(*command);
  filter_.Declare(*command);
  return command;
}

ExitStatus RegisterCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const std::optional<AccountRow> account = account_.Find(ledger, session);
  if (!account) return ExitStatus::Refused;
  const std::optional<RowFilter> filter = filter_.Find(ledger, session);
  if (!filter) return ExitStatus::Refused;
  const auto keys = FilterArguments::KeysOf(ledger, *filter, account->accountId);

  OutputTable table({{"ID", OutputKind::Integer},
                     {"Date", OutputKind::Date},
                     {"Payee"},
                     {"Category"},
                     {"Payment"},
                     {"Ref"},
                     {"Description"},
                     {"Status"},
                     {"Paid Out", OutputKind::Money},
                     {"Paid In", OutputKind::Money},
                     {"Balance", OutputKind::Money}});
  for (const RegisterRow& row :
       ledger.Balances().Register(account->accountId, status_.Get(), period_.Get())) {
    if (keys && !keys->Has(row.transactionId)) continue;
    const bool isOut = row.amount < 0;
    table.AddRow({row.transactionId, row.date, row.payee, row.category, row.payment, row.reference,
                  row.description, row.status, isOut ? Value(row.amount) : Value(),
                  isOut ? Value() : Value(row.amount), row.balance});
  }
  session.Print(table);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
