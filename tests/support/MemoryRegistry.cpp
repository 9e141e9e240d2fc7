#include "support/MemoryRegistry.h"

#include "platform/PlatformError.h"

namespace corvanta {

const RegistryText& MemoryRegistry::Of(Hive hive) const {
  return hives_[hive == Hive::CurrentUser ? 0 : 1];
}

RegistryText& MemoryRegistry::ToChange(Hive hive) {
  if (refuses_) throw PlatformError("The settings cannot be written.");
  return hives_[hive == Hive::CurrentUser ? 0 : 1];
}

std::optional<std::string> MemoryRegistry::Read(Hive hive, std::string_view key,
                                                std::string_view name) const {
  return Of(hive).Read(key, name);
}
void MemoryRegistry::Write(Hive hive, std::string_view key, std::string_view name,
                           std::string_view value) {
  ToChange(hive).Write(key, name, value);
}
void MemoryRegistry::WriteKeys(Hive hive, const RegistryKeys& keys) {
  RegistryText& text = ToChange(hive);
  for (const auto& [key, values] : keys) {
    for (const auto& [name, value] : values) text.Write(key, name, value);
  }
}
std::vector<std::string> MemoryRegistry::ValueNames(Hive hive, std::string_view key) const {
  return Of(hive).ValueNames(key);
}
std::vector<std::string> MemoryRegistry::SubKeys(Hive hive, std::string_view key) const {
  return Of(hive).SubKeys(key);
}
void MemoryRegistry::DeleteValue(Hive hive, std::string_view key, std::string_view name) {
  ToChange(hive).DeleteValue(key, name);
}
void MemoryRegistry::DeleteKey(Hive hive, std::string_view key) {
  ToChange(hive).DeleteKey(key);
}
bool MemoryRegistry::IsEmpty(Hive hive) const {
  return !Of(hive).HasContent();
}

}  // namespace corvanta
