// What a backup says of itself: of which data file it is, and when it was made. It stands where a
// copy that is being made has its mark, so behind the key and in no table.
#pragma once

#include "platform/Date.h"
#include "store/sql/engine/CopyMark.h"

#include <optional>
#include <string>

namespace corvanta::inline datafile {

// The mark of a backup of the data file at that path, made in that minute.
[[nodiscard]] CopyMark BackupMark(const std::string& dataFile, DateTime made);
// The same until the backup has its place: it is one already, and told apart while it is made.
[[nodiscard]] CopyMark Unfinished(const CopyMark& backupMark);
[[nodiscard]] bool IsUnfinished(const CopyMark& mark);
// When a backup with that mark was made.
[[nodiscard]] DateTime BackupTime(const CopyMark& mark);

// The mark that a file carries; nullopt where there is none that the password opens.
[[nodiscard]] std::optional<CopyMark> MarkIn(const std::string& path, const std::string& password);

// When the file was made, where it is a backup of this data file; nullopt for any other file, and
// for what cannot be opened with the password.
[[nodiscard]] std::optional<DateTime> ReadBackupTime(const std::string& path,
                                                     const std::string& password,
                                                     const std::string& dataFile);
// The same of a backup of whatever data file.
[[nodiscard]] std::optional<DateTime> ReadBackupTime(const std::string& path,
                                                     const std::string& password);
// Whether the file carries this mark, be it of another minute.
[[nodiscard]] bool IsMarkedAlike(const std::string& path, const std::string& password,
                                 const CopyMark& mark);

}  // namespace corvanta::inline datafile
