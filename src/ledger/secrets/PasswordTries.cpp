#include "ledger/secrets/PasswordTries.h"

#include "platform/Clock.h"

#include <algorithm>

namespace corvanta::inline ledger {
namespace {

constexpr int kFreeTries = 3;
constexpr std::int64_t kFirstPause = 5;      // seconds
constexpr std::int64_t kLongestPause = 300;  // seconds
constexpr int kMaxDoublings = 6;
constexpr std::int64_t kDay = 86400;

std::int64_t SecondsBetween(const DateTime& from, const DateTime& to) {
  return (std::int64_t{to.date.Serial()} - from.date.Serial()) * kDay + to.seconds - from.seconds;
}

}  // namespace

void PasswordTries::CountWrong() {
  ++wrong_;
  last_ = clock_.Now();
}

std::int64_t PasswordTries::Pause() const {
  if (wrong_ < kFreeTries) return 0;
  const int doublings = std::min(wrong_ - kFreeTries, kMaxDoublings);
  return std::min(kFirstPause << doublings, kLongestPause);
}

std::int64_t PasswordTries::Wait() const {
  // A clock that was set back must not keep the owner out for longer than the pause.
  return std::clamp<std::int64_t>(Pause() - SecondsBetween(last_, clock_.Now()), 0, Pause());
}

}  // namespace corvanta::inline ledger
