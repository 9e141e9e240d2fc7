#pragma once

#include "ledger/secrets/PromptedOpening.h"

#include <optional>
#include <string>

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
// Shows the salvage dialog before that window: of the data file in use, or of another one. The new
// data file that is to be opened; nullopt for none. Also while none can be opened.
std::optional<std::string> SalvageByDialog(LedgerSession& session, Platform& platform,
                                           QWidget* parent);
// Both as the roads out of a damaged data file. All must outlive them.
[[nodiscard]] DamageRoads RoadsByDialog(LedgerSession& session, Platform& platform,
                                        QWidget* parent);
// Has the backup made that is due when the open data file is left. Never throws.
void BackUpOnLeaving(LedgerSession& session, Platform& platform) noexcept;
// Tells that the last backup failed, where it did, and offers another try.
void RemindOfFailedBackup(LedgerSession& session, Platform& platform);

}  // namespace corvanta::inline app
