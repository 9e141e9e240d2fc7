// Steps on whole data files that nobody has open.
#pragma once

#include "platform/FileIdentity.h"
#include "platform/OwnFiles.h"

#include <optional>
#include <string>

namespace corvanta::inline platform {
class Files;
}

namespace corvanta::inline sql {
struct DataSource;
}

namespace corvanta::inline datafile {

// Makes a data file, and the names beside it that belong to it, the program's own: no other file
// is written there.
[[nodiscard]] KeptFiles KeepDataFile(const std::string& path, Files& files);
// Throws StoreError(Io) when the name stands for another file by now, or for none.
void RequireStillThere(const std::string& path, const std::optional<FileIdentity>& identity);

// Removes a file of this kind and the journal beside it; one that is not there is no error.
// Throws PlatformError.
void RemoveDataFile(const std::string& path, Files& files);
// The same while another failure is on its way: it is the one to be told.
void RemoveDataFileQuietly(const std::string& path, Files& files) noexcept;

// True while changes that are not finished lie in a file beside it.
[[nodiscard]] bool HasJournal(const std::string& path);

// A program that was killed leaves a journal: what it had begun is taken back and the journal gone,
// also one in which there is nothing yet, and which nobody takes away but the next that writes.
// Whoever calls this holds the file's writer lock. Throws StoreError.
void SettleJournal(const DataSource& source);
// The same where a file that cannot be opened may keep its journal.
void SettleJournalQuietly(const DataSource& source) noexcept;

// Gives a whole file the name of the data file, in one step over the old one. Throws
// StoreError(Io) while a journal with unfinished changes of the old one lies beside it (it would
// be played into the new one), and PlatformError.
void InstallDataFile(const std::string& from, const std::string& to, Files& files);

// Moves a file with its journal to a name that is free. Throws PlatformError.
void MoveDataFile(const std::string& from, const std::string& to, Files& files);
// Moves a file, with its journal, out of the way, to its name with this ending and, where that is
// taken, a number behind it. Returns the new path. Throws PlatformError.
std::string SetAside(const std::string& path, const std::string& ending, Files& files);

}  // namespace corvanta::inline datafile
