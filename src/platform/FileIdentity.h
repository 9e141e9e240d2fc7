#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline platform {

// Which file stands under a name: what is equal is one file.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t number = 0;

  [[nodiscard]] bool operator==(const FileIdentity& other) const = default;
};

// Of a link that of the file it leads to; nullopt where nothing stands.
[[nodiscard]] std::optional<FileIdentity> IdentityOf(const std::string& path);

}  // namespace corvanta::inline platform
