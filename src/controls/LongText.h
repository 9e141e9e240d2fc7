#pragma once

#include <QString>

namespace corvanta::inline controls {

// A text that a person has typed may be one word of hundreds of letters. A label shows it in lines:
// the places where such a word may be broken are marked, unseen.
[[nodiscard]] QString Breakable(const QString& text);

// The text with dots in its middle where it is longer than so many characters.
[[nodiscard]] QString Shortened(const QString& text, int characters = 40);

}  // namespace corvanta::inline controls
