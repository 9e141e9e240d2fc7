#pragma once

#include "platform/Date.h"
#include "store/datafile/WriterLock.h"
#include "store/datafile/backup/Generations.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {
class Registry;
struct Platform;
}  // namespace corvanta::inline platform

namespace corvanta::inline safety {

// A data file that is to be backed up; it may be open in this program.
struct BackedFile {
  std::string path;
  std::string password;  // that opens it
};

struct BackupWishes {
  bool withFileStore = true;  // the folder of attached files, too
  bool withTransfer = false;  // and a transfer file beside the backup
};

struct BackupResult {
  std::string path;         // of the backup
  std::size_t files = 0;    // attached files that were copied
  std::size_t removed = 0;  // older backups that were no longer needed
};

// Makes backups of data files and knows when one is due.
//
// A backup is a data file of its own, made through the library while the file is open, whole or not
// at all; it counts when every page of it was read and every account's balance compared. The latest
// one has the name that the setting "Backup" chooses (without one that of the data file, in a
// folder "Backup" beside it); those before it have their day and time in their names and are
// thinned out by age (see Superfluous), which only ever happens behind a new one that counts.
class Backup {
 public:
  // `writer` names this program to others. All must outlive this object.
  Backup(Platform& platform, const Writer& writer) : platform_(platform), writer_(writer) {}

  // Where the setting sends the backups of the data file.
  [[nodiscard]] std::string PlaceOf(const std::string& dataFile) const;
  // The backups that are there now, the newest first.
  [[nodiscard]] std::vector<Generation> Generations(const BackedFile& file) const;
  // Whether the chosen frequency asks for a backup when the file is left: none of this start
  // ("Every Time"), of this day, or of the last seven days; never with "SkipBackup".
  [[nodiscard]] bool IsDue(const BackedFile& file) const;
  // What the settings say is to be backed up.
  [[nodiscard]] BackupWishes Chosen() const;

  // Makes one where the settings send it. Throws StoreError and PlatformError; what was there
  // before is there still.
  BackupResult Make(const BackedFile& file, const BackupWishes& wishes);
  // Makes one under that name, over a former backup of this data file alone: any other file there
  // is refused, with StoreError(Sql). Throws as above.
  BackupResult MakeAt(const BackedFile& file, const std::string& path, const BackupWishes& wishes);
  // The same over whatever stands there and is no data file in use: the person has agreed.
  BackupResult MakeOver(const BackedFile& file, const std::string& path,
                        const BackupWishes& wishes);
  // Makes the one that is due, if it is; a failure is remembered and not thrown. True when one was
  // made.
  bool MakeDue(const BackedFile& file) noexcept;

  // Why the last backup failed, in words; nullopt when it did not.
  [[nodiscard]] std::optional<std::string> Failure(const BackedFile& file) const;
  // Tells a failure once more, and offers to try again at once. To be called when the file has been
  // opened.
  void RemindOfFailure(const BackedFile& file);

 private:
  void Write(const BackedFile& file, const std::string& path, bool isPlace);
  void AddRest(const BackedFile& file, const BackupWishes& wishes, BackupResult& result);
  std::size_t Thin(const BackedFile& file);
  void Remember(const BackedFile& file, const std::string& failure);

  Platform& platform_;
  const Writer& writer_;
};

}  // namespace corvanta::inline safety
