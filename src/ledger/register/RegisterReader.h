// How the rows of a register are asked for and read.
#pragma once

#include "ledger/register/Period.h"
#include "ledger/register/RegisterNames.h"
#include "ledger/register/RegisterRow.h"
#include "ledger/register/RowFilter.h"
#include "ledger/register/StatusFilter.h"

#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline sql {
class Recordset;
}

namespace corvanta::inline ledger {

// What a register keeps to.
struct RegisterScope {
  std::int64_t accountId = 0;
  StatusFilter filter;
  std::optional<Period> period = std::nullopt;
  RowFilter rows = {};  // its accounts, where it has any, stand in the place of the one above

  // The one, or those of the filter.
  [[nodiscard]] std::vector<std::int64_t> Accounts() const;

  bool operator==(const RegisterScope&) const = default;
};

// What every sum and list of the scope's accounts takes, as far as days and statuses go: whole
// entries (no split lines). A row whose category is gone is neither shown nor counted besides.
[[nodiscard]] std::string EntryCondition(const RegisterScope& scope);

// "Select ... from tblTransactions T WHERE ", the columns in the order in which the reader below
// has them.
[[nodiscard]] std::string RowsStatement();

class RegisterReader {
 public:
  RegisterReader(const Recordset& rows, const RegisterNames& names, const RegisterLinks& links)
      : rows_(rows), names_(names), links_(links) {}

  // The current row, without its balance. False for one whose category is gone.
  [[nodiscard]] bool Read(RegisterRow& row) const;

 private:
  const Recordset& rows_;
  const RegisterNames& names_;
  const RegisterLinks& links_;
};

// "" or "C" or "R".
[[nodiscard]] const char* StatusLetter(std::int64_t bankChk, std::int64_t bankRec);

}  // namespace corvanta::inline ledger
