#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvanta::jet {

// What LIKE compares with: "%" stands for any text, "_" for one character, "[abc]", "[a-c]" and "[!a-c]" for one of
// or none of some characters (a bracket that is never closed stands for itself). Without regard
// to case. Made once for a statement, and asked for each of its rows.
class Pattern {
 public:
  explicit Pattern(std::string_view pattern);

  [[nodiscard]] bool Matches(std::string_view text);

 private:
  std::string pattern_;                  // folded
  std::optional<std::string> contains_;  // what is between two "%" with nothing else in it
  std::string folded_;                   // the text asked for last
};

}  // namespace corvanta::jet
