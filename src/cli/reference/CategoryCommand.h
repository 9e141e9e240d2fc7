#pragma once

#include "cli/reference/ReferenceCommand.h"

namespace corvanta::inline cli {

class Parser;

// category: categories and sub-categories with their budgets. Both stand in one name:
// "Category:SubCategory".
class CategoryCommand : public ReferenceCommand {
 public:
  CategoryCommand() : ReferenceCommand({"category", "Category", "category", "categories"}) {}

 protected:
  void DeclareAdd(Parser& add) override;
  OutputTable List(clsCorvanta& ledger) override;
  std::vector<NamedItem> Items(clsCorvanta& ledger) override;
  std::optional<std::int64_t> Add(clsCorvanta& ledger, Session& session,
                                  const std::string& name) override;
  std::optional<std::int64_t> Rename(clsCorvanta& ledger, Session& session, std::int64_t key,
                                     const std::string& name) override;
  Deletion Delete(clsCorvanta& ledger, Prompts& prompts, std::int64_t key) override;

 private:
  std::string type_;
  std::string budget_ = "0";
  std::string period_;
  std::string description_;
};

}  // namespace corvanta::inline cli
