#pragma once

#include "store/datafile/opening/OpeningQuestions.h"

#include <functional>
#include <utility>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {

// Puts the questions of opening a data file to the person, through the prompts of the platform.
class PromptedOpening : public OpeningQuestions {
 public:
  // `restore` puts a backup into the place of a damaged data file, after its own questions: true
  // when it did. Without it that road is not offered.
  explicit PromptedOpening(Platform& platform, std::function<bool()> restore = {})
      : platform_(platform), restore_(std::move(restore)) {}

  [[nodiscard]] bool AgreesToCreate(const std::string& path) override;
  [[nodiscard]] std::optional<std::string> OtherFile(const std::string& folder) override;
  [[nodiscard]] Road AfterRefusal(const std::string& words, bool isFileFault) override;
  [[nodiscard]] Key KeyOf(const std::string& path) override;

 private:
  [[nodiscard]] std::optional<std::string> FromTransferFile(const std::string& path);
  [[nodiscard]] std::optional<std::string> FromRecoveryKey();
  [[nodiscard]] bool Fits(const std::string& password, const std::string& path);
  void Warn(const std::string& text);

  Platform& platform_;
  std::function<bool()> restore_;
};

}  // namespace corvanta::inline ledger
