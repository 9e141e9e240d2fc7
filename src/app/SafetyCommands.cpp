#include "app/SafetyCommands.h"

#include "app/LedgerSession.h"
#include "ledger/transactions/KeywordBook.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "safety/FileStore.h"
#include "safety/SafetyDialogs.h"
#include "safety/SalvageEditor.h"

#include <exception>

namespace corvanta::inline app {
namespace {

BackedFile OpenFileOf(const LedgerSession& session) {
  return {session.Path(), session.Password()};
}

}  // namespace

bool RestoreByDialog(LedgerSession& session, Platform& platform, QWidget* parent) {
  DataFileOpener& opener = session.Opener();
  PromptedOpening questions(platform);
  RestoreEditor editor(
      opener.Location(), opener.Passwords(), questions,
      [&session](Connection& file) { return session.Passwords().Pass(file); }, platform);
  const auto plan = OpenRestore(editor, {platform, opener.AsWriter(), parent, {}});
  if (!plan) return false;
  session.Close();
  const std::string kept = opener.Restore(plan->path, plan->password).kept;
  std::string told = "The data file is restored from " + plan->path + ".";
  if (!kept.empty()) {
    told += " The one before it is kept as " + kept + ", which can be restored in turn.";
  }
  const std::string missing =
      RestoreFileStore(plan->path, opener.Location().Path(), platform.files);
  if (!missing.empty()) told += "\n" + missing;
  platform.prompts.Tell("Restore", told);
  return true;
}

std::optional<std::string> SalvageByDialog(LedgerSession& session, Platform& platform,
                                           QWidget* parent) {
  DataFileOpener& opener = session.Opener();
  SalvageEditor editor(
      opener.Passwords(), [&session](Connection& file) { return session.Passwords().Pass(file); },
      platform, opener.AsWriter());
  const std::string damaged = session.IsOpen() ? session.Path() : opener.Location().Path();
  return OpenSalvage(editor, damaged, {platform, opener.AsWriter(), parent, {}});
}

DamageRoads RoadsByDialog(LedgerSession& session, Platform& platform, QWidget* parent) {
  return {[&session, &platform, parent] { return RestoreByDialog(session, platform, parent); },
          [&session, &platform, parent] { return SalvageByDialog(session, platform, parent); }};
}

void BackUpOnLeaving(LedgerSession& session, Platform& platform) noexcept {
  if (!session.IsWritable()) return;
  try {
    // What another program has changed of attached files belongs into the backup.
    session.Ledger().Notes().Opened().TakeBack();
  } catch (const std::exception&) {
    // It is kept where it is, and told at the next look at attached files.
  }
  Backup(platform, session.Opener().AsWriter()).MakeDue(OpenFileOf(session));
}

void RemindOfFailedBackup(LedgerSession& session, Platform& platform) {
  if (!session.IsWritable()) return;
  Backup(platform, session.Opener().AsWriter()).RemindOfFailure(OpenFileOf(session));
}

}  // namespace corvanta::inline app
