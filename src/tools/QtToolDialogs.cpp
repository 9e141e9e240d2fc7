#include "tools/FrmCalculator.h"
#include "tools/FrmLoan.h"
#include "tools/ToolDialogs.h"

namespace corvanta::inline tools {

void ShowCalculator(Platform& platform, QWidget* parent) {
  FrmCalculator(platform, parent).exec();
}

void ShowLoan(LoanMode mode, Platform& platform, QWidget* parent) {
  FrmLoan(mode, platform, parent).exec();
}

}  // namespace corvanta::inline tools
