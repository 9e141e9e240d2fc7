#pragma once

#include "cli/ExitStatus.h"
#include "entry/AllocationEditor.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Parser;
class Session;

// The lines that a transaction or a schedule is split into: listed without options, otherwise
// added, edited, replaced and deleted, all of it or nothing.
class SplitLines {
 public:
  // Takes the command's final callback.
  void Declare(Parser& command);
  // Whether any option asks for a change.
  [[nodiscard]] bool Changes() const { return !lines_.empty() || !deleted_.empty() || replaces_; }
  ExitStatus Run(AllocationEditor& editor, clsCorvanta& ledger, Session& session) const;

 private:
  // What is not given of a line that is edited stays as it is.
  struct Line {
    std::optional<std::int64_t> key;  // of the line that is edited
    std::optional<std::string> category;
    std::optional<std::string> amount;
    std::optional<std::string> description;
    std::optional<std::string> reference;
  };
  // What becomes of the lines.
  struct Plan {
    std::vector<AllocationForm> written;
    std::vector<std::int64_t> leaving;
    std::size_t edited = 0;
    std::size_t staying = 0;
    double sum = 0;  // the sum afterwards, signed
  };

  void CollectLines(const Parser& command);
  void CheckLines() const;
  [[nodiscard]] bool Leaves(std::int64_t key) const;
  [[nodiscard]] const Line* EditOf(std::int64_t key) const;
  // False, told, when one of the keys is no line, or is both edited and deleted.
  [[nodiscard]] bool CheckKeys(const std::vector<AllocationForm>& present, Session& session) const;
  [[nodiscard]] static AllocationForm Changed(AllocationForm line, const Line& given,
                                              const AllocationEditor& editor, clsCorvanta& ledger);
  // nullopt, told, when a rule refuses it.
  [[nodiscard]] std::optional<Plan> PlanChange(AllocationEditor& editor, clsCorvanta& ledger,
                                               Session& session) const;
  ExitStatus Change(AllocationEditor& editor, clsCorvanta& ledger, Session& session) const;
  static void List(AllocationEditor& editor, Session& session);

  std::vector<std::int64_t> edited_;
  std::vector<std::string> categories_;
  std::vector<std::string> amounts_;
  std::vector<std::string> descriptions_;
  std::vector<std::string> references_;
  std::vector<std::int64_t> deleted_;
  bool replaces_ = false;
  std::vector<Line> lines_;
};

}  // namespace corvanta::inline cli
