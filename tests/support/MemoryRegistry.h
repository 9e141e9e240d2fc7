#pragma once

#include "platform/Registry.h"
#include "platform/RegistryText.h"

#include <array>

namespace corvanta {

// The registry without a disk, which can be told to fail.
class MemoryRegistry : public Registry {
 public:
  // While set, every change throws PlatformError and changes nothing.
  void RefuseWrites(bool refuse) { refuses_ = refuse; }

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
  [[nodiscard]] const RegistryText& Of(Hive hive) const;
  [[nodiscard]] RegistryText& ToChange(Hive hive);

  std::array<RegistryText, 2> hives_;
  bool refuses_ = false;
};

}  // namespace corvanta
