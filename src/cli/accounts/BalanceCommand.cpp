#include "cli/accounts/BalanceCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/output/OutputTable.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/clsCorvanta.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/Balances.h"
#include "platform/Platform.h"

#include <ostream>

namespace corvanta::inline cli {
namespace {

Value Figure(const std::optional<double>& figure) {
  return figure ? Value(*figure) : Value();
}

// As under the register, one figure a line.
void WriteLines(const PeriodTotals& totals, std::int64_t uncleared, Session& session) {
  const TotalsTexts texts = TextsOf(totals, session.Machine().locale);
  session.Out() << texts.thisPeriod << '\n'
                << texts.balance << '\n'
                << texts.paidIn << '\n'
                << texts.paidOut << '\n'
                << UnclearedText(uncleared) << '\n';
}

}  // namespace

Parser* BalanceCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("balance", "Show the totals of an account");
  account_.Declare(*command);
  period_.Declare(*command);
  status_.Declare(*command);
  return command;
}

ExitStatus BalanceCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const std::optional<AccountRow> account = account_.Find(ledger, session);
  if (!account) return ExitStatus::Refused;

  const PeriodTotals totals =
      ledger.Balances().Totals(account->accountId, status_.Get(), period_.Get());
  const std::int64_t uncleared = ledger.Balances().UnclearedCount(account->accountId);
  if (session.Options().format == "text") {
    WriteLines(totals, uncleared, session);
    return ExitStatus::Done;
  }
  OutputTable table({{"Account"},
                     {"Currency"},
                     {"This Period", OutputKind::Money},
                     {"Balance", OutputKind::Money},
                     {"Paid In", OutputKind::Money},
                     {"Paid Out", OutputKind::Money},
                     {"Uncleared", OutputKind::Integer}});
  table.AddRow({account->account, account->currency, Figure(totals.thisPeriod),
                Figure(totals.balance), Figure(totals.paidIn), Figure(totals.paidOut), uncleared});
  session.Print(table);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
