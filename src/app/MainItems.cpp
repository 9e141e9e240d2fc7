// The commands on what belongs to a single item, and those around the views.
#include "app/MainActions.h"

#include <QAction>

namespace corvanta::inline app {

void MainActions::MakeItems() {
  mnuTransDelete =
      Make("mnuTransDelete", tr("&Delete"), "delete", tr("Delete the chosen transactions"));
  mnuTransCopy = Make("mnuTransCopy", tr("Cop&y"), "copy", tr("Copy the chosen transactions"));
  mnuTransPaste = Make("mnuTransPaste", tr("&Paste"), "paste",
                       tr("Put the copied transactions into the account shown"));
  mnuTransKeyword = Make("mnuTransKeyword", tr("&Keywords..."), "keyword",
                         tr("Choose the keywords of the chosen transactions"));
  mnuTransAttachment = Make("mnuTransAttachment", tr("Attach&ments..."), "attachment",
                            tr("Attach files to the transaction, or look at those it has"));
  mnuToolsCalculator =
      Make("mnuToolsCalculator", tr("C&alculator..."), "", tr("Work out sums, each a line"));
  mnuViewRibbon = MakeTick("mnuViewRibbon", tr("Ribbon E&xpanded"), tr("Show or fold the ribbon"));
  mnuViewRibbon->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F1));
  mnuViewRibbon->setChecked(true);
  mnuRibbonAdd = Make("mnuRibbonAdd", tr("Add"), "add", tr("Add an item to the list"));
  // What the ribbon says does not follow the last step, and is short.
  mnuEditUndo->setIconText(tr("Undo"));
  mnuTransReconcile->setIconText(tr("Balance"));
  mnuFilePreview->setIconText(tr("Preview"));
}

}  // namespace corvanta::inline app
