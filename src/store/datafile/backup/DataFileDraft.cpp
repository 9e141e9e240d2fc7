#include "store/datafile/backup/DataFileDraft.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "store/datafile/Compact.h"
#include "store/datafile/DataFileLocation.h"
#include "store/datafile/backup/BackupMark.h"
#include "store/datafile/opening/DraftFile.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/datafile/upgrade/Balances.h"
#include "store/sql/StoreError.h"

#include <filesystem>

namespace corvanta::inline datafile {
namespace {

DataFileLocation LocationOf(const std::string& place) {
  const std::filesystem::path path(place);
  const std::string folder = path.parent_path().string();
  return {folder.empty() ? "." : folder, path.filename().string()};
}

}  // namespace

DataFileDraft::DataFileDraft(const DataSource& source, const std::string& place,
                             const CopyMark& mark, const Writer& writer, Platform& platform)
    : platform_(platform),
      place_(place),
      mark_(mark),
      kept_(KeepDataFile(source.path, platform.files)) {
  platform_.files.Own().RequireOther(place);
  lock_ = WriterLock::Acquire(place, writer);
  SettleJournalQuietly({place, source.password, {}});
  const DataFileLocation location = LocationOf(place);
  const CopyMark growing = mark == CopyMark{} ? DraftMark(location.fileName) : Unfinished(mark);
  copy_ = {
      FreeDraftPath(location, growing, source.password, writer, platform), source.password, {}};
  try {
    CopyAll(source, growing);
  } catch (...) {
    RemoveDataFileQuietly(copy_.path, platform.files);
    throw;
  }
}

DataFileDraft::~DataFileDraft() {
  if (!isInstalled_) RemoveDataFileQuietly(copy_.path, platform_.files);
}

// A command that writes meanwhile makes the two differ; then it is done once more.
void DataFileDraft::CopyAll(const DataSource& source, const CopyMark& mark) {
  constexpr int kTries = 3;
  for (int attempt = 1;; ++attempt) {
    const auto expected = VerifiedBalances(source, platform_.clock);
    CompactDatabase(source, copy_, platform_.clock, platform_.files, mark);
    if (SameBalances(expected, VerifiedBalances(copy_, platform_.clock))) return;
    RemoveDataFile(copy_.path, platform_.files);
    if (attempt == kTries) break;
  }
  throw StoreError(StoreErrorCode::Io,
                   "The copy has other balances than the data file, which is as it was. The copy "
                   "was removed. Check the disk and try again.",
                   {}, source.path);
}

void DataFileDraft::Install() {
  InstallDataFile(copy_.path, place_, platform_.files);
  isInstalled_ = true;
  ChangeMarkQuietly({place_, copy_.password, {}}, mark_);
}

}  // namespace corvanta::inline datafile
