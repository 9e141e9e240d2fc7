#include "platform/RegistryText.h"

#include "platform/TextCase.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <unordered_set>
#include <utility>

namespace corvanta::inline platform {
namespace {

constexpr std::string_view kRemark =
    "# Settings of Corvanta. %XX stands for the byte with that hexadecimal number.";

char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

std::string Folded(std::string_view name) {
  std::string folded(name);
  std::transform(folded.begin(), folded.end(), folded.begin(), LowerAscii);
  return folded;
}

// Keys are written with any number of backslashes between and around their parts.
std::string NormalKey(std::string_view key) {
  std::string result;
  for (const char c : key) {
    if (c == '\\' && (result.empty() || result.back() == '\\')) continue;
    result += c;
  }
  if (!result.empty() && result.back() == '\\') result.pop_back();
  return result;
}

// True for the key itself and the keys below it; both in normal form.
bool IsWithin(std::string_view key, std::string_view above) {
  if (above.empty()) return true;
  return key.size() >= above.size() && SameName(key.substr(0, above.size()), above) &&
         (key.size() == above.size() || key[above.size()] == '\\');
}

std::string Escape(std::string_view text, std::string_view special) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const auto byte = static_cast<unsigned char>(c);
    const bool atEnd = i == 0 || i + 1 == text.size();
    if (byte < 0x20 || byte == 0x7F || c == '%' || (c == ' ' && atEnd) ||
        special.find(c) != std::string_view::npos) {
      result += fmt::format("%{:02X}", byte);
    } else {
      result += c;
    }
  }
  return result;
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char lower = LowerAscii(c);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// A percent sign without its two digits is taken as itself: people edit such files.
std::string Unescape(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 &&
        HexDigit(text[i + 2]) >= 0) {
      result += static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2]));
      i += 2;
    } else {
      result += text[i];
    }
  }
  return result;
}

}  // namespace

RegistryText::RegistryText(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.substr(0, 3) == kByteOrderMark) text.remove_prefix(3);
  std::size_t current = 0;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    ParseLine(line, current);
  }
}

void RegistryText::ParseLine(std::string_view line, std::size_t& current) {
  const std::string_view trimmed = Trim(line);
  if (trimmed.empty()) return;
  if (trimmed.front() == '[') {
    const bool isWhole = trimmed.back() == ']' && trimmed.find('[', 1) == std::string_view::npos;
    const std::string key =
        isWhole ? NormalKey(Unescape(trimmed.substr(1, trimmed.size() - 2))) : std::string();
    if (const Section* known = key.empty() ? nullptr : FindSection(key)) {
      current = static_cast<std::size_t>(known - sections_.data());
      return;
    }
    AddSection({key, key.empty() ? std::string(trimmed) : std::string(), {}, {}});
    current = sections_.size() - 1;
    return;
  }
  Section& section = sections_[current];
  const std::size_t equals = trimmed.find('=');
  if (trimmed.front() == '#' || equals == std::string_view::npos || !section.IsReadable()) {
    section.lines.push_back({false, {}, std::string(trimmed)});
    return;
  }
  Put(section, Unescape(Trim(trimmed.substr(0, equals))),
      Unescape(Trim(trimmed.substr(equals + 1))));
}

RegistryText::Section& RegistryText::AddSection(Section section) {
  if (section.IsReadable()) keys_.emplace(Folded(section.key), sections_.size());
  return sections_.emplace_back(std::move(section));
}

bool RegistryText::Put(Section& section, std::string name, std::string value) {
  const auto [place, isNew] = section.values.emplace(Folded(name), section.lines.size());
  if (isNew) {
    section.lines.push_back({true, std::move(name), std::move(value)});
    return true;
  }
  Line& line = section.lines[place->second];
  if (line.value == value) return false;
  line.value = std::move(value);
  return true;
}

