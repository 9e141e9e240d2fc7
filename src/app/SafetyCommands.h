#pragma once

class QWidget;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline app {

class LedgerSession;

// Shows the restore dialog before that window and does what the person decides: closes what is
// open, puts the backup into its place and tells where the former file is. True when it was done;
// the data file is closed then, and has to be opened again. Also while none can be opened.
bool RestoreByDialog(LedgerSession& session, Platform& platform, QWidget* parent);
// Has the backup made that is due when the open data file is left. Never throws.
void BackUpOnLeaving(LedgerSession& session, Platform& platform) noexcept;
// Tells that the last backup failed, where it did, and offers another try.
void RemindOfFailedBackup(LedgerSession& session, Platform& platform);

}  // namespace corvanta::inline app
