#pragma once

#include "ledger/RegisterRows.h"

#include <memory>
#include <vector>

namespace corvanta {

// Keeps registers that were read, so that going back to one costs nothing as long as the data are
// the same.
class RegisterShelf {
 public:
  // The register, read before or new; `sums` as RegisterRows takes them. Throws StoreError.
  std::shared_ptr<RegisterRows> Take(Connection& store, const RegisterScope& scope,
                                     double openingBalance, const std::optional<EntrySums>& sums);
  void Clear() { kept_.clear(); }

 private:
  std::vector<std::shared_ptr<RegisterRows>> kept_;  // the one shown last comes last
};

}  // namespace corvanta
