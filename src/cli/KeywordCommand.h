#pragma once

#include "cli/EditorCommand.h"
#include "cli/TransactionsArgument.h"
#include "ledger/KeywordBook.h"
#include "ledger/ReferenceRecords.h"
#include "reference/KeywordEditor.h"

namespace corvanta {

// keyword: keywords, and the links between them and transactions.
class KeywordCommand : public EditorCommand<KeywordEditor, KeywordRecord, &KeywordRecord::keywordId,
                                            &KeywordRecord::keyword> {
 public:
  KeywordCommand() : EditorCommand({"keyword", "Keyword", "keyword", "keywords"}) {}

  ExitStatus Run(Session& session) override;

 protected:
  void DeclareMore(CLI::App& command) override;
  std::vector<KeywordRecord> All(clsCorvanta& ledger) override { return ledger.Notes().Keywords(); }
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
