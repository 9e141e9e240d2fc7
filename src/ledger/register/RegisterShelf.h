#pragma once

#include "ledger/accounts/AccountRow.h"
#include "ledger/register/FilteredRegister.h"
#include "ledger/register/RegisterRows.h"

#include <memory>
#include <vector>

namespace corvanta::inline ledger {

// Keeps registers that were read, so that going back to one costs nothing as long as the data are
// the same.
class RegisterShelf {
 public:
  // The register, read before or new; `sums` as RegisterRows takes them. Throws StoreError.
  std::shared_ptr<RegisterRows> Fetch(Connection& store, const RegisterScope& scope,
                                      double openingBalance, const std::optional<EntrySums>& sums);
  // The same of one that nobody has asked for yet: it takes no place from those that were shown.
  // Null where there is none left.
  std::shared_ptr<RegisterRows> FetchAhead(Connection& store, const RegisterScope& scope,
                                           double openingBalance, const EntrySums& sums);
  // The register of what the scope's filter has chosen, of these accounts. Figures that are of
  // several currencies are absent from its totals.
  std::shared_ptr<RegisterRows> FetchFiltered(Connection& store, const RegisterScope& scope,
                                              const std::vector<FilteredAccount>& accounts);
  void Clear() { kept_.clear(); }

 private:
  using Kept = std::vector<std::shared_ptr<RegisterRows>>;
  // Drops what is outdated, and finds the register.
  Kept::iterator Find(const RegisterScope& scope);
  // Keeps it as the one shown last.
  void Keep(const std::shared_ptr<RegisterRows>& rows);
  [[nodiscard]] std::size_t Entries() const;

  Kept kept_;  // the one shown last comes last
};

}  // namespace corvanta::inline ledger
