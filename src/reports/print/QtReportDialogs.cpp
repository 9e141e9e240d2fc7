#include "controls/QtText.h"
#include "reports/print/FrmPageSetup.h"
#include "reports/print/FrmPreview.h"
#include "reports/print/QtPrinting.h"
#include "reports/print/ReportDialogs.h"

#include <QPrintDialog>
#include <QPrinter>

namespace corvanta::inline reports {
namespace {

bool ChoosePrinter(QPrinter& printer, QWidget* parent) {
  QPrintDialog dialog(&printer, parent);
  // All pages or none: the numbers of the pages change with the printer's paper.
  dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
  dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace

void OpenPrintPreview(const PrintTable& table, const PrintPlace& place) {
  FrmPreview(table, place).exec();
}

bool OpenPageSetup(const PrintPlace& place) {
  return FrmPageSetup(place.platform, place.parent).exec() == QDialog::Accepted;
}

bool PrintList(const PrintTable& table, const PrintPlace& place) {
  return PrintList(table, place, ReadPageSetup(place.platform));
}

bool PrintList(const PrintTable& table, const PrintPlace& place, const PageSetup& setup) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageLayout(PageLayoutOf(setup, table.orientation));
  printer.setDocName(ToQt(table.title));
  printer.setCreator(QStringLiteral("Corvanta Personal Finance"));
  const bool isChosen =
      place.choose ? place.choose(printer, place.parent) : ChoosePrinter(printer, place.parent);
  if (!isChosen) return false;
  if (PrintPages(printer, table, place.platform)) return true;
  printer.abort();
  return false;
}

}  // namespace corvanta::inline reports
