// The commands of the File and Help menus.
#include "app/MainActions.h"

#include <QAction>
#include <QMenu>

namespace corvanta::inline app {

void MainActions::MakeFile() {
  mnuFileOpen =
      Make("mnuFileOpen", tr("&Open..."), "open", tr("Open another data file"), QKeySequence::Open);
  mnuFileValidate =
      Make("mnuFileValidate", tr("&Validate"), "validate", tr("Check and repair the data file"));
  mnuFilePassword = Make("mnuFilePassword", tr("Passwor&d..."), "password",
                         tr("Set, change or switch off the password that the data file asks for"));
  mnuFilePassphrase =
      Make("mnuFilePassphrase", tr("Passp&hrase..."), "",
           tr("Protect the data file with a passphrase that opens it on every computer"));
  mnuFileKey = Make("mnuFileKey", tr("Recovery &Key..."), "key",
                    tr("Show and save the key that opens the data file on another machine"));
  mnuFileOptions = Make("mnuFileOptions", tr("Op&tions..."), "options",
                        tr("Set how the program looks and works"));
  mnuFileOptions->setMenuRole(QAction::PreferencesRole);
  mnuFileImport = Make("mnuFileImport", tr("&Import..."), "import",
                       tr("Bring the transactions of a QIF, OFX or CSV file into an account"),
                       QKeySequence(Qt::CTRL | Qt::Key_I));
  mnuFileExport = Make("mnuFileExport", tr("&Export..."), "export",
                       tr("Write the transactions that are shown into a file"),
                       QKeySequence(Qt::CTRL | Qt::Key_E));
  mnuFileSpreadsheet = Make("mnuFileSpreadsheet", tr("&Make Spreadsheet..."), "",
                            tr("Write the list that is shown into a file that spreadsheets open"));
  mnuFilePrint = Make("mnuFilePrint", tr("&Print..."), "print", tr("Print the list that is shown"),
                      QKeySequence::Print);
  mnuFilePreview = Make("mnuFilePreview", tr("Print Previe&w..."), "preview",
                        tr("Look at the pages before they are printed"));
  mnuFilePageSetup = Make("mnuFilePageSetup", tr("Page Set&up..."), "",
                          tr("Choose the paper, how it lies, and its margins"));
  mnuFileExit = Make("mnuFileExit", tr("E&xit"), "exit", tr("Close the program"),
                     QKeySequence(Qt::CTRL | Qt::Key_Q));
  mnuFileExit->setMenuRole(QAction::QuitRole);
}

void MainActions::MakeSafety() {
  mnuFileNew = Make("mnuFileNew", tr("&New..."), "add", tr("Create another data file"));
  mnuFileRecent = new QMenu(tr("Open Re&cent"), window_);
  mnuFileRecent->menuAction()->setObjectName(QStringLiteral("mnuFileRecent"));
  mnuFileSaveAs = Make("mnuFileSaveAs", tr("&Save As..."), "save",
                       tr("Copy the data file to another place and go on there"),
                       QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
  mnuFileBackup = Make("mnuFileBackup", tr("&Backup..."), "", tr("Make a backup of the data file"));
  mnuFileRestore = Make("mnuFileRestore", tr("&Restore..."), "",
                        tr("Put a backup into the place of the data file"));
  mnuFileSalvage = Make("mnuFileSalvage", tr("Sa&lvage..."), "",
                        tr("Read what can still be read of a damaged data file into a new one"));
  mnuFileArchive = Make("mnuFileArchive", tr("&Archive..."), "",
                        tr("Move old transactions into a data file of their own"));
  mnuFileTransfer =
      Make("mnuFileTransfer", tr("Save Trans&fer File..."), "",
           tr("Write the key of the data file and the settings, for another machine"));
}

void MainActions::MakeHelp() {
  mnuHelpContents = Make("mnuHelpContents", tr("&Contents"), "help", tr("Show what can be read"));
  mnuHelpPage = Make("mnuHelpPage", tr("&Help on This Window"), "",
                     tr("Show the page of the window in front"), QKeySequence::HelpContents);
  mnuHelpWelcome = Make("mnuHelpWelcome", tr("&Welcome..."), "",
                        tr("Begin with an account, a bank file or the sample, and keep it safe"));
  mnuHelpTips = Make("mnuHelpTips", tr("&Tip of the Day..."), "tips", tr("Show a tip"));
  mnuHelpAbout = Make("mnuHelpAbout", tr("&About..."), "about", tr("About this program"));
  mnuHelpAbout->setMenuRole(QAction::AboutRole);
}

}  // namespace corvanta::inline app
