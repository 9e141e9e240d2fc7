#pragma once

#include "cli/EditorCommand.h"
#include "cli/TransactionsArgument.h"
#include "ledger/ReferenceRecords.h"

namespace corvanta::inline cli {

// keyword: keywords, and the links between them and transactions.
class KeywordCommand : public EditorCommand<KeywordRecord> {
 public:
  KeywordCommand() : EditorCommand("keyword", "Keyword") {}

  ExitStatus Run(Session& session) override;

 protected:
  void DeclareMore(CLI::App& command) override;

 private:
  ExitStatus RunOf(Session& session);
  ExitStatus RunLink(Session& session);

  CLI::App* of_ = nullptr;
  CLI::App* link_ = nullptr;
  CLI::App* unlink_ = nullptr;
  std::string keyword_;
  TransactionsArgument transactions_;
};

}  // namespace corvanta::inline cli
