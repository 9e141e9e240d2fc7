#pragma once

#include "cli/EditorCommand.h"
#include "cli/TransactionsArgument.h"
#include "reference/KeywordEditor.h"

namespace corvanta {

// keyword: keywords, and the links between them and transactions.
class KeywordCommand : public EditorCommand<KeywordEditor, KeywordRecord, &KeywordRecord::keywordId,
                                            &KeywordRecord::keyword, &clsCorvanta::Keywords> {
 public:
  KeywordCommand() : EditorCommand({"keyword", "Keyword", "keyword", "keywords"}) {}

  ExitStatus Run(Session& session) override;

 protected:
  void DeclareMore(CLI::App& command) override;
  OutputTable List(clsCorvanta& ledger) override;

 private:
  ExitStatus RunOf(Session& session);
  ExitStatus RunLink(Session& session);

  CLI::App* of_ = nullptr;
  CLI::App* link_ = nullptr;
  CLI::App* unlink_ = nullptr;
  std::string keyword_;
  TransactionsArgument transactions_;
};

}  // namespace corvanta
