#include "cli/transactions/SplitCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "ledger/clsCorvanta.h"
#include "ledger/transactions/TransactionRecord.h"

#include <cmath>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Allocate Item";

AllocationParent ParentOf(const TransactionDetails& row) {
  return {row.transactionId, AllocationSource::Transaction, std::fabs(row.amount),
          row.amount > 0 ? 1 : -1, row.currency};
}

// Why the row cannot be split; nullopt when it can.
std::optional<Warning> CheckParent(const TransactionDetails& row) {
  if (row.allocatedItem != 0) {
    return Warning{
        kTitle, "This is a line of transaction " + std::to_string(row.allocatedItem) + ".", {}};
  }
  if (row.action != 0) return Warning{kTitle, "An investment transaction is not split.", {}};
  if (row.transferId != 0) {
    return Warning{
        "Allocate Item Warning", "Please select a Type (Not Transfer) to allocate an Item", {}};
  }
  return std::nullopt;
}

}  // namespace

Parser* SplitCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand(
      "split", "The lines of a split transaction: listed alone, with options changed");
  transaction_.DeclareOne(*command);
  lines_.Declare(*command);
  return command;
}

ExitStatus SplitCommand::Run(Session& session) {
  const std::optional<DataFile> file =
      session.Open(lines_.Changes() ? Access::Write : Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const auto rows = transaction_.Find(ledger, session);
  if (!rows) return ExitStatus::Refused;
  if (const auto warning = CheckParent(rows->front())) {
    return session.Refuse(warning->title, warning->text);
  }
  AllocationEditor editor(ledger, session.Machine(), ParentOf(rows->front()));
  if (lines_.Changes() && RefuseClosed(*rows, session)) return ExitStatus::Refused;
  return lines_.Run(editor, ledger, session);
}

}  // namespace corvanta::inline cli
