#include "store/datafile/backup/Generations.h"

#include "platform/Files.h"
#include "store/datafile/backup/BackupMark.h"
#include "store/datafile/opening/FileSteps.h"

#include <fmt/format.h>
#include <sys/stat.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <functional>
#include <set>
#include <tuple>

namespace corvanta::inline datafile {
namespace {

constexpr int kDailyDays = 7;
constexpr int kWeeklyDays = 31;
constexpr int kDaysAWeek = 7;
constexpr int kMonthsAYear = 12;

// Whether it is the place's own name, or that with a day and a time behind it: a copy that somebody
// has named otherwise is theirs.
bool IsGenerationName(std::string_view name, std::string_view stem) {
  constexpr std::string_view kPattern = " 0000-00-00 00-00";
  if (!name.starts_with(stem)) return false;
  name.remove_prefix(stem.size());
  if (name.empty()) return true;
  const auto isDigit = [](char each) { return each >= '0' && each <= '9'; };
  for (const char expected : kPattern) {
    if (name.empty() || (isDigit(expected) ? !isDigit(name.front()) : name.front() != expected)) {
      return false;
    }
    name.remove_prefix(1);
  }
  if (name.empty()) return true;
  return name.size() > 1 && name.front() == ' ' && std::ranges::all_of(name.substr(1), isDigit);
}

// Within which only the newest stays; all of one day have a bucket each.
std::string Bucket(const Generation& generation, Date today) {
  const Date day = generation.made.date;
  const int age = today.Serial() - day.Serial();
  if (age <= 0) return generation.path;
  if (age <= kDailyDays) return "d" + day.ToIso();
  if (age <= kWeeklyDays) {
    return "w" + std::to_string((day.Serial() - day.WeekDay() + 1) / kDaysAWeek);
  }
  return "m" + std::to_string(day.Year() * kMonthsAYear + day.Month());
}

// Of "2026-11-22 18-30", which may have a number behind it.
std::optional<DateTime> TimeIn(std::string_view text) {
  constexpr std::size_t kDay = 10;
  const auto day = Date::FromIso(text.substr(0, kDay));
  const auto number = [&](std::size_t at) { return (text[at] - '0') * 10 + text[at + 1] - '0'; };
  const int hours = number(kDay + 1);
  const int minutes = number(kDay + 4);
  if (!day || hours > 23 || minutes > 59) return std::nullopt;
  return DateTime{*day, hours * 3600 + minutes * 60};
}

std::filesystem::path FolderOf(const std::filesystem::path& place) {
  return place.has_parent_path() ? place.parent_path() : std::filesystem::path(".");
}

void SortNewestFirst(std::vector<Generation>& generations) {
  // Within one minute the place itself is the latest, and then the higher number.
  const auto rank = [](const Generation& generation) {
    const std::string name = std::filesystem::path(generation.path).stem().string();
    const bool isDated = name.find(generation.made.date.ToIso()) != std::string::npos;
    return std::tuple(generation.made, !isDated, name);
  };
  std::ranges::sort(generations, std::greater<>(), rank);
}

}  // namespace

std::string FreeDatedPath(const std::string& place, DateTime made) {
  const std::filesystem::path path(place);
  const std::string name =
      (path.parent_path() / fmt::format("{} {} {:02}-{:02}", path.stem().string(),
                                        made.date.ToIso(), made.seconds / 3600,
                                        made.seconds / 60 % 60))
          .string();
  const std::string ending = path.extension().string();
  std::string free = name + ending;
  for (int number = 2; IdentityOf(free).has_value(); ++number) {
    free = name + " " + std::to_string(number) + ending;
  }
  return free;
}

std::vector<Generation> FindGenerations(const GenerationsOf& backups) {
  std::vector<Generation> found;
  const std::filesystem::path place(backups.place);
  const std::string stem = place.stem().string();
  std::error_code error;
  const std::optional<FileIdentity> dataFile = IdentityOf(backups.dataFile);
  for (std::filesystem::directory_iterator entry(FolderOf(place), error), end;
       !error && entry != end; entry.increment(error)) {
    const std::filesystem::path& path = entry->path();
    const bool isNamedSo =
        path.extension() == place.extension() && IsGenerationName(path.stem().string(), stem);
    if (!isNamedSo || IdentityOf(path.string()) == dataFile) continue;
    const auto made = ReadBackupTime(path.string(), backups.password, backups.dataFile);
    if (made) found.push_back({path.string(), *made});
  }
  SortNewestFirst(found);
  return found;
}

std::vector<Generation> FindDatedFiles(const std::string& place) {
  std::vector<Generation> found;
  const std::filesystem::path path(place);
  const std::string stem = path.stem().string();
  std::error_code error;
  for (std::filesystem::directory_iterator entry(FolderOf(path), error), end;
       !error && entry != end; entry.increment(error)) {
    const std::filesystem::path& each = entry->path();
    const std::string name = each.stem().string();
    const bool isNamedSo = each.extension() == path.extension() && name != stem &&
                           IsGenerationName(name, stem) && !entry->is_directory(error);
    if (!isNamedSo) continue;
    const auto made = TimeIn(std::string_view(name).substr(stem.size() + 1));
    if (made) found.push_back({each.string(), *made});
  }
  SortNewestFirst(found);
  return found;
}

std::vector<Generation> Superfluous(std::vector<Generation> generations, Date today) {
  SortNewestFirst(generations);
  std::vector<Generation> superfluous;
  std::set<std::string> kept;
  for (const Generation& generation : generations) {
    if (!kept.insert(Bucket(generation, today)).second) superfluous.push_back(generation);
  }
  return superfluous;
}

std::optional<DateTime> ChangeTime(const std::string& path) {
  struct stat status {};
  std::tm local{};
  if (::stat(path.c_str(), &status) != 0 || ::localtime_r(&status.st_mtime, &local) == nullptr) {
    return std::nullopt;
  }
  const auto day = Date::FromYmd(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
  if (!day) return std::nullopt;
  return DateTime{*day, local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec};
}

void MakeRoom(const GenerationsOf& backups, Files& files) {
  if (!IdentityOf(backups.place).has_value()) return;
  const auto made = ReadBackupTime(backups.place, backups.password);
  // One under another key is a backup all the same, from before a passphrase was chosen.
  const auto day = made ? made : ChangeTime(backups.place);
  if (day) return files.Replace(backups.place, FreeDatedPath(backups.place, *day));
  (void)SetAside(backups.place, ".old", files);
}

}  // namespace corvanta::inline datafile
