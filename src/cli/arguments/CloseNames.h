#pragma once

#include <string>
#include <vector>

namespace corvanta::inline cli {

// The names that come near a mistyped one, nearest first, three at most: those that contain it,
// those that it contains, and those that begin within a few letters of it. Case does not matter.
[[nodiscard]] std::vector<std::string> CloseNames(const std::string& typed,
                                                  const std::vector<std::string>& names);
// The names as a question behind a message, with a blank before it; empty without a name.
[[nodiscard]] std::string DidYouMean(const std::vector<std::string>& close);

}  // namespace corvanta::inline cli
