#pragma once

#include "app/LedgerSession.h"
#include "app/QtProgress.h"
#include "app/QtPrompts.h"
#include "app/help/QtHelpKey.h"
#include "app/start/QtWindowBell.h"
#include "app/start/StartOptions.h"
#include "platform/SystemPlatform.h"

#include <memory>

namespace corvanta::inline app {

class FrmMain;

// Brings the program up: settings, splash, tip of the day, login, data file, main window.
class StartUp {
 public:
  // Throws PlatformError when the machine has no place for settings.
  explicit StartUp(const StartOptions& options);
  ~StartUp();

  // Where a window has the data file open already, it comes to the front and takes the file that is
  // to be imported: true, and this program has nothing more to do.
  [[nodiscard]] bool HandOver();

  // Shows the main window and returns true, also without a data file where none could be opened
  // (the person has been told why); false when the person turned back at the login.
  bool Run();

 private:
  void WatchBell();
  // Another program was started on the data file.
  void ComeForward(const QString& importPath);

  QtPrompts prompts_;
  QtProgress progress_;
  SystemPlatform platform_;
  QtHelpKey helpKey_;
  DataFileOpener opener_;
  LedgerSession session_;
  std::string importPath_;
  QtWindowBell bell_;
  std::unique_ptr<FrmMain> window_;
};

}  // namespace corvanta::inline app
