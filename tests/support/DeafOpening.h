#pragma once

#include "store/datafile/opening/OpeningQuestions.h"

namespace corvanta {

// For tests in which opening a data file leaves nothing to ask: agrees to nothing.
class DeafOpening : public OpeningQuestions {
 public:
  [[nodiscard]] bool AgreesToCreate(const std::string&) override { return false; }
  [[nodiscard]] std::optional<std::string> OtherFile(const std::string&) override { return {}; }
  [[nodiscard]] Road AfterRefusal(const std::string&, bool) override { return Road::Back; }
  [[nodiscard]] Key KeyOf(const std::string&) override { return {}; }
};

}  // namespace corvanta
