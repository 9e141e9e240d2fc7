#pragma once

#include "ledger/RateSource.h"

#include <string>
#include <vector>

namespace corvanta {

// Answers every question with the same rate, or with none, and keeps what was asked.
class ScriptedRates : public RateSource {
 public:
  explicit ScriptedRates(std::optional<double> rate = std::nullopt) : rate_(rate) {}

  void Answer(std::optional<double> rate) { rate_ = rate; }
  std::optional<double> Rate(const std::string& from, const std::string& to) override {
    asked_.push_back(from + to);
    return rate_;
  }
  [[nodiscard]] const std::vector<std::string>& Asked() const { return asked_; }

 private:
  std::optional<double> rate_;
  std::vector<std::string> asked_;  // "EURUSD"
};

}  // namespace corvanta
