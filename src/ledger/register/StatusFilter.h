#pragma once

#include <string>

namespace corvanta::inline ledger {

// Which statuses a view shows; none chosen shows all, as all chosen does.
struct StatusFilter {
  bool uncleared = true;
  bool cleared = true;
  bool reconciled = true;

  bool operator==(const StatusFilter&) const = default;
  // The filter's condition with "AND " behind it, such as "BankRec = 1 AND ".
  [[nodiscard]] std::string Clause() const;
};

}  // namespace corvanta::inline ledger
