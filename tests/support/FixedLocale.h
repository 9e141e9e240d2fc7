#pragma once

#include "platform/IcuLocale.h"

namespace corvanta {

// British whatever the environment says: point, comma, GBP, day/month/year.
class FixedLocale : public IcuLocale {
 public:
  FixedLocale() : IcuLocale("en_GB") {}
};

}  // namespace corvanta
