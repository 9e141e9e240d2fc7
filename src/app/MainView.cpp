#include "app/MainView.h"

#include "platform/Spreadsheet.h"
#include "reports/print/PrintTable.h"
#include "reports/sheet/SheetTable.h"

namespace corvanta::inline app {

SpreadsheetTable MainView::Sheet(const Locale& locale) const {
  return SheetOf(Printed(), locale);
}

}  // namespace corvanta::inline app
