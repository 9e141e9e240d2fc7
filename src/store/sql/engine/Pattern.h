#pragma once

#include <string_view>

namespace corvanta::jet {

// LIKE: "%" stands for any text, "_" for one character, "[abc]", "[a-c]" and "[!a-c]" for one of
// or none of some characters (a bracket that is never closed stands for itself). Without regard
// to case.
[[nodiscard]] bool MatchesPattern(std::string_view pattern, std::string_view text);

}  // namespace corvanta::jet
