#include "exchange/import/AccountNames.h"

#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

#include <utility>

namespace corvanta::inline exchange {

std::string NameKey(std::string_view name) {
  return ToLower(Trim(name));
}

std::string NumberKey(std::string_view number) {
  std::string key = ToLower(number);
  std::erase_if(key, [](char c) { return c == ' ' || c == '\t' || c == '-'; });
  return key;
}

// Of names that were given twice the first row counts, as in a search.
AccountNames::AccountNames(Connection& store) {
  Recordset rows = store.OpenRecordset(
      "Select A.AccountID, A.[Account], A.AccountNo, A.CurrencyId, A.CloseAccount, C.[Currency] "
      "from tblAccounts A LEFT JOIN tblCurrency C ON A.CurrencyId = C.CurrencyID "
      "Order by A.AccountID");
  for (; !rows.Eof(); rows.MoveNext()) {
    Add({rows.Int(0), rows.Int(3), std::string(rows.Text(5)), std::string(rows.Text(1)),
         rows.Int(4) != 0, false},
        std::string(rows.Text(2)));
  }
}

const ImportTarget* AccountNames::Get(std::int64_t accountId) const {
  const auto found = accounts_.find(accountId);
  return found == accounts_.end() ? nullptr : &found->second;
}

// An account that was made for a number has the number as its name, too.
const ImportTarget* AccountNames::Find(const ImportAccount& account) const {
  const auto numbered = numbers_.find(NumberKey(account.number));
  if (numbered != numbers_.end()) return Get(numbered->second);
  const auto named = names_.find(NameKey(account.name.empty() ? account.number : account.name));
  return named == names_.end() ? nullptr : Get(named->second);
}

const ImportTarget* AccountNames::Add(ImportTarget target, const std::string& number) {
  names_.try_emplace(NameKey(target.name), target.accountId);
  AddNumber(target.accountId, number);
  return &accounts_.insert_or_assign(target.accountId, std::move(target)).first->second;
}

void AccountNames::AddNumber(std::int64_t accountId, const std::string& number) {
  const std::string key = NumberKey(number);
  if (!key.empty()) numbers_.try_emplace(key, accountId);
}

}  // namespace corvanta::inline exchange
