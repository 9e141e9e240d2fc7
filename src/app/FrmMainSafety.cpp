// Data files of the main window: new ones, copies, backups, archives.
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/SafetyCommands.h"
#include "controls/QtText.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "platform/Prompts.h"
#include "safety/RecentFiles.h"
#include "safety/SafetyDialogs.h"
#include "safety/SaveAs.h"
#include "safety/Transfer.h"
#include "store/datafile/opening/FileSteps.h"

#include <QAction>
#include <QMenu>
#include <QPointer>

#include <filesystem>
#include <optional>
#include <string>

namespace corvanta::inline app {
namespace {

constexpr const char* kDataFiles = "Data Files";
constexpr int kEntryWidth = 52;  // figures

// Under another ending the path of a file that is not there yet would be taken for a folder.
std::string WithEnding(const std::string& path) {
  return std::filesystem::path(path).extension() == ".dat" ? path : path + ".dat";
}

bool IsSameFile(const std::string& path, const std::string& other) {
  const auto identity = IdentityOf(path);
  return identity && identity == IdentityOf(other);
}

}  // namespace

void FrmMain::ConnectSafety() {
  On(actions_->mnuFileNew, [this] { NewDataFile(); });
  On(actions_->mnuFileSaveAs, [this] { SaveDataFile(); });
  On(actions_->mnuFileBackup, [this] { MakeBackup(); });
  On(actions_->mnuFileRestore, [this] { RestoreBackup(); });
  On(actions_->mnuFileSalvage, [this] {
    const auto path = SalvageByDialog(session_, platform_, this);
    if (path && SwitchTo(*path)) Notice(tr("Opened %1").arg(ToQt(*path)));
  });
  On(actions_->mnuFileArchive, [this] { ArchiveRows(); });
  On(actions_->mnuFileTransfer, [this] { WriteTransferFile(); });
  connect(actions_->mnuFileRecent, &QMenu::aboutToShow, this, &FrmMain::FillRecentMenu);
  session_.OnDamage({[window = QPointer<FrmMain>(this)] {
                       return window &&
                              RestoreByDialog(window->session_, window->platform_, window);
                     },
                     [window = QPointer<FrmMain>(this)]() -> std::optional<std::string> {
                       if (!window) return std::nullopt;
                       return SalvageByDialog(window->session_, window->platform_, window);
                     }});
}

bool FrmMain::SwitchTo(const std::string& path) {
  const bool wasOpen = session_.IsOpen();
  // Whoever wants the file that is being left does not get the one that comes.
  Q_EMIT FileShown(QString());
  BackUpOnLeaving(session_, platform_);
  try {
    session_.Choose(path);
  } catch (...) {
    ShowFile();
    throw;
  }
  if (Reopen(true)) {
    NoticePosted();
    return true;
  }
  // The file that cannot be used must not be what the next start begins with.
  session_.Unchoose();
  if (wasOpen) Reopen(true);
  return false;
}

void FrmMain::NewDataFile() {
  const auto chosen =
      platform_.prompts.SaveFile({"Create Data File", kDataFiles, "*.dat", "dat", std::string()});
  if (!chosen) return;
  const std::string path = WithEnding(*chosen);
  if (IdentityOf(path).has_value()) {
    platform_.prompts.Tell("Create Data File",
                           "There is a file " + path +
                               " already, which is left as it is. Choose another name for the new "
                               "data file, or open this one.",
                           Icon::Warning);
    return;
  }
  {
    DataFileOpener maker(platform_, session_.Opener().AsWriter().name);
    maker.SetDataPath(path);
    (void)maker.CreateNew(true);
  }
  SwitchTo(path);
}

void FrmMain::SaveDataFile() {
  if (!session_.IsOpen()) return;
  const auto chosen =
      platform_.prompts.SaveFile({"Save Data File As", kDataFiles, "*.dat", "dat", std::string()});
  if (!chosen) return;
  const std::string path = WithEnding(*chosen);
  SaveDataFileAs({session_.Path(), session_.Password()}, path, platform_,
                 session_.Opener().AsWriter());
  if (SwitchTo(path)) Notice(tr("Saved as %1").arg(ToQt(path)));
}

void FrmMain::MakeBackup() {
  if (!session_.IsOpen()) return;
  const auto mayWriteKey = [this] {
    return session_.Passwords().Confirm(session_.Ledger().Store());
  };
  OpenBackup({session_.Path(), session_.Password()},
             {platform_, session_.Opener().AsWriter(), this, mayWriteKey});
}

void FrmMain::RestoreBackup() {
  const bool wasOpen = session_.IsOpen();
  bool isRestored = false;
  // Whatever goes wrong, the window must not stand on a file that was closed for it.
  Guard([&] { isRestored = RestoreByDialog(session_, platform_, this); });
  if (isRestored || (wasOpen && !session_.IsOpen())) Reopen(true);
}

void FrmMain::ArchiveRows() {
  if (!session_.IsOpen()) return;
  const BackedFile file{session_.Path(), session_.Password()};
  const SafetyPlace place{platform_, session_.Opener().AsWriter(), this, {}};
  if (OpenArchive(session_.Ledger(), file, place)) Reload();
}

void FrmMain::WriteTransferFile() {
  if (!session_.IsOpen()) return;
  const auto path = platform_.prompts.SaveFile(
      {"Save Transfer File As", "Transfer Files", "*.tfr", "tfr", std::string()});
  // It opens the data file for whoever has both.
  if (!path || !session_.Passwords().Confirm(session_.Ledger().Store())) return;
  WriteTransfer(*path, session_.Path(), session_.Password(), FormerFile::Replace, platform_);
  Notice(tr("The key and the settings are written into %1").arg(ToQt(*path)));
}

void FrmMain::RememberFile() {
  if (!session_.IsOpen()) return;
  try {
    RecentFiles(platform_.registry).Add(session_.Path());
  } catch (const PlatformError& error) {
    qWarning("The recent file was not kept: %s", error.what());
  }
}

void FrmMain::FillRecentMenu() {
  QMenu& menu = *actions_->mnuFileRecent;
  menu.clear();
  for (const std::string& path : RecentFiles(platform_.registry).List()) {
    if (path == session_.Path()) continue;
    const QString shown = fontMetrics().elidedText(ToQt(path), Qt::ElideMiddle,
                                                   kEntryWidth * fontMetrics().averageCharWidth());
    QAction* entry = menu.addAction(QString(shown).replace(u'&', QStringLiteral("&&")));
    entry->setStatusTip(ToQt(path));
    On(entry, [this, path] { OpenRecent(path); });
  }
  if (!menu.isEmpty()) return;
  menu.addAction(tr("None yet"))->setEnabled(false);
}

void FrmMain::OpenRecent(const std::string& path) {
  if (FileExists(path)) {
    SwitchTo(path);
    return;
  }
  platform_.prompts.Tell("Open Data File", "Data file could not be found at, " + path + ".",
                         Icon::Warning);
  RecentFiles(platform_.registry).Remove(path);
}

void FrmMain::OpenDataFile() {
  const auto path = platform_.prompts.OpenFile(
      {"Select File to Open", kDataFiles, "*.dat", "dat", std::string()});
  if (!path) return;
  if (session_.IsOpen() && IsSameFile(*path, session_.Path())) {
    return Notice(tr("This data file is open already"));
  }
  SwitchTo(*path);
}

}  // namespace corvanta::inline app
