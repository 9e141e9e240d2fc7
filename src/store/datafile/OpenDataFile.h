#pragma once

#include "platform/OwnFiles.h"
#include "store/datafile/DataFileLocation.h"
#include "store/datafile/FilePasswords.h"
#include "store/datafile/WriterLock.h"
#include "store/sql/Connection.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {

class OpeningQuestions;

struct RestoredFile;

// An open data file and, where it may be written, the right to do so.
struct DataFile {
  std::unique_ptr<WriterLock> lock;  // null when it was opened for reading only
  KeptFiles kept;                    // nothing else is written over it
  std::unique_ptr<Connection> connection;
  std::string password;    // has opened it: what its recovery key is made from
  bool isRenewed = false;  // compacted, upgraded and checked on the way
};

// Finds, creates, opens, compacts and upgrades the data file of this installation.
class DataFileOpener {
 public:
  // `holder` names this program to others that want to write.
  DataFileOpener(Platform& platform, std::string holder);

  // Who this program is to others that want to write.
  [[nodiscard]] const Writer& AsWriter() const { return writer_; }

  // A folder or file that stands for DBPath in this run only; the setting is not read or written.
  void SetDataPath(std::string path);
  // How long to wait for a program that is writing; not at all without it.
  void SetPatience(Patience patience);
  // Who is asked for the passphrase of a data file that wants one. Without it such a file is
  // refused with StoreError(WrongPassphrase), as it is when the person turns back.
  void SetPassphraseQuestion(PassphraseQuestion ask) { passwords_.SetQuestion(std::move(ask)); }

  // The open-data-file operation with its questions: nullopt when no file was opened and the
  // person has been told why. Quiet creates a missing file without asking. Never throws StoreError;
  // what the file and the machine refuse is told through Prompts, with the roads out (transfer
  // file, recovery key, another file) offered. A data file that is open already must be closed and
  // its lock given back before.
  [[nodiscard]] std::optional<DataFile> Open(bool quiet, OpeningQuestions& questions);

  // For the command line: opens what is there, creates and asks nothing. For writing it takes the
  // lock, checks and repairs the schema. Throws StoreError and PlatformError.
  [[nodiscard]] DataFile OpenExisting(bool forWriting);
  // Creates the data file (and its folder) and opens it, with this installation's key, which is
  // drawn where there is none. Throws StoreError(Sql) where one stands.
  [[nodiscard]] DataFile CreateNew(bool emptyFile);
  // Compaction, upgrade, clean-up and check of an existing file, with nothing asked; afterwards it
  // is open. Throws StoreError; the data file is then as it was.
  [[nodiscard]] DataFile Validate();
  // Opens a data file of another installation with its key, the text of a recovery key or the path
  // of a transfer file, saved key or key file, and protects it with this installation's password,
  // which is drawn where there is none. A file that this installation's key opens already needs no
  // other: it is opened as it is, and not renewed. Throws StoreError(OtherInstallation) when
  // neither key fits; the file is then as it was. `admits` is asked, where there is one, before
  // anything is changed; when it says no, nothing is opened and the result is empty.
  [[nodiscard]] DataFile UseKey(const std::string& keyOrPath,
                                const std::function<bool(Connection&)>& admits = {});

  // Protects an existing data file, which must not be open, with this password from now on: one of
  // NewPasswordFromPassphrase, or an empty one for that of this installation. Until the copy takes
  // its place in one step, and when this throws, the file is as it was. Throws StoreError and
  // PlatformError.
  void Protect(const std::string& password);
  // Whether the data file wants a passphrase.
  [[nodiscard]] bool WantsPassphrase() const;
  // What is known of passphrases, and who is asked for them.
  [[nodiscard]] FilePasswords& Passwords() { return passwords_; }
  // Puts a copy of the backup, which that password opens, into the data file's place, protects it
  // with the passphrase of the backup or of the present data file, or else with this installation's
  // password (drawn where there is none), and opens it. What was the data
  // file is kept. It need not be there, or be sound. Throws StoreError and PlatformError; the data
  // file is then as it was.
  [[nodiscard]] RestoredFile Restore(const std::string& backup, const std::string& password);

  // Where the data file is looked for. Throws StoreError(Missing) without a DBPath.
  [[nodiscard]] DataFileLocation Location() const;

 private:
  Platform& platform_;
  Writer writer_;
  std::optional<std::string> dataPath_;
  FilePasswords passwords_;
  KeptFiles key_;  // of the installation
};

// A data file that was restored.
struct RestoredFile {
  DataFile file;
  std::string kept;  // where what was the data file is now; empty where there was none
};

}  // namespace corvanta::inline datafile
