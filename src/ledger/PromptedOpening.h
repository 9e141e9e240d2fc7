#pragma once

#include "store/datafile/opening/OpeningQuestions.h"

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {

// Puts the questions of opening a data file to the person, through the prompts of the platform.
class PromptedOpening : public OpeningQuestions {
 public:
  explicit PromptedOpening(Platform& platform) : platform_(platform) {}

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
};

}  // namespace corvanta::inline ledger
