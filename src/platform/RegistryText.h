#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvanta::inline platform {

// One hive of the registry as it stands in a text file:
//
//   [Software\Corvanta 2.0\Settings]
//   Height=600
//
// "%" and two hexadecimal digits stand for a byte that would be misread in its place (control
// characters, "%" itself, brackets in keys, "=" in names, blanks at either end). Lines starting
// with "#" are remarks. Remarks and lines that cannot be understood are kept where they are.
class RegistryText {
 public:
  RegistryText() = default;
  // Never fails: what makes no sense is kept as it stands.
  explicit RegistryText(std::string_view text);

  [[nodiscard]] std::string ToText() const;

  [[nodiscard]] std::optional<std::string> Read(std::string_view key, std::string_view name) const;
  [[nodiscard]] std::vector<std::string> ValueNames(std::string_view key) const;
  [[nodiscard]] std::vector<std::string> SubKeys(std::string_view key) const;
  // False for a file without values and without lines that may once have been values.
  [[nodiscard]] bool HasContent() const;

  // Each returns true when the text has changed by it.
  bool Write(std::string_view key, std::string_view name, std::string_view value);
  bool DeleteValue(std::string_view key, std::string_view name);
  bool DeleteKey(std::string_view key);

 private:
  struct Line {
    bool isValue = false;
    std::string name;
    std::string value;  // of a line that is no value: the line itself
  };
  struct Section {
    std::string key;
    std::string heading;  // of a section that cannot be understood: its heading as it stands
    std::vector<Line> lines;
    std::unordered_map<std::string, std::size_t> values;  // by folded name, the value's line
    [[nodiscard]] bool IsReadable() const { return heading.empty() && !key.empty(); }
  };

  void ParseLine(std::string_view line, std::size_t& current);
  [[nodiscard]] const Section* FindSection(std::string_view key) const;
  [[nodiscard]] Section* FindSection(std::string_view key);
  // The section at its end, of which there was none yet.
  Section& AddSection(Section section);
  // False when the section has the value already.
  static bool Put(Section& section, std::string name, std::string value);
  static void IndexValues(Section& section);

  // The first section has no key and holds what stands above the first heading.
  std::vector<Section> sections_{Section{}};
  std::unordered_map<std::string, std::size_t> keys_;  // by folded key, the section
};

}  // namespace corvanta::inline platform
