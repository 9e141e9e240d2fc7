#pragma once

#include "ledger/Warning.h"
#include "store/datafile/WriterLock.h"
#include "store/datafile/backup/SalvageDataFile.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline datafile {
class FilePasswords;
}

namespace corvanta::inline safety {

struct SalvageForm {
  std::string damaged;  // the data file that is to be read
  std::string path;     // of the new one
};

struct Salvaged {
  std::vector<SalvagedTable> tables;  // what became of every table
  std::string missing;                // what is to be told of attached files; empty for nothing
};

// The rules of salvaging a damaged data file. Operations throw StoreError and PlatformError.
class SalvageEditor {
 public:
  // False where the file asks for a password that was not given; it is told then.
  using Admits = std::function<bool(Connection&)>;

  // All must outlive this object.
  SalvageEditor(FilePasswords& passwords, Admits admits, Platform& platform, const Writer& writer);

  // For that data file, with a free name beside it for the new one; without a file nothing.
  [[nodiscard]] static SalvageForm Load(const std::string& damaged);
  [[nodiscard]] static std::optional<Warning> Check(const SalvageForm& form);
  // Reads what can be read into the new file, and brings the attached files beside it. nullopt when
  // the person turned back at a password. The damaged file is only read.
  [[nodiscard]] std::optional<Salvaged> Salvage(const SalvageForm& form);

 private:
  FilePasswords& passwords_;
  Admits admits_;
  Platform& platform_;
  const Writer& writer_;
};

// "35, 40-47"; empty where nothing was lost.
[[nodiscard]] std::string LostText(const std::vector<LostKeys>& lost);
// What came of it as a sentence for a person: how many rows were read, and how many are lost.
[[nodiscard]] std::string SalvagedText(const std::vector<SalvagedTable>& tables,
                                       const Platform& platform);

}  // namespace corvanta::inline safety
