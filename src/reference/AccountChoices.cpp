#include "reference/AccountChoices.h"

#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

#include <algorithm>

namespace corvanta::inline reference {

std::vector<Choice> AccountChoices(clsCorvanta& ledger, const std::vector<std::int64_t>& also) {
  // Not the ledger's own list, which adds up every balance.
  std::vector<Choice> choices;
  Recordset rows = ledger.Store().OpenRecordset(
      "Select AccountID, Account, CloseAccount from tblAccounts Order by Account, AccountID");
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::int64_t key = rows.Int(0);
    if (rows.Int(2) != 0 && std::ranges::find(also, key) == also.end()) continue;
    choices.push_back({key, std::string(rows.Text(1))});
  }
  return choices;
}

}  // namespace corvanta::inline reference
