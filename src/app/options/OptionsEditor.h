#pragma once

#include "ledger/Warning.h"
#include "platform/SettingsTable.h"

#include <map>
#include <optional>
#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline app {

inline constexpr const char* kOptionsSelection = "Options Selection";

// What the options are set to: of each, the text that is stored ("1", "Once a Day", "16711680").
using OptionsForm = std::map<Setting, std::string>;

// The rules of the dialog "Options", over the settings of the user.
class OptionsEditor {
 public:
  // `dataFile` is the path of the data file that is open; empty for none. The platform must outlive
  // this object.
  OptionsEditor(Platform& platform, std::string dataFile);

  // Every option as it stands; what is absent or makes no sense reads as its default. A colour is
  // never 0, a choice one of its list.
  [[nodiscard]] OptionsForm Load() const;
  // Every option as it is where nothing was stored.
  [[nodiscard]] static OptionsForm Defaults();
  // Says that they are in force, once they are to be seen.
  void TellDefaults() const;

  // The first rule that stands against the form, with the control to mend.
  [[nodiscard]] std::optional<Warning> Check(const OptionsForm& form) const;
  // Writes every option, makes the folder of attached files where they are kept beside the open
  // data file, and has the desktop open files of banks with this program, or no longer. Throws
  // PlatformError.
  void Save(const OptionsForm& form);

  // To be called when the update of a schedule's date was ticked, and when a look-ahead was chosen:
  // advises against both together.
  void AdviseOnForecast(bool updatesDates) const;
  // Asks where backups are written and keeps it; nullopt when the person turned back or the data
  // file itself was chosen, which is refused. Throws PlatformError.
  [[nodiscard]] std::optional<std::string> BrowseBackup();
  // Forgets the widths of columns, the sorting and the register's days, and says so. Throws
  // PlatformError.
  void ResetColumns();

 private:
  // Whether a backup to that file or folder would be written over the data file.
  [[nodiscard]] bool IsDataFile(const std::string& path) const;
  void MakeFileStore(const OptionsForm& form);
  void Associate(bool was, bool is);

  Platform& platform_;
  std::string dataFile_;
};

}  // namespace corvanta::inline app
