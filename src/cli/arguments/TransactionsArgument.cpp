#include "cli/arguments/TransactionsArgument.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "ledger/accounts/ClosedAccounts.h"
#include "ledger/clsCorvanta.h"
#include "ledger/transactions/TransactionBook.h"
#include "platform/Platform.h"
#include "reference/Deletion.h"

#include <algorithm>

namespace corvanta::inline cli {
namespace {

constexpr const char* kMeaning = "The transaction's key, as the register shows it";
constexpr std::size_t kMaxDigits = 10;

}  // namespace

std::string KeyFault(const std::string& text) {
  const bool isKey = IsWholeNumber(text, kMaxDigits) && text.front() != '0';
  return isKey ? "" : "'" + text + "' is no key of a transaction";
}

void TransactionsArgument::Declare(Parser& command) {
  command.AddOption("id", keys_, kMeaning)->Several()->Check(KeyFault)->Required();
}

void TransactionsArgument::DeclareOne(Parser& command) {
  command
      .AddOption(
          "id", [this](const std::string& key) { keys_ = {key}; }, kMeaning)
      ->Check(KeyFault)
      ->Required();
}

std::optional<std::vector<TransactionDetails>> TransactionsArgument::Find(clsCorvanta& ledger,
                                                                          Session& session) const {
  std::vector<std::int64_t> keys;
  for (const std::string& text : keys_) {
    const std::int64_t key = std::stoll(text);
    if (std::ranges::find(keys, key) == keys.end()) keys.push_back(key);
  }
  std::vector<TransactionDetails> rows;
  std::string unknown;
  for (const std::int64_t key : keys) {
    std::optional<TransactionDetails> row = ledger.Transactions().ReadTransaction(key);
    if (row) {
      rows.push_back(std::move(*row));
    } else {
      unknown += (unknown.empty() ? "" : ", ") + std::to_string(key);
    }
  }
  if (unknown.empty()) return rows;
  session.Tell("Transaction", "There is no transaction " + unknown + ".");
  return std::nullopt;
}

std::vector<std::int64_t> KeysOf(const std::vector<TransactionDetails>& rows) {
  std::vector<std::int64_t> keys;
  keys.reserve(rows.size());
  for (const TransactionDetails& row : rows) keys.push_back(row.transactionId);
  return keys;
}

bool RefuseClosed(const std::vector<TransactionDetails>& rows, Session& session) {
  return RefuseClosed(std::ranges::any_of(rows, &TransactionDetails::accountClosed), session);
}

bool RefuseClosed(bool isClosed, Session& session) {
  if (isClosed) {
    session.Tell(kAmendItem, kAccountClosed);
  }
  return isClosed;
}

ExitStatus DeleteRows(const std::vector<TransactionDetails>& rows, clsCorvanta& ledger,
                      Session& session) {
  // What goes with the rows has to be in an open account too.
  if (RefuseClosed(ledger.Transactions().ReachesClosedAccount(KeysOf(rows)), session))
    return ExitStatus::Refused;

  if (!AskDeleteItems(session.Machine().prompts, rows.size())) return ExitStatus::Refused;
  ledger.Transactions().DeleteTransactions(KeysOf(rows));
  session.Tell("Delete", TransactionCount(rows.size()) + " deleted");
  return ExitStatus::Done;
}

std::string TransactionCount(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " transaction" : " transactions");
}

}  // namespace corvanta::inline cli
