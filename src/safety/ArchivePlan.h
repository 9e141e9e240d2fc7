#pragma once

#include "ledger/Warning.h"
#include "ledger/investments/InvestmentRecord.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "platform/Date.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline safety {

// What a person wants to archive.
struct ArchiveForm {
  std::string path;            // of the archive
  std::optional<Date> before;  // transactions before this day go; nullopt where none was typed
  std::vector<std::int64_t> accounts;
  bool onlyReconciled = false;  // what no balanced statement holds stays
};

// What becomes of one of the chosen accounts. Amounts in its currency.
struct ArchivedAccount {
  std::int64_t accountId = 0;
  std::string account;
  std::string currency;
  bool closed = false;
  double opening = 0;     // as it is
  double newOpening = 0;  // with what goes
  std::size_t rows = 0;   // that go, without their split lines
  std::size_t stay = 0;   // of before the day that stay
};

// A schedule that starts behind the payments that go, so that they do not come due once more.
struct MovedSchedule {
  ScheduleDetails schedule;
  std::vector<Date> passed;
};

struct ArchivePlan {
  std::vector<ArchivedAccount> accounts;  // by name
  std::vector<std::int64_t> keys;         // of the rows that go, without their lines; ascending
  // What is held of investments stays: a row for each lot that carries units and cost over.
  std::vector<InvestmentTransaction> carried;
  std::vector<MovedSchedule> schedules;
  // Why rows of before the day stay, and how many: their transfer's other half does not go, their
  // schedule counts them still, their holding cannot be carried over, no statement holds them.
  std::size_t transfers = 0;
  std::size_t scheduled = 0;
  std::size_t held = 0;
  std::size_t unreconciled = 0;
};

// Works out what goes: whole entries of the chosen accounts before the day, a transfer only with
// both halves. The data file is only read. Throws StoreError and PlatformError.
[[nodiscard]] ArchivePlan PlanArchive(const ArchiveForm& form, clsCorvanta& ledger,
                                      Platform& platform);

}  // namespace corvanta::inline safety
