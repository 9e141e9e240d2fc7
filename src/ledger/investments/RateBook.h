#pragma once

#include "ledger/Keys.h"
#include "ledger/LedgerCore.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {

// What one unit of a currency was worth in another one on a day.
struct RateRecord {
  std::int64_t rateId = 0;
  std::string from;  // ISO 4217 codes
  std::string to;
  Date date;
  double rate = 0;     // units of `to` for one of `from`, above 0
  std::string source;  // who said so: the name of a service, or that a person entered it
};

// As the source of a rate that a person has entered.
inline constexpr const char* kEnteredRate = "Entered";

// The exchange rates that were fetched or entered, at most one for each two currencies, in that
// direction, and day. They stand in a table of their own that the catalog does not show; a file
// opened for reading alone may lack it and has none then. Operations throw StoreError.
class RateBook {
 public:
  explicit RateBook(LedgerCore& core) : core_(core) {}

  // Newest first.
  [[nodiscard]] std::vector<RateRecord> All();
  // The newest one that is not of a day after `until`, also where only the other direction is
  // known, turned round then. nullopt when there is none.
  [[nodiscard]] std::optional<RateRecord> Latest(const std::string& from, const std::string& to,
                                                 Date until);
  // In place of the one that the day had. Returns its key.
  std::int64_t Keep(const RateRecord& record);
  void Delete(Keys rateIds);
  // A currency goes by another code from now on, and its rates with it.
  void Rename(const std::string& code, const std::string& now);

 private:
  [[nodiscard]] bool HasTable() const;
  [[nodiscard]] std::optional<RateRecord> LatestAsKept(const std::string& from,
                                                       const std::string& to, Date until);

  LedgerCore& core_;
};

}  // namespace corvanta::inline ledger
