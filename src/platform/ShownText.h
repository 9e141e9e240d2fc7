#pragma once

#include <string>
#include <string_view>

namespace corvanta::inline platform {

// Text that may have come from anywhere, as a terminal may show it: characters that would steer the
// terminal or turn the direction of writing are replaced by ones that are seen. Control characters
// become their pictures (U+241B for escape), every other one and bytes that are no UTF-8 become
// U+FFFD; tabs and carriage returns become blanks, line feeds stay. A character stays one
// character.
[[nodiscard]] std::string ShownText(std::string_view text);

}  // namespace corvanta::inline platform
