#include "ledger/secrets/PromptedOpening.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "platform/Prompts.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/opening/KeyRecovery.h"

#include <filesystem>
#include <utility>

namespace corvanta::inline ledger {
namespace {

constexpr const char* kTitle = "Open Data File";
constexpr const char* kKeyTitle = "Key of the data file";
constexpr const char* kOtherFile = "Choose another data file";
constexpr std::size_t kKeyFileLimit = 16U << 20U;

}  // namespace

bool PromptedOpening::AgreesToCreate(const std::string& path) {
  return platform_.prompts.Ask("Create new data file?", "Data file could not be found at, " + path +
                                                            ". Do you want to create a new data "
                                                            "file?");
}

std::optional<std::string> PromptedOpening::OtherFile(const std::string& folder) {
  if (salvaged_) return std::exchange(salvaged_, std::nullopt);
  return platform_.prompts.OpenFile({"Select File to Open", "Data Files", "*.dat", "dat", folder});
}

// What stands in the way may be gone when the person has looked after it.
OpeningQuestions::Road PromptedOpening::AfterRefusal(const std::string& words, bool isFileFault) {
  enum class Way { Again, Restore, Salvage, Other };
  std::vector<Way> ways;
  std::vector<std::string> names;
  const auto offer = [&](bool isOpen, Way way, const char* name) {
    if (!isOpen) return;
    ways.push_back(way);
    names.emplace_back(name);
  };
  offer(!isFileFault, Way::Again, "Try again");
  offer(isFileFault && roads_.restore, Way::Restore, "Restore a backup");
  offer(isFileFault && roads_.salvage, Way::Salvage, "Salvage what can be read");
  offer(true, Way::Other, kOtherFile);
  for (;;) {
    const std::optional<std::size_t> chosen = platform_.prompts.Choose(kTitle, words, names);
    if (!chosen || *chosen >= ways.size()) return Road::Back;
    const Way way = ways[*chosen];
    if (way == Way::Again) return Road::Again;
    if (way == Way::Other) return Road::OtherFile;
    // Whoever comes back without a data file may take another road.
    if (way == Way::Restore && roads_.restore()) return Road::Again;
    if (way == Way::Salvage && (salvaged_ = roads_.salvage())) return Road::OtherFile;
  }
}

OpeningQuestions::Key PromptedOpening::KeyOf(const std::string& path) {
  enum : std::size_t { kTransfer, kTyped, kOther };
  for (;;) {
    const std::optional<std::size_t> chosen = platform_.prompts.Choose(
        kKeyTitle,
        "The data file " + path +
            " is protected with the key of another installation. To open it here you need the "
            "transfer file or the recovery key that was saved there.",
        {"Use its transfer file", "Type its recovery key", kOtherFile});
    if (chosen == kOther) return {std::nullopt, Road::OtherFile};
    if (chosen != kTransfer && chosen != kTyped) return {std::nullopt, Road::Back};
    std::optional<std::string> password =
        chosen == kTransfer ? FromTransferFile(path) : FromRecoveryKey();
    if (password.has_value() && Fits(*password, path)) return {std::move(password), Road::Again};
  }
}

std::optional<std::string> PromptedOpening::FromTransferFile(const std::string& path) {
  const std::optional<std::string> file =
      platform_.prompts.OpenFile({"Select Transfer File", "Transfer Files", "*.tfr", "tfr",
                                  std::filesystem::path(path).parent_path().string()});
  if (!file.has_value()) return std::nullopt;
  try {
    std::optional<std::string> password = PasswordFromKey(ReadFile(*file, kKeyFileLimit));
    if (!password.has_value()) Warn("There is no key in " + *file + ".");
    return password;
  } catch (const PlatformError& error) {
    Warn(error.what());
    return std::nullopt;
  }
}

std::optional<std::string> PromptedOpening::FromRecoveryKey() {
  const std::optional<std::string> typed =
      platform_.prompts.AskText(kKeyTitle, "The recovery key of the data file:");
  if (!typed.has_value()) return std::nullopt;
  std::optional<std::string> password = PasswordFromRecoveryKey(*typed);
  if (!password.has_value()) {
    Warn(
        "This is not a recovery key. Compare it with what you wrote down; a single wrong or "
        "missing "
        "character is enough.");
  }
  return password;
}

bool PromptedOpening::Fits(const std::string& password, const std::string& path) {
  if (OpensWith(path, password, platform_)) return true;
  Warn("This key does not open the data file " + path + ".");
  return false;
}

void PromptedOpening::Warn(const std::string& text) {
  platform_.prompts.Tell(kKeyTitle, text, Icon::Warning);
}

}  // namespace corvanta::inline ledger
