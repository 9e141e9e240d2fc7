#pragma once

#include <cstddef>
#include <string>

namespace corvanta::inline platform {

// The first bytes of an ordinary file, at most `size`; none of what cannot be read and of a pipe or
// a device, which might never answer.
[[nodiscard]] std::string ReadBeginning(const std::string& path, std::size_t size);

}  // namespace corvanta::inline platform
