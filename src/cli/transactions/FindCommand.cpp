#include "cli/transactions/FindCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/output/OutputTable.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/clsCorvanta.h"
#include "ledger/search/SearchIndex.h"
#include "ledger/search/TransactionSearch.h"
#include "platform/Platform.h"

#include <memory>

namespace corvanta::inline cli {
namespace {

// `keys` are those that the filter lets pass; nullopt lets all.
OutputTable TableOf(const std::vector<FoundRow>& rows, const std::optional<KeySet>& keys) {
  OutputTable table({{"ID", OutputKind::Integer},
                     {"Account"},
                     {"Date", OutputKind::Date},
                     {"Payee"},
                     {"Category"},
                     {"Ref"},
                     {"Description"},
                     {"Amount", OutputKind::Money},
                     {"Currency"}});
  for (const FoundRow& found : rows) {
    const RegisterRow& row = found.row;
    if (keys && !keys->Has(row.transactionId)) continue;
    const bool isKnown = found.account != nullptr;
    table.AddRow({row.transactionId, isKnown ? found.account->account : std::string(), row.date,
                  row.payee, row.category, row.reference, row.description, row.amount,
                  isKnown ? found.account->currency : std::string()});
  }
  return table;
}

std::string JoinWords(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

}  // namespace

Parser* FindCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("find", "Find transactions by what stands in them");
  command->AddOption("words", words_, "Words and amounts, all of which a transaction must have")
      ->Several()
      ->Required()
      ->Check(EmptyFault);
  command
      ->AddOption("--account", account_.name, "In that account alone: its name, or # and its key")
      ->Check(EmptyFault);
  period_.Declare(*command);
  filter_.Declare(*command);
  return command;
}

ExitStatus FindCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const SearchQuery query(JoinWords(words_), session.Machine().locale);
  if (query.IsEmpty()) {
    return session.Refuse("Find", "There is nothing to look for: give a word or an amount.");
  }
  SearchScope scope{0, period_.Get()};
  if (!account_.name.empty()) {
    const std::optional<AccountRow> account = account_.Find(ledger, session);
    if (!account) return ExitStatus::Refused;
    scope.accountId = account->accountId;
  }
  const std::optional<RowFilter> filter = filter_.Find(ledger, session);
  if (!filter) return ExitStatus::Refused;
  const auto keys = FilterArguments::KeysOf(ledger, *filter, scope.accountId);
  const auto index = std::make_shared<SearchIndex>(ledger.Store());
  index->ReadAll();
  TransactionSearch search(index, query, scope);
  search.Finish();
  session.Print(TableOf(ReadFound(*index, search.Hits()), keys));
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
