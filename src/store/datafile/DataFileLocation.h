#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline platform {
class Registry;
struct Platform;
}  // namespace corvanta::inline platform

namespace corvanta::inline datafile {

// Where a data file and the files beside it are.
struct DataFileLocation {
  std::string folder;    // without a trailing separator
  std::string fileName;  // "Corvanta.dat", or the name the user gave

  [[nodiscard]] std::string Path() const;            // the data file
  [[nodiscard]] std::string CompactionPath() const;  // Corvanta.000 in the same folder
  [[nodiscard]] std::string TransferPath() const;    // the data file's name with tfr for dat
  [[nodiscard]] std::string DraftPath() const;       // a new data file while it is being made

  // The location that a DBPath value names: an existing file as it stands, otherwise a folder.
  // Trailing separators (of either kind) are dropped. A path ending in ".dat" where nothing stands
  // is a data file that has gone missing, not a folder to be made under a data file's name.
  [[nodiscard]] static DataFileLocation FromPath(std::string_view path);
  // True when the value names a folder, which then is made as needed.
  [[nodiscard]] static bool NamesFolder(std::string_view path);
};

// DBPath, from the user's hive first and the machine's second; nullopt when both lack it.
[[nodiscard]] std::optional<std::string> ReadDataPath(const Registry& registry);

// On a machine where the program never ran, DBPath becomes the user's data folder; with settings
// of any kind nothing happens. Throws PlatformError when the settings cannot be written.
void SetUpFirstStart(Platform& platform);

}  // namespace corvanta::inline datafile
