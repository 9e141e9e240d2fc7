#include "cli/reference/KeywordCommand.h"

#include "cli/Parser.h"
#include "ledger/clsCorvanta.h"
#include "ledger/transactions/KeywordBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "store/sql/Connection.h"

namespace corvanta::inline cli {

void KeywordCommand::DeclareMore(Parser& command) {
  of_ = command.AddCommand("of", "List the keywords of a transaction");
  transactions_.DeclareOne(*of_);
  link_ = command.AddCommand("link", "Give transactions a keyword");
  unlink_ = command.AddCommand("unlink", "Take a keyword from transactions");
  for (Parser* form : {link_, unlink_}) {
    form->AddOption("keyword", keyword_, "Its name, or # and its key")->Required();
    transactions_.Declare(*form);
  }
}

ExitStatus KeywordCommand::Run(Session& session) {
  if (of_->Parsed()) return RunOf(session);
  if (link_->Parsed() || unlink_->Parsed()) return RunLink(session);
  return ReferenceCommand::Run(session);
}

ExitStatus KeywordCommand::RunOf(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const auto rows = transactions_.Find(ledger, session);
  if (!rows) return ExitStatus::Refused;
  session.Print(TableOf(ledger.Notes().KeywordsOf(rows->front().transactionId)));
  return ExitStatus::Done;
}

ExitStatus KeywordCommand::RunLink(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const std::optional<NamedItem> keyword = Find(ledger, session, keyword_);
  if (!keyword) return ExitStatus::Refused;
  const auto rows = transactions_.Find(ledger, session);
  if (!rows || RefuseClosed(*rows, session)) return ExitStatus::Refused;

  Transaction all = ledger.Store().Begin();
  for (const TransactionDetails& row : *rows) {
    if (link_->Parsed()) {
      ledger.Notes().LinkKeyword(keyword->key, row.transactionId);
    } else {
      ledger.Notes().UnlinkKeyword(keyword->key, row.transactionId);
    }
  }
  all.Commit();
  session.Tell(Texts().title, "\"" + keyword->name + "\" " +
                                  (link_->Parsed() ? "linked to " : "taken from ") +
                                  TransactionCount(rows->size()));
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
