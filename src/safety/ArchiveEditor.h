#pragma once

#include "safety/ArchiveWriter.h"

#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline safety {

// The rules of archiving transactions. Operations throw StoreError and PlatformError.
class ArchiveEditor {
 public:
  // `file` is the ledger's. All must outlive this object.
  ArchiveEditor(clsCorvanta& ledger, BackedFile file, Platform& platform, const Writer& writer)
      : ledger_(ledger),
        file_(file),
        platform_(platform),
        writer_(ledger, std::move(file), platform, writer) {}

  // All accounts, up to the beginning of the year before this one, into a file beside the data file
  // that is named after that year.
  [[nodiscard]] ArchiveForm Load() const;
  [[nodiscard]] std::optional<Warning> Check(const ArchiveForm& form) const;
  // What would go; of a form that has no day, nothing.
  [[nodiscard]] ArchivePlan Plan(const ArchiveForm& form) const;
  // Why some of the rows stay, as sentences; empty where all go.
  [[nodiscard]] std::string Rest(const ArchivePlan& plan) const;
  // Asks, archives and tells. False when the person declines, or nothing would go (told).
  bool Save(const ArchiveForm& form);

 private:
  clsCorvanta& ledger_;
  BackedFile file_;
  Platform& platform_;
  ArchiveWriter writer_;
};

}  // namespace corvanta::inline safety
