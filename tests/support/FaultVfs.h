#pragma once

#include "support/FaultPlan.h"

#include <memory>
#include <string>

namespace corvanta {

// A file layer under the store that obeys a fault plan: writes, truncations, syncs, deletions and
// openings for writing are counted.
class FaultVfs {
 public:
  // Registered under `name` until the object goes. As the default it is under every connection.
  FaultVfs(std::string name, FaultPlan& plan, bool isDefault = false);
  ~FaultVfs();
  FaultVfs(const FaultVfs&) = delete;
  FaultVfs& operator=(const FaultVfs&) = delete;

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace corvanta
