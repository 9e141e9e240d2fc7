#include "tools/FrmLoan.h"
#include "tools/ToolDialogs.h"

namespace corvanta::inline tools {

void ShowLoan(LoanMode mode, Platform& platform, QWidget* parent) {
  FrmLoan(mode, platform, parent).exec();
}

}  // namespace corvanta::inline tools
