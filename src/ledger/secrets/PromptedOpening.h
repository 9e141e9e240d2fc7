#pragma once

#include "store/datafile/opening/OpeningQuestions.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {

// The roads out of a data file that is damaged, each after its own questions; an empty one is not
// offered.
struct DamageRoads {
  // Puts a backup into its place: true when it did.
  std::function<bool()> restore = {};
  // Reads what can be read into a new data file, which is to be opened in its place; nullopt when
  // there is none.
  std::function<std::optional<std::string>()> salvage = {};
};

// Puts the questions of opening a data file to the person, through the prompts of the platform.
class PromptedOpening : public OpeningQuestions {
 public:
  explicit PromptedOpening(Platform& platform, DamageRoads roads = {})
      : platform_(platform), roads_(std::move(roads)) {}

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
  DamageRoads roads_;
  std::optional<std::string> salvaged_;  // to be opened next
};

}  // namespace corvanta::inline ledger
