#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline exchange {

inline constexpr const char* kFileImport = "File Import";  // the title of all its messages
inline constexpr const char* kImportCancelled = "The import was cancelled.";

// A line of the file that was not understood, or something left out.
struct ImportProblem {
  std::size_t line = 0;
  std::string text;
};

enum class ImportOutcome {
  Complete,  // the whole file
  Kept,      // stopped; what stands before that is in the ledger
  Dropped,   // stopped; the ledger is as before
  Refused    // nothing was read
};

// An account that records of the file went into, or that was made because the file lists it.
struct ImportedAccount {
  std::int64_t accountId = 0;
  std::string name;
  std::size_t transactions = 0;
  bool isNew = false;  // made for this file
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
  std::size_t rounded = 0;         // records with more decimals than their account's currency has
  std::size_t shortened = 0;       // texts that were longer than the ledger holds
  std::vector<ImportedAccount> accounts;
  // Transfers with another account of the ledger that hold one half only, and the rows of those
  // whose other half can be made.
  std::size_t loneHalves = 0;
  std::vector<std::int64_t> completable;
  std::size_t problemCount = 0;
  std::vector<ImportProblem> problems;  // the first of them

  void AddProblem(std::size_t line, std::string text);
  // Whether neither a transaction nor an account came out of the file.
  [[nodiscard]] bool BroughtNothing() const;
  // Whether anything of the ledger is other than before.
  [[nodiscard]] bool HasChanged() const {
    return outcome == ImportOutcome::Complete || outcome == ImportOutcome::Kept;
  }
  // The preferred account where transactions went into it, else the one that got most; 0 for none.
  [[nodiscard]] std::int64_t AccountToShow(std::int64_t preferred) const;
  // All of it as lines for a person, `mostProblems` of the problems.
  [[nodiscard]] std::string Text(std::size_t mostProblems = 20) const;
};

}  // namespace corvanta::inline exchange
