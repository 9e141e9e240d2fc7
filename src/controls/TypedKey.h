// What a key press means to a field that is typed in.
#pragma once

#include <QKeyEvent>

namespace corvanta::inline controls {

// Whether the key is a letter with Alt or Meta held: one that is meant for a mnemonic or for the
// desktop and must not end up in the text. Ctrl together with Alt is how some keyboards write
// characters.
[[nodiscard]] inline bool IsCommandLetter(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers();
  if ((held & (Qt::AltModifier | Qt::MetaModifier)) == 0) return false;
  if ((held & Qt::ControlModifier) != 0) return false;
  const QString typed = event.text();
  return !typed.isEmpty() && typed.front().isPrint();
}

}  // namespace corvanta::inline controls
