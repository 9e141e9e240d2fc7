#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {

enum class Hive { CurrentUser, LocalMachine };

using RegistryValues = std::map<std::string, std::string>;   // by their names
using RegistryKeys = std::map<std::string, RegistryValues>;  // by their keys

// Settings as keys of string values. A key is a path with backslashes
// ("Software\Corvanta 2.0\Settings"); keys and value names are matched without regard to case
// (ASCII) and kept in the spelling first written.
class Registry {
 public:
  virtual ~Registry() = default;

  // The value, or nullopt when the key or the value is not there.
  [[nodiscard]] virtual std::optional<std::string> Read(Hive hive, std::string_view key,
                                                        std::string_view name) const = 0;
  // Creates the key and the value as needed. The change is on disk when this returns.
  // Throws PlatformError when it cannot be written (the old settings stay as they were).
  virtual void Write(Hive hive, std::string_view key, std::string_view name,
                     std::string_view value) = 0;
  // Several values of several keys in one write: all of them or none.
  virtual void WriteKeys(Hive hive, const RegistryKeys& keys) = 0;
  // The same of one key.
  void WriteAll(Hive hive, std::string_view key, const RegistryValues& values) {
    WriteKeys(hive, {{std::string(key), values}});
  }
  // Value names of one key, and names of the keys directly below one, in order of first writing.
  [[nodiscard]] virtual std::vector<std::string> ValueNames(Hive hive,
                                                            std::string_view key) const = 0;
  [[nodiscard]] virtual std::vector<std::string> SubKeys(Hive hive, std::string_view key) const = 0;
  // Deleting what is not there does nothing. DeleteKey takes the keys below it along.
  virtual void DeleteValue(Hive hive, std::string_view key, std::string_view name) = 0;
  virtual void DeleteKey(Hive hive, std::string_view key) = 0;
  // True when the hive holds no value at all: a machine on which the program never ran.
  [[nodiscard]] virtual bool IsEmpty(Hive hive) const = 0;
};

}  // namespace corvanta::inline platform
