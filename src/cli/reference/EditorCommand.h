#pragma once

#include "cli/reference/ReferenceCommand.h"

namespace corvanta::inline cli {

class Parser;

// The command of one kind of the ledger's ReferenceTables.h.
template <typename Record>
class EditorCommand : public ReferenceCommand {
 public:
  // The command's name, and the column of names in its lists.
  EditorCommand(const char* command, const char* column);

 protected:
  void DeclareAdd(Parser& add) override;
  OutputTable List(clsCorvanta& ledger) override;
  std::vector<NamedItem> Items(clsCorvanta& ledger) override;
  std::optional<std::int64_t> Add(clsCorvanta& ledger, Session& session,
                                  const std::string& name) override;
  std::optional<std::int64_t> Rename(clsCorvanta& ledger, Session& session, std::int64_t key,
                                     const std::string& name) override;
  Deletion Delete(clsCorvanta& ledger, Prompts& prompts, std::int64_t key) override;

  [[nodiscard]] OutputTable TableOf(const std::vector<Record>& rows) const;

 private:
  const char* column_;
  Record details_;  // what "add" is told beside the name
};

}  // namespace corvanta::inline cli
