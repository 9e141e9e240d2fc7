#include "safety/SalvageEditor.h"

#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"
#include "safety/FileStore.h"
#include "safety/WholePath.h"
#include "store/datafile/FilePasswords.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/sql/Connection.h"
#include "store/sql/StoreError.h"

#include <filesystem>
#include <utility>

namespace corvanta::inline safety {
namespace {

constexpr const char* kTitle = "Salvage";
constexpr const char* kDamagedField = "txtDamaged";
constexpr const char* kTargetField = "txtSalvaged";

// What cannot be opened tells nothing of a password of its own.
std::unique_ptr<Connection> OpenIfSound(const std::string& path, const std::string& password,
                                        Platform& platform) {
  try {
    return Connection::Open({path, password, {}}, platform.clock);
  } catch (const StoreError&) {
    return nullptr;
  }
}

}  // namespace

SalvageEditor::SalvageEditor(FilePasswords& passwords, Admits admits, Platform& platform,
                             const Writer& writer)
    : passwords_(passwords), admits_(std::move(admits)), platform_(platform), writer_(writer) {}

SalvageForm SalvageEditor::Load(const std::string& damaged) {
  if (damaged.empty()) return {};
  const std::filesystem::path path(damaged);
  const std::string start = (path.parent_path() / path.stem()).string() + " salvaged";
  std::string free = start + ".dat";
  for (int number = 2; IdentityOf(free).has_value(); ++number) {
    free = start + " " + std::to_string(number) + ".dat";
  }
  return {damaged, free};
}

std::optional<Warning> SalvageEditor::Check(const SalvageForm& form) {
  if (Trim(form.damaged).empty()) {
    return Warning{kTitle, "You need to select the damaged Data file", kDamagedField};
  }
  if (!FileExists(form.damaged)) {
    return Warning{kTitle, "There is no file \"" + form.damaged + "\".", kDamagedField};
  }
  if (Trim(form.path).empty()) {
    return Warning{kTitle, "You need to enter a name for the new Data file", kTargetField};
  }
  if (auto fault = WholePathFault(form.path, "new Data file", kTitle, kTargetField)) return fault;
  if (FolderExists(form.path)) {
    return Warning{kTitle, "This is a folder. Enter the name of a file in it.", kTargetField};
  }
  if (IdentityOf(form.path).has_value()) {
    return Warning{kTitle,
                   "There is a file \"" + form.path +
                       "\" already, which is left as it is. Choose another name.",
                   kTargetField};
  }
  return std::nullopt;
}

std::optional<Salvaged> SalvageEditor::Salvage(const SalvageForm& form) {
  std::optional<std::string> typed;
  try {
    typed = passwords_.Of(form.damaged);
  } catch (const StoreError& error) {
    if (error.Code() == StoreErrorCode::WrongPassphrase) return std::nullopt;
    throw;
  }
  const std::string password = typed ? *typed : FindInstallationPassword(platform_).value_or("");
  const auto sound = OpenIfSound(form.damaged, password, platform_);
  if (sound && !admits_(*sound)) return std::nullopt;
  Salvaged salvaged;
  salvaged.tables = SalvageDataFile({form.damaged, password, {}}, form.path, writer_, platform_);
  salvaged.missing = RestoreFileStore(form.damaged, form.path, platform_.files);
  return salvaged;
}

std::string LostText(const std::vector<LostKeys>& lost) {
  std::string text;
  for (const LostKeys& keys : lost) {
    if (!text.empty()) text += ", ";
    text += std::to_string(keys.first);
    if (keys.last != keys.first) text += "-" + std::to_string(keys.last);
  }
  return text;
}

std::string SalvagedText(const std::vector<SalvagedTable>& tables, const Platform& platform) {
  std::int64_t rows = 0;
  std::int64_t lost = 0;
  for (const SalvagedTable& table : tables) {
    rows += table.rows;
    for (const LostKeys& keys : table.lost) lost += keys.last - keys.first + 1;
  }
  const auto number = [&](std::int64_t count) {
    return platform.locale.FormatNumber(static_cast<double>(count), 0);
  };
  const std::string read = number(rows) + (rows == 1 ? " row was read; " : " rows were read; ");
  if (lost == 0) return read + "nothing is lost.";
  return read + "up to " + number(lost) + (lost == 1 ? " is lost." : " are lost.");
}

}  // namespace corvanta::inline safety
