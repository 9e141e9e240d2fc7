#include "controls/LongText.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace corvanta::inline controls {
namespace {

constexpr int kLongestWord = 24;  // characters
constexpr QChar kBreak(0x200b);   // a space of no width

// No letter is parted from its marks, and no picture from what it is made of.
qsizetype WholeLetters(const QString& text, qsizetype most) {
  QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text);
  letters.setPosition(most);
  if (!letters.isAtBoundary()) letters.toPreviousBoundary();
  return std::max<qsizetype>(letters.position(), 0);
}

}  // namespace

QString Breakable(const QString& text) {
  QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text);
  QString shown;
  int length = 0;
  for (qsizetype from = 0, to = 0; (to = letters.toNextBoundary()) > from; from = to) {
    length = text[from].isSpace() ? 0 : length + 1;
    if (length > kLongestWord) {
      shown += kBreak;
      length = 1;
    }
    shown += QStringView(text).mid(from, to - from);
  }
  return shown;
}

QString Shortened(const QString& text, int characters) {
  if (text.size() <= characters) return text;
  const qsizetype head = WholeLetters(text, characters * 2 / 3);
  QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text);
  letters.setPosition(text.size() - characters / 3);
  if (!letters.isAtBoundary()) letters.toNextBoundary();
  return text.left(head) + QStringLiteral("…") + text.mid(letters.position());
}

}  // namespace corvanta::inline controls
