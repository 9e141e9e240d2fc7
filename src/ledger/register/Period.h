#pragma once

#include "platform/Date.h"

namespace corvanta::inline ledger {

// The days that a view shows.
struct Period {
  Date from;
  Date to;  // inclusive

  bool operator==(const Period&) const = default;
};

}  // namespace corvanta::inline ledger
