#pragma once

#include "app/secrets/Login.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/RateSource.h"
#include "ledger/schedules/SchedulePosting.h"
#include "ledger/secrets/PromptedOpening.h"
#include "store/datafile/OpenDataFile.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline app {

// The data file that the window works on, with the ledger on it. It may be closed and opened again
// while the window stands.
class LedgerSession {
 public:
  // A data path that is not empty stands for the one of the settings in this run.
  LedgerSession(DataFileOpener& opener, Platform& platform, const std::string& dataPath);

  // Closes what is open, asks for the password of the file to be opened and runs the open-data-file
  // operation; false when no file was opened (the person has been told why, or turned back at the
  // password).
  bool Open(bool quiet);
  void Close();
  // Called before what is open is closed: who holds on to rows of it must let them go.
  void OnClose(std::function<void()> notice) { onClose_ = std::move(notice); }

  // Offered when a data file that is damaged is opened.
  void OnDamage(DamageRoads roads) { onDamage_ = std::move(roads); }

  // Makes another data file the one to open: writes it into the settings, except where a path was
  // given for this run. Closes what is open. Throws PlatformError.
  void Choose(const std::string& path);
  // Takes the last choice back. Throws PlatformError.
  void Unchoose();

  [[nodiscard]] bool IsOpen() const { return ledger_ != nullptr; }
  // Whether the last file that was asked for could not be opened, which the person knows.
  [[nodiscard]] bool HasFailed() const { return hasFailed_; }
  // Only while open.
  [[nodiscard]] clsCorvanta& Ledger() const { return *ledger_; }
  // Exchange rates as the open file's sources have them. Only while open.
  [[nodiscard]] RateSource& Rates() const { return *rates_; }
  // Only while open.
  [[nodiscard]] SchedulePosting& Posting() const { return *posting_; }
  // Posts what is due by the schedules; nothing while closed. Throws StoreError.
  void PostSchedules();
  // How many payments were posted since this was last asked.
  [[nodiscard]] std::size_t TakePosted() { return std::exchange(posted_, 0); }
  // The open file's path; empty while closed.
  [[nodiscard]] std::string Path() const;
  // Whether there is an open file that can be changed: one on read-only media can be looked at.
  [[nodiscard]] bool IsWritable() const;
  // Whether the open file was compacted and checked as it was opened.
  [[nodiscard]] bool IsRenewed() const;
  // The password that has opened the file; empty while closed.
  [[nodiscard]] std::string Password() const;
  [[nodiscard]] DataFileOpener& Opener() const { return opener_; }
  [[nodiscard]] Login& Passwords() { return login_; }

 private:
  DataFileOpener& opener_;
  Platform& platform_;
  Login login_;
  bool isFixed_;        // the path was given for this run
  std::string path_;    // where it was
  std::string former_;  // what was chosen before
  std::function<void()> onClose_;
  DamageRoads onDamage_;
  std::optional<DataFile> file_;
  std::unique_ptr<clsCorvanta> ledger_;
  std::unique_ptr<RateSource> rates_;
  std::unique_ptr<SchedulePosting> posting_;
  bool hasFailed_ = false;
  std::size_t posted_ = 0;
};

}  // namespace corvanta::inline app
