// The program's look: colours worked out from the palette in force, so that light and dark both
// come out readable, and the rhythm of the layouts.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

namespace corvanta::inline controls {

// Every margin and gap is a multiple of it, in device independent pixels.
inline constexpr int kRhythm = 8;

[[nodiscard]] bool IsDark(const QPalette& palette);
// The program's one own colour: chosen things, today, links.
[[nodiscard]] QColor AccentColour(const QPalette& palette);
// Money that leaves an account, and what is below zero.
[[nodiscard]] QColor MoneyOutColour(const QPalette& palette);
// Text of second rank, still readable.
[[nodiscard]] QColor MutedText(const QPalette& palette);
// Lines between areas.
[[nodiscard]] QColor Hairline(const QPalette& palette);
// `share` (0 to 1) of the first colour, the rest of the second.
[[nodiscard]] QColor Mixed(const QColor& first, const QColor& second, double share);
// The colour, lightened or darkened until text in it can be read on the background.
[[nodiscard]] QColor ReadableOn(const QColor& text, const QColor& background);

// The application's font at another size (in steps of the type scale: -1 small, 0, 1 heading,
// 2 title).
[[nodiscard]] QFont ScaledFont(int step, QFont::Weight weight = QFont::Normal);

}  // namespace corvanta::inline controls
