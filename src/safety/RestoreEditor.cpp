#include "safety/RestoreEditor.h"

#include "ledger/secrets/LoginPassword.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/StatusWords.h"
#include "safety/Backup.h"
#include "store/datafile/FilePasswords.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/Passphrase.h"
#include "store/datafile/backup/RestoreDataFile.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/datafile/opening/KeyRecovery.h"
#include "store/datafile/opening/OpeningQuestions.h"
#include "store/sql/Connection.h"
#include "store/sql/StoreError.h"
#include "store/sql/engine/Sqlite.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace corvanta::inline safety {
namespace {

constexpr const char* kTitle = "Restore";

// The data file in use, where it is there and can be read.
std::unique_ptr<Connection> Present(const std::string& path, const std::string& password,
                                    Platform& platform) {
  try {
    return Connection::Open({path, password, {}}, platform.clock);
  } catch (const StoreError&) {
    return nullptr;
  }
}

// What else changes, as a line; empty where nothing does.
std::string ListsText(const RestorePlan& plan) {
  std::string names;
  for (const ListChange& change : plan.lists) names += (names.empty() ? "" : ", ") + change.what;
  return names.empty() ? names : "Beside the transactions these change: " + names + ".\n";
}

}  // namespace

bool RestorePlan::IsChange() const {
  return losesPassword || !lists.empty() || std::ranges::any_of(changes, &AccountChange::IsChange);
}

std::string RowsText(std::size_t count, const Platform& platform) {
  if (count == 1) return "1 row of transactions";
  return platform.locale.FormatNumber(static_cast<double>(count), 0) + " rows of transactions";
}

RestoreEditor::RestoreEditor(DataFileLocation dataFile, FilePasswords& passwords,
                             OpeningQuestions& questions, Admits admits, Platform& platform)
    : dataFile_(std::move(dataFile)),
      passwords_(passwords),
      questions_(questions),
      admits_(std::move(admits)),
      platform_(platform) {}

std::vector<RestoreSource> RestoreEditor::Sources() const {
  std::vector<RestoreSource> sources;
  const auto asked = AskedPassword();
  std::vector<Generation> generations = BackupsUnder(asked);
  // Those from before a passphrase was chosen.
  const auto own = FindInstallationPassword(platform_);
  if (own != asked) std::ranges::copy(BackupsUnder(own), std::back_inserter(generations));
  std::ranges::stable_sort(generations, std::greater<>(), &Generation::made);
  for (const Generation& each : generations) sources.push_back({each.path, each.made, false});
  for (const std::string& path : FindKeptFiles(dataFile_)) {
    sources.push_back({path, std::nullopt, true});
  }
  return sources;
}

std::vector<Generation> RestoreEditor::BackupsUnder(
    const std::optional<std::string>& password) const {
  if (!password) return {};
  const Writer nobody;
  return Backup(platform_, nobody).Generations({dataFile_.Path(), *password});
}

std::optional<Warning> RestoreEditor::Check(const std::string& path) const {
  if (path.empty()) return Warning{kTitle, "You need to select a Backup", "lvBackups"};
  if (!FileExists(path)) {
    return Warning{kTitle, "There is no file \"" + path + "\".", "lvBackups"};
  }
  const std::optional<FileIdentity> present = IdentityOf(dataFile_.Path());
  if (!present || present != IdentityOf(path)) return std::nullopt;
  return Warning{kTitle, "This is the data file itself. Select a Backup of it.", "lvBackups"};
}

// Whoever turns back, or whose file is damaged where the passphrase would be tried, can still name
// a backup.
std::optional<std::string> RestoreEditor::AskedPassword() const {
  try {
    if (auto typed = passwords_.Of(dataFile_.Path())) return typed;
  } catch (const StoreError&) {
    return std::nullopt;
  }
  return FindInstallationPassword(platform_);
}

std::optional<std::string> RestoreEditor::PresentPassword() const {
  if (auto known = passwords_.Known(dataFile_.Path())) return known;
  return FindInstallationPassword(platform_);
}

std::optional<std::string> RestoreEditor::PasswordOf(const std::string& path,
                                                     const std::optional<std::string>& key) {
  if (auto typed = passwords_.Of(path)) return typed;
  for (const auto& known : {key, FindInstallationPassword(platform_)}) {
    if (known && OpensWith(path, *known, platform_)) return known;
  }
  if (!key) return questions_.KeyOf(path).password;
  throw StoreError(StoreErrorCode::OtherInstallation,
                   "This key does not open the backup " + path +
                       ". Nothing was changed. Use the key of the installation that made it.",
                   {}, path);
}

std::optional<RestorePlan> RestoreEditor::Look(const std::string& path,
                                               const std::optional<std::string>& key) {
  const StatusWords status(platform_.progress, "Reading the backup...");
  const std::optional<std::string> password = PasswordOf(path, key);
  if (!password) return std::nullopt;
  // That of the present file is asked for, too, where it is another passphrase.
  const bool isKnown = !WantsPassphrase(dataFile_.Path()) || AskedPassword().has_value();
  const auto now = Present(dataFile_.Path(), PresentPassword().value_or(std::string()), platform_);
  if (now && !admits_(*now)) return std::nullopt;
  const auto then = Connection::Open({path, *password, {}}, platform_.clock);
  if (!admits_(*then)) return std::nullopt;
  if (!then->Check().empty()) throw DamageOf(path);
  return RestorePlan{path,
                     *password,
                     CompareFiles(now.get(), *then),
                     CompareLists(now.get(), *then),
                     now != nullptr,
                     !isKnown && !IsFromPassphrase(*password),
                     now && LoginPassword(*now).IsAsked() && !LoginPassword(*then).IsAsked()};
}

std::string RestoreEditor::QuestionOf(const RestorePlan& plan) const {
  std::size_t added = 0;
  std::size_t removed = 0;
  std::size_t changed = 0;
  for (const AccountChange& change : plan.changes) {
    added += change.added;
    removed += change.removed;
    changed += change.changed;
  }
  std::string text = "The data file will be as it was in " + plan.path + ":\n" +
                     RowsText(added, platform_) + (added == 1 ? " comes back, " : " come back, ") +
                     RowsText(removed, platform_) + (removed == 1 ? " goes, " : " go, ") +
                     RowsText(changed, platform_) +
                     (changed == 1 ? " reads as it did.\n" : " read as they did.\n");
  text += ListsText(plan);
  const bool isThere = IdentityOf(dataFile_.Path()).has_value();
  if (isThere && !plan.isPresentRead) {
    text += "The present data file could not be read: what it holds beyond that is not shown. ";
  }
  if (plan.losesPassphrase) {
    text += "Afterwards it opens on this computer without a passphrase; set one again. ";
  }
  if (plan.losesPassword) {
    text += "Afterwards nobody is asked for a password; set one again. ";
  }
  if (isThere) {
    text += "The present data file is kept beside it and can be restored in turn. ";
  }
  return text + "Do you wish to continue?";
}

}  // namespace corvanta::inline safety
