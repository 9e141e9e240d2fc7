#pragma once

#include "ledger/Warning.h"
#include "platform/Date.h"
#include "safety/ListComparison.h"
#include "safety/RestoreComparison.h"
#include "store/datafile/DataFileLocation.h"
#include "store/datafile/backup/Generations.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {
class FilePasswords;
class OpeningQuestions;
}  // namespace corvanta::inline datafile

namespace corvanta::inline safety {

// A file that could take the data file's place.
struct RestoreSource {
  std::string path;
  std::optional<DateTime> made;  // of a backup; nullopt where it does not say
  bool isKept = false;           // what was the data file before an earlier restore
};

// What restoring a file would do.
struct RestorePlan {
  std::string path;
  std::string password;                // that opens it
  std::vector<AccountChange> changes;  // of every account, also of those that stay as they are
  std::vector<ListChange> lists;       // what else would change
  bool isPresentRead = false;          // so that it is known what would go
  bool losesPassphrase = false;        // it would open on this computer without being asked for one
  bool losesPassword = false;          // the present file asks for a password, that one does not

  [[nodiscard]] bool IsChange() const;
};

// The rules of restoring a data file: where from, what it would change, and whether it may. The
// data file may be open, damaged or missing meanwhile. Operations throw StoreError and
// PlatformError.
class RestoreEditor {
 public:
  // False where the file asks for a password that was not given; it is told then.
  using Admits = std::function<bool(Connection&)>;

  // All must outlive this object.
  RestoreEditor(DataFileLocation dataFile, FilePasswords& passwords, OpeningQuestions& questions,
                Admits admits, Platform& platform);

  // The backups of the data file, the newest first, and behind them what earlier restores have
  // kept.
  [[nodiscard]] std::vector<RestoreSource> Sources() const;
  // Why the file cannot be restored; nullopt when it can be looked into.
  [[nodiscard]] std::optional<Warning> Check(const std::string& path) const;
  // Reads the file through and compares; asks for its key where it was made under another one. What
  // opens with `key` needs no question. nullopt when the person has turned back.
  [[nodiscard]] std::optional<RestorePlan> Look(const std::string& path,
                                                const std::optional<std::string>& key = {});
  // What is asked before it is done: which rows would go.
  [[nodiscard]] std::string QuestionOf(const RestorePlan& plan) const;

 private:
  [[nodiscard]] std::optional<std::string> PasswordOf(const std::string& path,
                                                      const std::optional<std::string>& key);

  // Of the data file in use, as far as it is known or this installation has one.
  [[nodiscard]] std::optional<std::string> PresentPassword() const;
  // The backups that open with that password; none without one.
  [[nodiscard]] std::vector<Generation> BackupsUnder(
      const std::optional<std::string>& password) const;
  // The same, asked for where it is a passphrase.
  [[nodiscard]] std::optional<std::string> AskedPassword() const;

  DataFileLocation dataFile_;
  FilePasswords& passwords_;
  OpeningQuestions& questions_;
  Admits admits_;
  Platform& platform_;
};

// "3 rows of transactions", "1 row of transactions".
[[nodiscard]] std::string RowsText(std::size_t count, const Platform& platform);

}  // namespace corvanta::inline safety
