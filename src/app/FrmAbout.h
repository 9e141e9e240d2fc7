#pragma once

#include "controls/QuietEnd.h"

#include <QDialog>

namespace corvanta::inline app {

// What the program is, its version and its licence.
class FrmAbout : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  explicit FrmAbout(QWidget* parent);
};

}  // namespace corvanta::inline app
