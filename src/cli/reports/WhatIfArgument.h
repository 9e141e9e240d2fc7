#pragma once

#include "reports/query/ReportRequest.h"

#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Parser;
class Session;

// --what-if DATE:ACCOUNT:AMOUNT[:TEXT], as often as there are such payments. Without an account
// (DATE:AMOUNT) it is of the one that the forecast is kept to.
class WhatIfArgument {
 public:
  void Declare(Parser& command);
  [[nodiscard]] bool IsGiven() const { return !payments_.empty(); }
  // Adds them to the request, whose filter and days are set; false, told, when one is none that its
  // forecast can count.
  // Throws StoreError.
  [[nodiscard]] bool Apply(ReportRequest& request, clsCorvanta& ledger, Session& session) const;

 private:
  std::vector<std::string> payments_;
};

}  // namespace corvanta::inline cli
