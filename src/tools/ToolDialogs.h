// Opens the windows of the calculators, each modal before its parent. They need no data file.
#pragma once

#include "tools/LoanCalculator.h"

class QWidget;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline tools {

// Sums, each a line.
void ShowCalculator(Platform& platform, QWidget* parent);
void ShowLoan(LoanMode mode, Platform& platform, QWidget* parent);

}  // namespace corvanta::inline tools
