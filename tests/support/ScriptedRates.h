#pragma once

#include "ledger/investments/RateSource.h"

#include <string>
#include <vector>

namespace corvanta {

// Answers every question with the same rate, or with none, and keeps what was asked.
class ScriptedRates : public RateSource {
 public:
  explicit ScriptedRates(std::optional<double> rate = std::nullopt) { Answer(rate); }

  void Answer(std::optional<double> rate) {
    answer_ = rate ? std::optional(RateAnswer{*rate, std::nullopt}) : std::nullopt;
  }
  // With what a person is to be told of the rate, and the day it is of where that is another one.
  void Answer(const RateAnswer& answer) { answer_ = answer; }
  // The person stops every question from now on.
  void Stop() {
    answer_.reset();
    wasStopped_ = true;
  }
  std::optional<RateAnswer> Rate(const std::string& from, const std::string& to) override {
    asked_.push_back(from + to);
    return answer_;
  }
  [[nodiscard]] bool WasStopped() const override { return wasStopped_; }
  [[nodiscard]] const std::vector<std::string>& Asked() const { return asked_; }

 private:
  std::optional<RateAnswer> answer_;
  bool wasStopped_ = false;
  std::vector<std::string> asked_;  // "EURUSD"
};

}  // namespace corvanta
