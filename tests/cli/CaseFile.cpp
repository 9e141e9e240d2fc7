#include "cli/CaseFile.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace corvanta {
namespace {

constexpr std::string_view kSectionMark = "== ";
constexpr std::string_view kPatternMark = "~ ";
constexpr std::array<std::string_view, 4> kRequired = {"command", "status", "stdout", "stderr"};
constexpr std::array<std::string_view, 3> kOptional = {"locale", "setup", "holder"};

template <std::size_t N>
bool Holds(const std::array<std::string_view, N>& names, const std::string& name) {
  return std::ranges::find(names, name) != names.end();
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

bool LineFits(const std::string& expected, const std::string& written) {
  if (!expected.starts_with(kPatternMark)) return expected == written;
  return std::regex_match(written, std::regex(expected.substr(kPatternMark.size())));
}

}  // namespace

CaseFile CaseFile::Read(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot read " + path);
  CaseFile result;
  std::string* section = nullptr;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(kSectionMark)) {
      const std::string name = line.substr(kSectionMark.size());
      const bool isKnown = Holds(kRequired, name) || Holds(kOptional, name);
      if (!isKnown) throw std::runtime_error(path + ": unknown section " + name);
      const auto [place, isNew] = result.sections_.emplace(name, "");
      if (!isNew) throw std::runtime_error(path + ": a second section " + name);
      section = &place->second;
    } else if (section != nullptr) {
      *section += line + "\n";
    }
  }
  for (const std::string_view name : kRequired) {
    if (!result.sections_.contains(std::string(name))) {
      throw std::runtime_error(path + ": no section " + std::string(name));
    }
  }
  return result;
}

std::string CaseFile::Section(const std::string& name) const {
  const auto place = sections_.find(name);
  return place == sections_.end() ? std::string() : place->second;
}

std::string Difference(const std::string& expected, const std::string& written) {
  const std::vector<std::string> wanted = Lines(expected);
  const std::vector<std::string> lines = Lines(written);
  for (std::size_t i = 0; i < std::max(wanted.size(), lines.size()); ++i) {
    const std::string want = i < wanted.size() ? wanted[i] : "(no line)";
    const std::string have = i < lines.size() ? lines[i] : "(no line)";
    if (i < wanted.size() && i < lines.size() && LineFits(want, have)) continue;
    return "line " + std::to_string(i + 1) + "\n  expected: " + want + "\n  written:  " + have +
           "\nAll that was written:\n" + written;
  }
  return {};
}

}  // namespace corvanta
