#pragma once

#include "safety/ArchivePlan.h"
#include "safety/Backup.h"

#include <string>

namespace corvanta::inline safety {

// Moves what the plan says into an archive, a data file of its own: with the lines, keywords and
// attachments of the rows, all reference data and the chosen accounts, without schedules. The
// archive is whole, checked and in its place before anything is taken out of the data file, and
// that is one step: killed in between, rows are in both. Opening balances take up what goes, and
// every balance is compared before it counts. Throws StoreError and PlatformError; the data file is
// then as it was, and there is no archive.
class ArchiveWriter {
 public:
  // `file` is the ledger's. All must outlive this object.
  ArchiveWriter(clsCorvanta& ledger, BackedFile file, Platform& platform, const Writer& writer)
      : ledger_(ledger), file_(std::move(file)), platform_(platform), writer_(writer) {}

  void Write(const ArchivePlan& plan, const std::string& path);

 private:
  void WriteArchive(const ArchivePlan& plan, const std::string& path);
  void RemoveRows(const ArchivePlan& plan);

  clsCorvanta& ledger_;
  BackedFile file_;
  Platform& platform_;
  const Writer& writer_;
};

}  // namespace corvanta::inline safety
