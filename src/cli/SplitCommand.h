#pragma once

#include "cli/Command.h"
#include "cli/TransactionsArgument.h"
#include "entry/AllocationEditor.h"

#include <string>
#include <vector>

namespace corvanta {

// split ID: lists the lines of a transaction, adds some, replaces or deletes them.
class SplitCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  struct Line {
    std::string category;
    std::string amount;
    std::string description;
    std::string reference;
  };

  void CollectLines();
  [[nodiscard]] bool Changes() const { return !lines_.empty() || !deleted_.empty() || replaces_; }
  // What becomes of the lines; nullopt, told, when a rule refuses it.
  struct Plan {
    std::vector<AllocationForm> added;
    std::vector<std::int64_t> leaving;
    std::size_t staying = 0;
    double shares = 0;  // the sum afterwards, signed
  };
  [[nodiscard]] std::optional<Plan> PlanChange(AllocationEditor& editor, clsCorvanta& ledger,
                                               Session& session) const;
  ExitStatus Change(AllocationEditor& editor, clsCorvanta& ledger, Session& session) const;
  static void List(AllocationEditor& editor, Session& session);

  CLI::App* command_ = nullptr;
  TransactionsArgument transaction_;
  std::vector<std::string> categories_;
  std::vector<std::string> amounts_;
  std::vector<std::string> descriptions_;
  std::vector<std::string> references_;
  std::vector<std::int64_t> deleted_;
  bool replaces_ = false;
  std::vector<Line> lines_;
};

}  // namespace corvanta
