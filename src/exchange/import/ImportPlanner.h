#pragma once

#include "exchange/import/DuplicateIndex.h"
#include "exchange/import/ImportContext.h"
#include "exchange/import/ImportJob.h"
#include "exchange/import/ImportNames.h"
#include "exchange/import/ImportRecord.h"
#include "exchange/import/RecordValues.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline exchange {

// What becomes of a record.
enum class Fate : char { Book, Skip, LeaveOut };

// Settles what becomes of each record of a file before the first is written, so that no question is
// asked inside a write. Changes nothing.
class ImportPlanner : public ImportSink {
 public:
  explicit ImportPlanner(const ImportContext& context);

  void OnAccount(const ImportAccount& account) override;
  void OnSecurity(const std::string&, const std::string&) override {}
  // False once the import stops; the summary says why. Throws PlatformError where a question has no
  // answer.
  [[nodiscard]] bool OnRecord(ImportRecord& record) override;
  void OnProblem(std::size_t line, const std::string& text) override;

  // In the file's order, up to where the import stops.
  [[nodiscard]] const std::vector<Fate>& Fates() const { return fates_; }
  // How many are to be booked.
  [[nodiscard]] std::size_t Booked() const { return booked_; }
  // The rows of the ledger that answer for records of transfers with the same other account, in
  // whatever state they are now.
  [[nodiscard]] const std::vector<std::int64_t>& KnownHalves() const { return knownHalves_; }
  // Whether the person stopped it, which ends the import as a whole.
  [[nodiscard]] bool IsCancelled() const { return isCancelled_; }

 private:
  bool Stop(const std::string& why);
  bool Cancel();
  bool Settle(Fate fate);
  // nullopt where the person cancels.
  [[nodiscard]] std::optional<Fate> FateOf(const ImportRecord& record, const RecordValues& values);
  [[nodiscard]] Fate FateOfHolding(const ImportRecord& record, const RecordValues& values);
  [[nodiscard]] std::optional<Fate> FateOfCash(const ImportRecord& record,
                                               const RecordValues& values);
  [[nodiscard]] std::vector<DuplicateIndex::Candidate*> CandidatesOf(const ImportRecord& record,
                                                                     const RecordValues& values);
  [[nodiscard]] std::optional<bool> AskWhetherToBook(const ImportRecord& record,
                                                     const DuplicateIndex::Candidate& candidate);
  // The row answers for the record.
  [[nodiscard]] Fate SkipFor(const ImportRecord& record, DuplicateIndex::Candidate& row);
  // Whether the record is a transfer, and the row one with the account that it names.
  [[nodiscard]] bool IsSameTransfer(const ImportRecord& record,
                                    const DuplicateIndex::Candidate& row) const;
  [[nodiscard]] DuplicateIndex& Former();

  ImportContext context_;
  DuplicateAnswer duplicates_;
  const ImportTarget* chosen_;   // by the person
  const ImportTarget* current_;  // of the records that follow
  bool isNew_ = false;           // they go into an account that is yet to be made
  std::map<std::int64_t, DuplicateIndex> former_;
  std::vector<Fate> fates_;
  std::vector<std::int64_t> knownHalves_;
  std::size_t booked_ = 0;
  bool isCancelled_ = false;
};

}  // namespace corvanta::inline exchange
