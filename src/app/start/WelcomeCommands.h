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
  // `switchTo` leaves the open data file for the one of that path; false when that failed, with the
  // former one open again.
  WelcomeCommands(const ViewPlace& place, std::function<bool()> reopen,
                  std::function<bool(const std::string&)> switchTo);

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
  // Whether that file, which is not the one in use, is a data file of this installation.
  [[nodiscard]] bool Opens(const std::string& path) const;
  // Beside the data file; under the first name that no file has, or one that is not another's.
  [[nodiscard]] std::string SamplePath(
      const std::function<bool(const std::string&)>& isOther) const;
  [[nodiscard]] QString ChooseBackup();

  ViewPlace place_;
  std::function<bool()> reopen_;
  std::function<bool(const std::string&)> switchTo_;
};

}  // namespace corvanta::inline app
