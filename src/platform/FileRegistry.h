#pragma once

#include "platform/Files.h"
#include "platform/Registry.h"
#include "platform/RegistryText.h"

#include <array>
#include <cstdint>
#include <functional>

namespace corvanta::inline platform {

// The registry as one text file per hive. A file is read again when another process has changed
// it, and written under a lock of its own ("<file>.lock"), so that several processes do not lose
// each other's values. A crash leaves the former file or the new one. Lines that make no sense are
// kept as they stand; a file that cannot be read at all is an error on every operation and is
// never written over.
class FileRegistry : public Registry {
 public:
  // The user's file is made owner-only in an owner-only folder, the machine's readable to all.
  FileRegistry(std::string userFile, std::string machineFile, Files& files);

  [[nodiscard]] std::optional<std::string> Read(Hive hive, std::string_view key,
                                                std::string_view name) const override;
  void Write(Hive hive, std::string_view key, std::string_view name,
             std::string_view value) override;
  void WriteKeys(Hive hive, const RegistryKeys& keys) override;
  [[nodiscard]] std::vector<std::string> ValueNames(Hive hive, std::string_view key) const override;
  [[nodiscard]] std::vector<std::string> SubKeys(Hive hive, std::string_view key) const override;
  void DeleteValue(Hive hive, std::string_view key, std::string_view name) override;
  void DeleteKey(Hive hive, std::string_view key) override;
  [[nodiscard]] bool IsEmpty(Hive hive) const override;

 private:
  // What tells one state of a file from another without reading it.
  struct Stamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = -1;  // -1: no file
    std::int64_t changed = 0;
    auto operator<=>(const Stamp&) const = default;
  };
  struct Loaded {
    std::string file;
    RegistryText text;
    Stamp stamp;
    bool isCurrent = false;
  };

  [[nodiscard]] static Stamp StampOf(const std::string& file);
  Loaded& HiveOf(Hive hive) const { return hives_[hive == Hive::CurrentUser ? 0 : 1]; }
  [[nodiscard]] const RegistryText& Load(Hive hive) const;
  void Change(Hive hive, const std::function<bool(RegistryText&)>& change);
  void Save(Hive hive, const std::string& file, const std::string& text);

  mutable std::array<Loaded, 2> hives_;
  Files& files_;
};

}  // namespace corvanta::inline platform
