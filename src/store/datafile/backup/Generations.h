// The backups of a data file that stand in one folder: the latest under the name that was chosen,
// those before it under that name with their day and time behind it.
#pragma once

#include "platform/Date.h"

#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {
class Files;
}

namespace corvanta::inline datafile {

struct Generation {
  std::string path;
  DateTime made;
};

// Where and of what backups are.
struct GenerationsOf {
  std::string place;     // the latest backup's path
  std::string dataFile;  // whose backups they are
  std::string password;  // that opens both
};

// The backups of the data file that are there under such names, the newest first. Others, and what
// cannot be opened, are left out.
[[nodiscard]] std::vector<Generation> FindGenerations(const GenerationsOf& backups);

// A free name beside the place that tells a day and a time: "Corvanta 2026-11-22 18-30.dat".
[[nodiscard]] std::string FreeDatedPath(const std::string& place, DateTime made);

// The files beside the place whose names FreeDatedPath has made for it, by the day and the time in
// them, the newest first, whatever they hold.
[[nodiscard]] std::vector<Generation> FindDatedFiles(const std::string& place);

// Which of them are no longer needed, seen from that day: of the last day all stay, of the seven
// days before it the last of each, of the month before it (31 days) the last of each week (Monday
// to Sunday), of all time before it the last of each month. The newest of all always stays.
[[nodiscard]] std::vector<Generation> Superfluous(std::vector<Generation> generations, Date today);

// When the file was written last, by this machine's clock; nullopt where it does not say.
[[nodiscard]] std::optional<DateTime> ChangeTime(const std::string& path);

// Gives the backup that stands at the place another name, that of its day and time, so that the
// place is free. What is no backup keeps its name with ".old" behind it. Throws PlatformError.
void MakeRoom(const GenerationsOf& backups, Files& files);

}  // namespace corvanta::inline datafile
