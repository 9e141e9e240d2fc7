#pragma once

#include "cli/arguments/TransactionsArgument.h"
#include "cli/reference/EditorCommand.h"
#include "ledger/reference/ReferenceRecords.h"

namespace corvanta::inline cli {

class Parser;

// keyword: keywords, and the links between them and transactions.
class KeywordCommand : public EditorCommand<KeywordRecord> {
 public:
  KeywordCommand() : EditorCommand("keyword", "Keyword") {}

  ExitStatus Run(Session& session) override;

 protected:
  void DeclareMore(Parser& command) override;

 private:
  ExitStatus RunOf(Session& session);
  ExitStatus RunLink(Session& session);

  Parser* of_ = nullptr;
  Parser* link_ = nullptr;
  Parser* unlink_ = nullptr;
  std::string keyword_;
  TransactionsArgument transactions_;
};

}  // namespace corvanta::inline cli
