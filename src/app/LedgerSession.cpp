#include "app/LedgerSession.h"

#include "invest/rates/WebRates.h"
#include "ledger/secrets/PassphrasePrompt.h"
#include "platform/Platform.h"
#include "platform/Settings.h"

#include <utility>

namespace corvanta::inline app {

LedgerSession::LedgerSession(DataFileOpener& opener, Platform& platform,
                             const std::string& dataPath)
    : opener_(opener),
      platform_(platform),
      login_(platform),
      isFixed_(!dataPath.empty()),
      path_(dataPath) {
  if (isFixed_) opener_.SetDataPath(dataPath);
  opener_.SetPassphraseQuestion(AskForPassphrase(platform.prompts));
}

// First what may fail: all is as it was then.
void LedgerSession::Choose(const std::string& path) {
  Settings settings(platform_.registry);
  std::string former = isFixed_ ? path_ : settings.Text(Setting::DBPath);
  if (isFixed_) {
    opener_.SetDataPath(path);
  } else {
    settings.SetText(Setting::DBPath, path);
  }
  former_ = std::move(former);
  path_ = path;
  Close();
}

void LedgerSession::Unchoose() {
  Choose(std::string(former_));
}

bool LedgerSession::Open(bool quiet) {
  Close();
  hasFailed_ = false;
  if (!login_.PassBefore(opener_)) return false;
  hasFailed_ = true;  // also when it throws
  PromptedOpening questions(platform_, onDamage_);
  file_ = opener_.Open(quiet, questions);
  hasFailed_ = !file_;
  if (file_ && !login_.Pass(*file_->connection)) file_.reset();
  if (file_) {
    ledger_ = std::make_unique<clsCorvanta>(*file_->connection, platform_);
    rates_ = std::make_unique<WebRates>(*ledger_, platform_);
    posting_ = std::make_unique<SchedulePosting>(*ledger_, platform_, *rates_);
  }
  return IsOpen();
}

void LedgerSession::Close() {
  if (IsOpen() && onClose_) onClose_();
  posting_.reset();
  rates_.reset();
  ledger_.reset();
  file_.reset();
}

void LedgerSession::PostSchedules() {
  if (IsWritable()) posted_ += posting_->PostSchedules().occurrences;
}

std::string LedgerSession::Path() const {
  return file_ ? file_->connection->Path() : std::string();
}

bool LedgerSession::IsWritable() const {
  return IsOpen() && file_->lock != nullptr;
}

bool LedgerSession::IsRenewed() const {
  return file_ && file_->isRenewed;
}

std::string LedgerSession::Password() const {
  return file_ ? file_->password : std::string();
}

}  // namespace corvanta::inline app
