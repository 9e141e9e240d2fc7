#pragma once

#include "exchange/ImportJob.h"
#include "exchange/ImportKind.h"
#include "exchange/ImportSummary.h"

#include <string>

namespace corvanta {

class Importer;
class clsCorvanta;
struct FileText;
struct Platform;

// Imports one file: reads it, finds how it writes dates and numbers, books its records and pairs
// its transfers, as one step that can be undone.
class FileImport {
 public:
  FileImport(clsCorvanta& ledger, Platform& platform) : ledger_(ledger), platform_(platform) {}

  // Shows its progress; asks about duplicates and, when it stops, what becomes of the records so
  // far, where the job does not say. A file that is none is Refused and told why in the summary.
  // Starts the undo log. Throws PlatformError where the file cannot be read or a question has no
  // answer; then the ledger is as before.
  [[nodiscard]] ImportSummary Run(const ImportJob& job);

 private:
  void ImportText(const FileText& file, const ImportJob& job, ImportSummary& summary);
  void Book(ImportKind kind, const FileText& file, const ImportJob& job, Importer& importer,
            ImportSummary& summary);
  [[nodiscard]] bool AskToKeep(const ImportJob& job, const ImportSummary& summary);
  void PairTransfers(ImportSummary& summary);

  clsCorvanta& ledger_;
  Platform& platform_;
};

}  // namespace corvanta
