#pragma once

#include "exchange/import/ImportJob.h"
#include "exchange/import/ImportKind.h"
#include "exchange/import/ImportSummary.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline exchange {

class ImportPlanner;
struct FileText;
struct ImportContext;

// Imports one file: reads it, finds how it writes dates and numbers, settles what becomes of its
// records, and books them and pairs its transfers, as one step that can be undone.
class FileImport {
 public:
  FileImport(clsCorvanta& ledger, Platform& platform) : ledger_(ledger), platform_(platform) {}

  // Shows its progress; asks, before anything is written, about duplicates and, where the file has
  // a fault that ends the import, whether what stands before is imported, where the job does not
  // say. A file that is none is Refused and told why in the summary. A person who stops it leaves
  // the ledger as it was. Starts the undo log. Throws StoreError, and PlatformError where the file
  // cannot be read or a question has no answer; then the ledger is as before, too.
  [[nodiscard]] ImportSummary Run(const ImportJob& job);

 private:
  void ImportText(const FileText& file, const ImportJob& job, ImportSummary& summary);
  // False where the person stops it.
  [[nodiscard]] bool Book(ImportKind kind, std::string_view text, const ImportContext& context,
                          const ImportPlanner& plan);
  [[nodiscard]] bool AskToKeep(const ImportJob& job, const ImportSummary& summary,
                               std::size_t count);

  clsCorvanta& ledger_;
  Platform& platform_;
};

}  // namespace corvanta::inline exchange
