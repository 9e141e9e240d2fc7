// Prints lists, and shows them as they would be printed.
#pragma once

#include "reports/print/PrintTable.h"

#include <functional>
#include <string>

class QPrinter;
class QTableView;
class QWidget;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline reports {

// Lets a person choose the printer and set it up; false when they cancel.
using PrinterChoice = std::function<bool(QPrinter& printer, QWidget* parent)>;

// What is printed with, and before what the windows stand.
struct PrintPlace {
  Platform& platform;
  QWidget* parent;
  PrinterChoice choose = {};  // empty for the system's own dialog
};

// The list as it stands: the columns shown in their order with their widths and alignments, and the
// texts of all its rows. A row that stands in bold letters from end to end is a total.
[[nodiscard]] PrintTable PrintTableOf(const QTableView& list, const std::string& title);

// Shows the pages, modal before the parent; they can be printed and saved as a PDF from there.
void OpenPrintPreview(const PrintTable& table, const PrintPlace& place);
// Lets a person set the paper and its margins; true when they were kept.
bool OpenPageSetup(const PrintPlace& place);
// Asks for the printer and prints. True when it was printed. Throws PlatformError when the printer
// or the file that stands for it refuses.
bool PrintList(const PrintTable& table, const PrintPlace& place);

}  // namespace corvanta::inline reports