void RegistryText::IndexValues(Section& section) {
  section.values.clear();
  for (std::size_t i = 0; i < section.lines.size(); ++i) {
    if (section.lines[i].isValue) section.values.emplace(Folded(section.lines[i].name), i);
  }
}

std::string RegistryText::ToText() const {
  std::string text;
  for (const Section& section : sections_) {
    const bool isPreamble = &section == &sections_.front();
    if (isPreamble && section.lines.empty()) text += std::string(kRemark) + "\n";
    if (!isPreamble) {
      text += "\n";
      text += section.IsReadable() ? "[" + Escape(section.key, "[]") + "]" : section.heading;
      text += "\n";
    }
    for (const Line& line : section.lines) {
      text += line.isValue ? Escape(line.name, "=[#") + "=" + Escape(line.value, "") : line.value;
      text += "\n";
    }
  }
  return text;
}

const RegistryText::Section* RegistryText::FindSection(std::string_view key) const {
  const auto place = keys_.find(Folded(NormalKey(key)));
  return place == keys_.end() ? nullptr : &sections_[place->second];
}

RegistryText::Section* RegistryText::FindSection(std::string_view key) {
  return const_cast<Section*>(std::as_const(*this).FindSection(key));
}

std::optional<std::string> RegistryText::Read(std::string_view key, std::string_view name) const {
  const Section* section = FindSection(key);
  if (section == nullptr) return std::nullopt;
  const auto place = section->values.find(Folded(name));
  if (place == section->values.end()) return std::nullopt;
  return section->lines[place->second].value;
}

std::vector<std::string> RegistryText::ValueNames(std::string_view key) const {
  std::vector<std::string> names;
  const Section* section = FindSection(key);
  if (section == nullptr) return names;
  for (const Line& line : section->lines) {
    if (line.isValue) names.push_back(line.name);
  }
  return names;
}

std::vector<std::string> RegistryText::SubKeys(std::string_view key) const {
  const std::string above = NormalKey(key);
  std::vector<std::string> names;
  std::unordered_set<std::string> known;
  for (const Section& section : sections_) {
    if (!section.IsReadable() || !IsWithin(section.key, above)) continue;
    const std::size_t start = above.empty() ? 0 : above.size() + 1;
    if (start >= section.key.size()) continue;
    std::string name = section.key.substr(start, section.key.find('\\', start) - start);
    if (known.insert(Folded(name)).second) names.push_back(std::move(name));
  }
  return names;
}

bool RegistryText::HasContent() const {
  return std::any_of(sections_.begin(), sections_.end(), [](const Section& section) {
    return std::any_of(section.lines.begin(), section.lines.end(),
                       [](const Line& line) { return line.isValue || line.value.front() != '#'; });
  });
}

bool RegistryText::Write(std::string_view key, std::string_view name, std::string_view value) {
  Section* section = FindSection(key);
  if (section == nullptr) section = &AddSection({NormalKey(key), {}, {}, {}});
  return Put(*section, std::string(name), std::string(value));
}

bool RegistryText::DeleteValue(std::string_view key, std::string_view name) {
  Section* section = FindSection(key);
  if (section == nullptr) return false;
  const auto place = section->values.find(Folded(name));
  if (place == section->values.end()) return false;
  section->lines.erase(section->lines.begin() + static_cast<std::ptrdiff_t>(place->second));
  IndexValues(*section);
  return true;
}

bool RegistryText::DeleteKey(std::string_view key) {
  const std::string above = NormalKey(key);
  const std::size_t erased = std::erase_if(sections_, [&](const Section& section) {
    return section.IsReadable() && IsWithin(section.key, above);
  });
  if (erased == 0) return false;
  keys_.clear();
  for (std::size_t i = 0; i < sections_.size(); ++i) {
    if (sections_[i].IsReadable()) keys_.emplace(Folded(sections_[i].key), i);
  }
  return true;
}

}  // namespace corvanta::inline platform
