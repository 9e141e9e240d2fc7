#pragma once

#include "exchange/DuplicateIndex.h"
#include "exchange/ImportJob.h"
#include "exchange/ImportNames.h"
#include "exchange/ImportRecord.h"
#include "exchange/ImportSummary.h"
#include "exchange/StyleFinder.h"
#include "ledger/TransactionRecord.h"
#include "store/Connection.h"

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvanta {

class clsCorvanta;
struct InvestmentTransaction;
struct Platform;

// Books the records of a file through the ledger. Whole records are committed about every quarter
// of a second; a question is never asked inside a write.
class Importer : public ImportSink {
 public:
  // `size` is that of the text, for the progress bar.
  Importer(clsCorvanta& ledger, Platform& platform, const ImportJob& job, const ImportStyle& style,
           std::size_t size, ImportSummary& summary);

  void OnAccount(const ImportAccount& account) override;
  void OnSecurity(const std::string& name, const std::string& symbol) override;
  // False once the import stops; the summary says why. Throws StoreError, with the records so far
  // waiting to be committed.
  [[nodiscard]] bool OnRecord(ImportRecord& record) override;
  void OnProblem(std::size_t line, const std::string& text) override;

  // Writes what waits to be committed. Throws StoreError.
  void Commit();
  // The same after a failure; what cannot be written is gone, and the summary does not count it.
  void CommitWhatGoes();
  // Whether anything was committed that can be undone.
  [[nodiscard]] bool HasWritten() const { return hasWritten_; }

 private:
  enum class Choice { Import, Skip, Stop };

  bool Stop(const std::string& why);
  // What follows a value that is not understood: false where the import stops there.
  bool Fault(const ImportRecord& record, const ImportValue& value, const std::string& text);
  bool Book(ImportRecord& record, Date date);
  bool BookInvestment(const ImportRecord& record, Date date);
  bool GoOn(const ImportRecord& record);

  [[nodiscard]] std::optional<double> Number(const ImportValue& value) const;
  [[nodiscard]] std::optional<double> AmountOf(const ImportRecord& record) const;
  // The lines of a record with their sum as its amount; nullopt after a fault, which `bad` names.
  [[nodiscard]] std::optional<std::vector<TransactionRecord>> LinesOf(const ImportRecord& record,
                                                                      const ImportValue*& bad);
  void SetAccountName(ImportCategory& category) const;
  void WriteRecord(const ImportRecord& record, TransactionRecord row,
                   std::vector<TransactionRecord>& lines);
  [[nodiscard]] Choice ChoiceFor(const ImportRecord& record, Date date, double amount,
                                 const std::string& reference);
  [[nodiscard]] Choice AskAbout(const ImportRecord& record,
                                const DuplicateIndex::Candidate& candidate);
  [[nodiscard]] const DuplicateIndex& Former();
  void BeginWrite();

  clsCorvanta& ledger_;
  Platform& platform_;
  const ImportStyle style_;
  const std::size_t size_;
  ImportSummary& summary_;
  ImportNames names_;
  DuplicateAnswer duplicates_;
  const ImportTarget* chosen_ = nullptr;   // by the person
  const ImportTarget* current_ = nullptr;  // of the records that follow
  std::map<std::int64_t, DuplicateIndex> former_;
  std::optional<Transaction> batch_;
  struct {
    std::size_t transactions = 0;
    std::size_t investments = 0;
  } committed_;
  bool hasWritten_ = false;
  std::chrono::steady_clock::time_point batchBegan_;
};

}  // namespace corvanta
