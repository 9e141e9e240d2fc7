#pragma once

#include "exchange/import/ImportContext.h"
#include "exchange/import/ImportNames.h"
#include "exchange/import/ImportPlanner.h"
#include "exchange/import/ImportRecord.h"
#include "exchange/import/RecordValues.h"
#include "ledger/transactions/TransactionRecord.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace corvanta::inline exchange {

struct ImportedAccount;

// Books the records of a file as its plan says, inside the transaction of its caller.
class Importer : public ImportSink {
 public:
  // `fates` are those of the same file's records.
  Importer(const ImportContext& context, const std::vector<Fate>& fates);

  void OnAccount(const ImportAccount& account) override;
  void OnListedAccount(const ImportAccount& account) override;
  void OnSecurity(const std::string& name, const std::string& symbol) override;
  // False where the plan ends, and once the person stops it. Throws StoreError.
  [[nodiscard]] bool OnRecord(ImportRecord& record) override;
  void OnProblem(std::size_t, const std::string&) override {}

  // Whether the person stopped it: nothing is to be kept then.
  [[nodiscard]] bool IsCancelled() const { return isCancelled_; }
  // The rows that are booked as a transfer with another account of the ledger.
  [[nodiscard]] const std::vector<std::int64_t>& Halves() const { return halves_; }

 private:
  void Book(const ImportRecord& record, const RecordValues& values);
  void BookHolding(const ImportRecord& record, const RecordValues& values);
  // The category with the other account as the ledger spells it. The own one is no transfer but an
  // opening balance.
  [[nodiscard]] ImportCategory CategoryOf(const ImportCategory& category) const;
  // The account's line in the summary.
  ImportedAccount& InSummary(const ImportTarget& account);

  ImportContext context_;
  const std::vector<Fate>& fates_;
  std::size_t next_ = 0;                                  // of the fates
  const ImportTarget* chosen_;                            // by the person
  const ImportTarget* current_;                           // of the records that follow
  std::string nameInFile_;                                // of that one
  std::unordered_map<std::int64_t, std::size_t> places_;  // of accounts in the summary
  std::vector<std::int64_t> halves_;
  bool isCancelled_ = false;
};

}  // namespace corvanta::inline exchange
