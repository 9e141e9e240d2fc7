#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace corvanta {

inline constexpr const char* kFileImport = "File Import";  // the title of all its messages

// A line of the file that was not understood, or something left out.
struct ImportProblem {
  std::size_t line = 0;
  std::string text;
};

enum class ImportOutcome {
  Complete,   // the whole file
  Kept,       // stopped; the whole records before are in the ledger
  TakenBack,  // stopped; the ledger is as before
  Refused     // nothing was read
};

// What came of a file.
struct ImportSummary {
  ImportOutcome outcome = ImportOutcome::Refused;
  std::string stop;  // why it did not come to its end, in words for a person; empty otherwise
  std::size_t imported = 0;        // transactions of banks, cash and cards
  std::size_t investments = 0;     // transactions of investments
  std::size_t duplicates = 0;      // skipped
  std::size_t transfers = 0;       // pairs
  std::size_t splitTransfers = 0;  // split lines that name an account and keep it as their category
  std::size_t unequalSplits = 0;   // records whose lines add up to something else than their total
  std::size_t shortened = 0;       // texts that were longer than the ledger holds
  std::size_t problemCount = 0;
  std::vector<ImportProblem> problems;  // the first of them

  void AddProblem(std::size_t line, std::string text);
  [[nodiscard]] bool BookedNothing() const { return imported + investments == 0; }
  // All of it as lines for a person, `mostProblems` of the problems.
  [[nodiscard]] std::string Text(std::size_t mostProblems = 20) const;
};

}  // namespace corvanta
