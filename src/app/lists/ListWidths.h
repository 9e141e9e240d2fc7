#pragma once

#include <QFontMetrics>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

// How wide the columns of a list want to be in the letters of the program, in pixels, with the
// space at their sides.
class ListWidths {
 public:
  explicit ListWidths(const Locale& locale);

  [[nodiscard]] int Text(const QString& sample) const;
  // Of such a number with so many decimals (below 0: the locale's).
  [[nodiscard]] int Figure(double sample, int decimals = -1) const;
  // Of a day, whose column is sorted at first and says so.
  [[nodiscard]] int Day() const;

 private:
  const Locale& locale_;
  QFontMetrics metrics_;
};

}  // namespace corvanta::inline app
