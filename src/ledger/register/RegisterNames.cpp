#include "ledger/register/RegisterNames.h"

#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline ledger {
namespace {

constexpr const char* kTwins =
    "Select W.TransactionID, A.[Account] from (tblTransactions T INNER JOIN tblTransactions W ON "
    "W.TransactionID = T.TransferID) INNER JOIN tblAccounts A ON A.AccountID = W.AccountID WHERE "
    "T.TransferID > 0 AND ";
constexpr const char* kParents =
    "Select Distinct AllocatedItem from tblTransactions WHERE AllocatedItem ";
constexpr const char* kAttached = "Select Distinct TransactionID from tblAttachments";
constexpr const char* kKeywords =
    "Select L.TransactionID, K.[Keyword] from tblKeywordLink L INNER JOIN tblKeywords K ON "
    "K.KeywordID = L.KeywordID";

const std::string* Find(const NamesByKey& names, std::int64_t key) {
  const auto found = names.find(key);
  return found == names.end() ? nullptr : &found->second;
}

std::string_view NameOrEmpty(const NamesByKey& names, std::int64_t key) {
  const std::string* name = Find(names, key);
  return name == nullptr ? std::string_view() : *name;
}

NamesByKey ReadNames(Connection& connection, std::string_view sql) {
  NamesByKey names;
  Recordset rows = connection.OpenRecordset(sql);
  for (; !rows.Eof(); rows.MoveNext()) names.emplace(rows.Int(0), std::string(rows.Text(1)));
  return names;
}

// Several names of one key are joined.
NamesByKey ReadLists(Connection& connection, const std::string& sql) {
  NamesByKey lists;
  Recordset rows = connection.OpenRecordset(sql + " Order by K.[Keyword]");
  for (; !rows.Eof(); rows.MoveNext()) {
    std::string& list = lists[rows.Int(0)];
    if (!list.empty()) list += ", ";
    list += rows.Text(1);
  }
  return lists;
}

std::unordered_set<std::int64_t> ReadKeys(Connection& connection, std::string_view sql) {
  std::unordered_set<std::int64_t> keys;
  Recordset rows = connection.OpenRecordset(sql);
  for (; !rows.Eof(); rows.MoveNext()) keys.insert(rows.Int(0));
  return keys;
}

}  // namespace

RegisterNames::RegisterNames(Connection& connection)
    : categories_(ReadNames(connection,
                            "Select CategoryID, Category & IIF(IsNull(SubCategory) OR SubCategory "
                            "= '', '', ':' & SubCategory) from tblCategory")),
      payees_(ReadNames(connection, "Select PayeeID, Payee from tblPayees")),
      payments_(ReadNames(connection, "Select PaymentID, [Payment] from tblPayments")),
      accounts_(ReadNames(connection, "Select AccountID, [Account] from tblAccounts")),
      investments_(ReadKeys(connection, "Select PayeeID from tblPayees Where Investment = 1")) {}

const std::string* RegisterNames::Category(std::int64_t key) const {
  return Find(categories_, key);
}

std::string_view RegisterNames::Payee(std::int64_t key) const {
  return NameOrEmpty(payees_, key);
}

std::string_view RegisterNames::Payment(std::int64_t key) const {
  return NameOrEmpty(payments_, key);
}

std::string_view RegisterNames::Account(std::int64_t key) const {
  return NameOrEmpty(accounts_, key);
}

void RegisterNames::VisitPayees(const NameVisitor& visitor) const {
  for (const auto& [key, name] : payees_) visitor(key, name);
}

void RegisterNames::VisitCategories(const NameVisitor& visitor) const {
  for (const auto& [key, name] : categories_) visitor(key, name);
}

RegisterLinks::RegisterLinks(Connection& connection, std::int64_t accountId)
    : twins_(ReadNames(connection, kTwins + ("T.AccountID = " + SqlNumber(accountId)))),
      parents_(ReadKeys(connection, kParents + std::string("> 0"))),
      attached_(ReadKeys(connection, kAttached)),
      keywords_(ReadLists(connection, kKeywords)) {}

RegisterLinks::RegisterLinks(Connection& connection, const std::string& keys)
    : twins_(ReadNames(connection, kTwins + ("T.TransactionID IN (" + keys + ")"))),
      parents_(ReadKeys(connection, kParents + ("IN (" + keys + ")"))),
      attached_(ReadKeys(connection, kAttached + (" WHERE TransactionID IN (" + keys + ")"))),
      keywords_(ReadLists(connection, kKeywords + (" WHERE L.TransactionID IN (" + keys + ")"))) {}

const std::string* RegisterLinks::TwinAccount(std::int64_t twin) const {
  return twin == 0 ? nullptr : Find(twins_, twin);
}

bool RegisterLinks::HasLines(std::int64_t transaction) const {
  return parents_.contains(transaction);
}

bool RegisterLinks::HasAttachment(std::int64_t transaction) const {
  return attached_.contains(transaction);
}

std::string_view RegisterLinks::Keywords(std::int64_t transaction) const {
  const std::string* list = Find(keywords_, transaction);
  return list == nullptr ? std::string_view() : *list;
}

NamesByKey TwinAccounts(Connection& connection, const std::string& twins) {
  return ReadNames(connection,
                   "Select W.TransactionID, A.[Account] from tblTransactions W INNER JOIN "
                   "tblAccounts A ON A.AccountID = W.AccountID WHERE W.TransactionID IN (" +
                       twins + ")");
}

}  // namespace corvanta::inline ledger
