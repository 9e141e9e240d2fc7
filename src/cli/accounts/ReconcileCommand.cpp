#include "cli/accounts/ReconcileCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/TransactionsArgument.h"
#include "cli/output/OutputTable.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "platform/Progress.h"

#include <algorithm>
#include <ostream>

namespace corvanta::inline cli {
namespace {

void AddKeys(Parser& command, const char* name, std::vector<std::int64_t>& keys,
             const char* meaning) {
  command.AddOption(name, keys, meaning)
      ->TypeName("ID,ID...")
      ->Delimiter(',')
      ->SingleWord()
      ->Several()
      ->Check(KeyFault);
}

std::string TextOf(const ReconcileOutcome& outcome) {
  const auto& [settled, taken] = outcome;
  std::string text;
  if (settled > 0 || taken == 0) text = TransactionCount(settled) + " reconciled";
  if (taken > 0) {
    text += (text.empty() ? "" : ", ") + TransactionCount(taken) + " no longer reconciled";
  }
  return text;
}

void WriteLines(const ReconcileTotals& totals, Session& session) {
  const ReconcileTexts texts = TextsOf(totals, session.Machine().locale);
  session.Out() << texts.initial << '\n'
                << texts.current << '\n'
                << texts.outstanding << '\n'
                << texts.paidIn << '\n'
                << texts.paidOut << '\n';
}

Value CountOf(std::size_t count) {
  return static_cast<std::int64_t>(count);
}

}  // namespace

Parser* ReconcileCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("reconcile", "Balance an account against a bank statement");
  account_.Declare(*command);
  AddKeys(*command, "--tick", tick_, "Transactions that are on the statement");
  AddKeys(*command, "--untick", untick_, "Transactions that are not");
  command->AddFlag("--all", tickAll_, "Tick every transaction but those of --untick");
  command->AddFlag("--show-all", showAll_,
                   "Reconciled transactions too, which are ticked unless --untick names them");
  command
      ->AddOption("--balance", balance_,
                  "Balance on the statement; write nothing when it is another")
      ->TypeName("AMOUNT")
      ->Check(NumberFault);
  command->AddFlag("--dry-run", dryRun_, "Show the totals and write nothing");
  return command;
}

bool ReconcileCommand::IsChoosing() const {
  return tickAll_ || !tick_.empty() || !untick_.empty();
}

ExitStatus ReconcileCommand::Run(Session& session) {
  const bool writes = IsChoosing() && !dryRun_;
  const std::optional<DataFile> file = session.Open(writes ? Access::Write : Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const std::optional<AccountRow> account = account_.Find(ledger, session);
  if (!account) return ExitStatus::Refused;
  Reconciliation balancing(account->accountId, ledger);
  if (const auto warning = balancing.Check()) return session.Refuse(warning->title, warning->text);
  if (showAll_) {
    balancing.ShowAll();
  } else {
    balancing.ShowUnreconciled();
  }
  if (!Choose(balancing, session)) return ExitStatus::Refused;

  Print(*account, balancing.Totals(), session);
  if (!IsBalanced(balancing.Totals(), account->currency, session)) return ExitStatus::Refused;
  if (!writes) return ExitStatus::Done;
  SilentProgress progress;
  balancing.Apply(progress);
  session.Tell(std::string(kBalanceAccount), TextOf(balancing.Outcome()));
  return ExitStatus::Done;
}

bool ReconcileCommand::Choose(Reconciliation& balancing, Session& session) const {
  if (tickAll_) balancing.SelectAll();
  return SetTicks(balancing, tick_, true, session) && SetTicks(balancing, untick_, false, session);
}

bool ReconcileCommand::SetTicks(Reconciliation& balancing, const std::vector<std::int64_t>& keys,
                                bool isTicked, Session& session) const {
  std::string unknown;
  for (const std::int64_t key : keys) {
    if (const auto row = balancing.RowOf(key)) {
      balancing.Tick(*row, isTicked);
    } else {
      unknown += (unknown.empty() ? "" : ", ") + std::to_string(key);
    }
  }
  if (unknown.empty()) return true;
  session.Tell("Transaction", "Not among the transactions of the account that are " +
                                  std::string(showAll_ ? "shown: " : "to be reconciled: ") +
                                  unknown + ".");
  return false;
}

void ReconcileCommand::Print(const AccountRow& account, const ReconcileTotals& totals,
                             Session& session) const {
  if (session.Options().format == "text") return WriteLines(totals, session);
  OutputTable table({{"Account"},
                     {"Currency"},
                     {"Initial Balance", OutputKind::Money},
                     {"Current Balance", OutputKind::Money},
                     {"Outstanding", OutputKind::Money},
                     {"Paid In Count", OutputKind::Integer},
                     {"Paid In", OutputKind::Money},
                     {"Paid Out Count", OutputKind::Integer},
                     {"Paid Out", OutputKind::Money}});
  table.AddRow({account.account, account.currency, totals.initial, totals.current,
                totals.outstanding, CountOf(totals.countIn), totals.paidIn,
                CountOf(totals.countOut), totals.paidOut});
  session.Print(table);
}

bool ReconcileCommand::IsBalanced(const ReconcileTotals& totals, const std::string& currency,
                                  Session& session) const {
  if (balance_.empty()) return true;
  const StatementDifference difference = DifferenceTo(NumberOf(balance_), totals, currency);
  if (difference.isBalanced) return true;
  session.Tell(std::string(kBalanceAccount), "The difference to the statement is " +
                                                 difference.Text(session.Machine().locale) +
                                                 ". Nothing was written.");
  return false;
}

}  // namespace corvanta::inline cli
