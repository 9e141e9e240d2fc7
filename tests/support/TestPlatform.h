#pragma once

#include "platform/Files.h"
#include "platform/Platform.h"
#include "support/FixedClock.h"
#include "support/FixedLocale.h"
#include "support/FixedMachine.h"
#include "support/MemoryRegistry.h"
#include "support/RecordingOpener.h"
#include "support/RecordingProgress.h"
#include "support/RecordingSpreadsheet.h"
#include "support/ScriptedDownload.h"
#include "support/ScriptedPrompts.h"
#include "support/TemporaryFolder.h"

namespace corvanta {

// A machine for one test: doubles of everything, and real files in a temporary folder. The
// profile and data folders lie in it and do not exist at first, as on a new machine.
class TestPlatform {
 public:
  TemporaryFolder folder;
  MemoryRegistry registry;
  FixedLocale locale;
  FixedClock clock;
  FixedMachine machine;
  SystemFiles files;
  ScriptedPrompts prompts;
  RecordingProgress progress;
  ScriptedDownload download;
  RecordingOpener opener;
  RecordingSpreadsheet spreadsheet;

  TestPlatform() = default;
  TestPlatform(const TestPlatform&) = delete;
  TestPlatform& operator=(const TestPlatform&) = delete;

  [[nodiscard]] Platform& Get() { return platform_; }

 private:
  Platform platform_{registry,
                     locale,
                     clock,
                     machine,
                     files,
                     prompts,
                     progress,
                     download,
                     opener,
                     spreadsheet,
                     folder.Path("profile"),
                     folder.Path("data")};
};

}  // namespace corvanta
