#include "platform/DesktopDefaults.h"

#include "platform/Files.h"
#include "platform/Folders.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

namespace corvanta::inline platform {
namespace {

constexpr std::string_view kGroup = "[Default Applications]";

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    parts.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parts;
}

// The applications of a line "type=a.desktop;b.desktop;" of that type; nullopt for another line.
std::optional<std::vector<std::string>> ApplicationsOf(std::string_view line,
                                                       std::string_view type) {
  const std::size_t mark = line.find('=');
  if (mark == std::string_view::npos || Trim(line.substr(0, mark)) != type) return std::nullopt;
  std::vector<std::string> applications = Split(Trim(line.substr(mark + 1)), ';');
  std::erase_if(applications, [](const std::string& name) { return Trim(name).empty(); });
  return applications;
}

std::string LineOf(std::string_view type, const std::vector<std::string>& applications) {
  std::string line = std::string(type) + '=';
  for (const std::string& application : applications) line += application + ';';
  return line;
}

// From the line behind the group's head to the line before the next one's.
std::pair<std::size_t, std::size_t> GroupOf(const std::vector<std::string>& lines) {
  std::size_t first = 0;
  while (first < lines.size() && Trim(lines[first]) != kGroup) ++first;
  if (first == lines.size()) return {first, first};
  std::size_t end = ++first;
  while (end < lines.size() && !Trim(lines[end]).starts_with('[')) ++end;
  return {first, end};
}

void SetDefault(std::vector<std::string>& lines, std::string_view entry, std::string_view type,
                bool isOn) {
  const auto [first, end] = GroupOf(lines);
  for (std::size_t row = first; row < end; ++row) {
    auto applications = ApplicationsOf(lines[row], type);
    if (!applications) continue;
    std::erase_if(*applications, [&](const std::string& name) { return Trim(name) == entry; });
    if (isOn) applications->insert(applications->begin(), std::string(entry));
    if (applications->empty()) {
      lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(row));
    } else {
      lines[row] = LineOf(type, *applications);
    }
    return;
  }
  if (!isOn) return;
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(first),
               LineOf(type, {std::string(entry)}));
}

}  // namespace

bool IsDesktopProgram(std::string_view entry) {
  return std::ranges::any_of(DataFolders(), [&](const std::string& folder) {
    return FileExists(folder + "/applications/" + std::string(entry));
  });
}

std::string WithDefaults(std::string_view text, std::string_view entry,
                         const std::vector<std::string_view>& types, bool isOn) {
  std::vector<std::string> lines = Split(text, '\n');
  const auto isHead = [](const std::string& line) { return Trim(line) == kGroup; };
  if (std::ranges::none_of(lines, isHead)) {
    if (!isOn) return std::string(text);
    lines.emplace_back(kGroup);
  }
  for (const std::string_view type : types) SetDefault(lines, entry, type, isOn);
  std::string result;
  for (const std::string& line : lines) result += line + '\n';
  return result;
}

}  // namespace corvanta::inline platform
