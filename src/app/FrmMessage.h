#pragma once

#include "controls/QuietEnd.h"

#include <QDialog>

namespace corvanta::inline app {

// A message of many lines, which scrolls where the screen is too small for it.
class FrmMessage : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  FrmMessage(const QString& title, const QString& text, QWidget* parent);
  // Whether a text asks for it.
  [[nodiscard]] static bool IsLong(const QString& text);
};

}  // namespace corvanta::inline app
