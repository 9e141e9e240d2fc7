#include "platform/SystemPlatform.h"

#include "platform/Folders.h"

#include <filesystem>

namespace corvanta::inline platform {
namespace {

constexpr const char* kMachineRegistry = "/etc/corvanta/registry.txt";

std::string ProfileFolder(const std::string& wanted) {
  if (wanted.empty()) return DefaultProfileFolder();
  // Absolute, because the program may change its folder while it runs.
  return std::filesystem::absolute(wanted).lexically_normal().string();
}

std::string SettingsPath(const std::string& profileFolder) {
  return (std::filesystem::path(profileFolder) / "registry.txt").string();
}

SystemClock ClockOf(const std::optional<Date>& fixedToday) {
  return fixedToday ? SystemClock(*fixedToday) : SystemClock();
}

}  // namespace

SystemPlatform::SystemPlatform(const SystemPlatformOptions& options, Prompts& prompts,
                               Progress& progress)
    : clock_(ClockOf(options.fixedToday)),
      locale_(options.localeName),
      profileFolder_(ProfileFolder(options.profileFolder)),
      registry_(SettingsPath(profileFolder_), kMachineRegistry, files_),
      settings_(files_.Own().Keep({{SettingsPath(profileFolder_), "where the settings are kept"}})),
      platform_{registry_, locale_,   clock_,  machine_,     files_,         prompts,
                progress,  download_, opener_, spreadsheet_, profileFolder_, DefaultDataFolder()} {}

}  // namespace corvanta::inline platform
