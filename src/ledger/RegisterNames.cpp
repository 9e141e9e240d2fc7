#include "ledger/RegisterNames.h"

#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/SqlText.h"

namespace corvanta {
namespace {

const std::string* Find(const std::unordered_map<std::int64_t, std::string>& names,
                        std::int64_t key) {
  const auto found = names.find(key);
  return found == names.end() ? nullptr : &found->second;
}

}  // namespace

RegisterNames::RegisterNames(Connection& connection, std::int64_t accountId)
    : categories_(ReadNames(connection,
                            "Select CategoryID, Category & IIF(IsNull(SubCategory) OR SubCategory "
                            "= '', '', ':' & SubCategory) from tblCategory")),
      payees_(ReadNames(connection, "Select PayeeID, Payee from tblPayees")),
      payments_(ReadNames(connection, "Select PaymentID, [Payment] from tblPayments")),
      twins_(ReadNames(connection,
                       "Select W.TransactionID, A.[Account] from (tblTransactions T INNER JOIN "
                       "tblTransactions W ON W.TransactionID = T.TransferID) INNER JOIN "
                       "tblAccounts A ON A.AccountID = W.AccountID WHERE T.TransferID > 0 AND "
                       "T.AccountID = " +
                           SqlNumber(accountId))),
      parents_(ReadKeys(connection,
                        "Select Distinct AllocatedItem from tblTransactions WHERE AllocatedItem "
                        "> 0")),
      attached_(ReadKeys(connection, "Select Distinct TransactionID from tblAttachments")) {}

RegisterNames::Names RegisterNames::ReadNames(Connection& connection, std::string_view sql) {
  Names names;
  Recordset rows = connection.OpenRecordset(sql);
  for (; !rows.Eof(); rows.MoveNext()) names.emplace(rows.Int(0), std::string(rows.Text(1)));
  return names;
}

std::unordered_set<std::int64_t> RegisterNames::ReadKeys(Connection& connection,
                                                         std::string_view sql) {
  std::unordered_set<std::int64_t> keys;
  Recordset rows = connection.OpenRecordset(sql);
  for (; !rows.Eof(); rows.MoveNext()) keys.insert(rows.Int(0));
  return keys;
}

const std::string* RegisterNames::Category(std::int64_t key) const {
  return Find(categories_, key);
}

std::string_view RegisterNames::Payee(std::int64_t key) const {
  const std::string* name = Find(payees_, key);
  return name == nullptr ? std::string_view() : *name;
}

std::string_view RegisterNames::Payment(std::int64_t key) const {
  const std::string* name = Find(payments_, key);
  return name == nullptr ? std::string_view() : *name;
}

const std::string* RegisterNames::TwinAccount(std::int64_t twin) const {
  return twin == 0 ? nullptr : Find(twins_, twin);
}

bool RegisterNames::HasLines(std::int64_t transaction) const {
  return parents_.contains(transaction);
}

bool RegisterNames::HasAttachment(std::int64_t transaction) const {
  return attached_.contains(transaction);
}

}  // namespace corvanta
