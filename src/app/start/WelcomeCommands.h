#pragma once

#include "app/ViewHost.h"

#include <QString>

#include <functional>
#include <string>

namespace corvanta::inline app {

// The page of the first start, and what it leads to.
class WelcomeCommands {
 public:
  // `reopen` opens the data file of the settings again, and shows it; false when that failed.
  WelcomeCommands(const ViewPlace& place, std::function<bool()> reopen);

  // Shows the page.
  void Open();
  // Shows it where nobody has seen it and the program was never used; remembers that.
  void OpenFirst();

 private:
  // Whether the data file that is open is the sample's.
  [[nodiscard]] bool IsSample() const;
  // Before something of the person's own is entered: offers an empty data file where the sample is
  // open. False when the person turned back.
  [[nodiscard]] bool IsReadyForOwn();
  // Puts the sample aside under another name and begins an empty data file in its place.
  [[nodiscard]] bool BeginOwnFile();
  void ShowSample();
  // Beside the data file; under a name that no file has yet, where that is wanted.
  [[nodiscard]] std::string SamplePath(bool isFree) const;
  [[nodiscard]] QString ChooseBackup();

  ViewPlace place_;
  std::function<bool()> reopen_;
};

}  // namespace corvanta::inline app
