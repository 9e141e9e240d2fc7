#pragma once

#include "platform/Date.h"

#include <QStringList>

#include <optional>
#include <string>

namespace corvanta::inline app {

// What the program was started with.
struct StartOptions {
  std::string profileFolder;      // "--profile"; empty for the user's own
  std::string dataPath;           // "--data"; empty for the one of the settings
  std::string importPath;         // of a bank's file that was named; empty for none
  std::optional<Date> today;      // "--today"
  std::optional<QString> answer;  // "--help", "--version": the text to print instead of starting
  std::optional<QString> error;   // wrong usage: what is wrong
};

// `arguments` begins with the program's name. A file named without an option is the data file, as
// when it is opened from a file manager; one of a bank, by its ending, is to be imported.
[[nodiscard]] StartOptions ReadStartOptions(const QStringList& arguments);

// The arguments without those that the windows' own library takes, such as "-platform".
[[nodiscard]] QStringList WithoutWindowOptions(const QStringList& arguments);

}  // namespace corvanta::inline app
