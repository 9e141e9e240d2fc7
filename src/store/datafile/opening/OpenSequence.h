#pragma once

#include "store/datafile/OpenDataFile.h"
#include "store/datafile/opening/OpeningQuestions.h"
#include "store/sql/StoreError.h"

#include <optional>
#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {

// Opens the file with its schema checked and its access paths made. Throws StoreError.
[[nodiscard]] std::unique_ptr<Connection> OpenChecked(const std::string& path,
                                                      const std::string& password,
                                                      Platform& platform);

// One run of the open-data-file operation.
class OpenSequence {
 public:
  // `dataPath` stands for DBPath when it has a value; a file chosen on the way takes its place.
  OpenSequence(Platform& platform, const Writer& writer, std::optional<std::string>& dataPath,
               FilePasswords& passwords, OpeningQuestions& questions);

  [[nodiscard]] std::optional<DataFile> Run(bool quiet);

 private:
  enum class Outcome { Opened, Again, Stop };

  [[nodiscard]] Outcome Attempt();
  [[nodiscard]] bool FindLocation();
  void FindPassword();
  void PrepareFolder();
  void AcquireLock();
  // Of a file that may not be written: opened as it is, to be looked at, and told.
  [[nodiscard]] Outcome OpenToLookAt();
  void Create();
  [[nodiscard]] bool TakeReindex();
  [[nodiscard]] bool AdoptTransferFile();
  // False when the file could not be renewed and stays as it was, which has been told.
  bool Renew();
  [[nodiscard]] Outcome OpenIt();
  [[nodiscard]] Outcome AskToCreate();
  [[nodiscard]] Outcome AskForOtherFile();
  [[nodiscard]] Outcome OfferRoadOut(const StoreError& error);
  [[nodiscard]] Outcome AskForKey();
  [[nodiscard]] Outcome AskAfter(const std::string& words, bool isFileFault);
  [[nodiscard]] Outcome Follow(OpeningQuestions::Road road);
  void Tell(const std::string& text, bool isWarning = true);

  Platform& platform_;
  const Writer& writer_;
  std::optional<std::string>& dataPath_;
  FilePasswords& passwords_;
  OpeningQuestions& questions_;
  bool quiet_ = false;
  bool isFolder_ = false;  // DBPath names a folder
  bool isReadOnly_ = false;
  DataFileLocation location_;
  std::string password_;      // of this installation, empty while it has none, or of the passphrase
  std::string filePassword_;  // with which the file is protected now
  std::optional<std::string> foundKey_;  // opens the file, as the person has shown
  DataFile file_;
};

}  // namespace corvanta::inline datafile
