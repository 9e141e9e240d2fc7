#pragma once

#include "platform/Date.h"

#include <cstdint>

namespace corvanta::inline platform {
class Clock;
}

namespace corvanta::inline ledger {

// Makes guessing a password slow: after three wrong ones the next may be tried after a while alone,
// and each further wrong one doubles it.
class PasswordTries {
 public:
  // The clock must outlive this object.
  explicit PasswordTries(const Clock& clock) : clock_(clock) {}

  // A wrong password was given.
  void CountWrong();
  // The right one was given: what was wrong before no longer counts.
  void Forget() { wrong_ = 0; }
  // In how many seconds the next one may be tried; 0 for at once.
  [[nodiscard]] std::int64_t Wait() const;

 private:
  // After the last wrong one, in seconds.
  [[nodiscard]] std::int64_t Pause() const;

  const Clock& clock_;
  int wrong_ = 0;
  DateTime last_;  // when the last wrong one was given
};

}  // namespace corvanta::inline ledger
