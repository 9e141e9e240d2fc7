#pragma once

#include "platform/Clock.h"
#include "platform/Download.h"
#include "platform/FileRegistry.h"
#include "platform/Files.h"
#include "platform/IcuLocale.h"
#include "platform/Machine.h"
#include "platform/Opener.h"
#include "platform/Platform.h"
#include "platform/Spreadsheet.h"

#include <optional>

namespace corvanta::inline platform {

struct SystemPlatformOptions {
  std::string profileFolder;       // empty: the user's own
  std::optional<Date> fixedToday;  // stands for today in this run
  std::string localeName;          // empty: the environment's
};

// Makes and holds this machine's services for one profile folder. The folder is made when
// something is first written into it.
class SystemPlatform {
 public:
  // Prompts and progress belong to the caller, who keeps them alive as long as this object.
  SystemPlatform(const SystemPlatformOptions& options, Prompts& prompts, Progress& progress);

  [[nodiscard]] Platform& Get() { return platform_; }

 private:
  SystemFiles files_;
  SystemClock clock_;
  IcuLocale locale_;
  SystemMachineValue machine_;
  CurlDownload download_;
  DesktopOpener opener_;
  WorkbookSpreadsheet spreadsheet_;
  std::string profileFolder_;
  FileRegistry registry_;
  KeptFiles settings_;
  Platform platform_;
};

}  // namespace corvanta::inline platform
