#pragma once

#include <optional>
#include <set>
#include <string>

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline ledger {

class RateSource;

// The exchange rates of one pass over the schedules. Of each pair of currencies a person is told
// something once, and one without a rate is waited for once.
class PostingRates {
 public:
  // Both outlive this object.
  PostingRates(RateSource& rates, Prompts& prompts) : rates_(rates), prompts_(prompts) {}

  // Another pass begins.
  void Begin();
  // Units of `to` for one of `from`, by their codes. Asked for every occurrence until it fails.
  [[nodiscard]] std::optional<double> Rate(const std::string& from, const std::string& to);

 private:
  RateSource& rates_;
  Prompts& prompts_;
  std::set<std::string> without_;  // pairs that have none
  std::set<std::string> noticed_;  // and those of which something was told
};

}  // namespace corvanta::inline ledger
