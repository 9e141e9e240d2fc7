#include "BenchStore.h"

#include "store/datafile/CreateDataFile.h"
#include "store/sql/SqlText.h"

#include <map>

namespace corvanta {

BenchStore::BenchStore() : path_(platform_.folder.Path("Corvanta.dat")) {
  CreateDataFile({platform_.folder.Path(), "Corvanta.dat"}, "secret", false, platform_.Get());
  const auto connection = Open();
  Transaction rows = connection->Begin();
  for (int i = 0; i < 300; ++i) {
    connection->Execute("INSERT INTO tblPayees (Payee, Investment) VALUES('Payee number " +
                        std::to_string(i) + "',0)");
  }
  rows.Commit();
}

sqlite3* BenchStore::OpenRaw() const {
  sqlite3* database = nullptr;
  sqlite3_open_v2(path_.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  ApplyKey(database, FileKey("secret"), path_);
  sqlite3_exec(database,
               "PRAGMA journal_mode = DELETE; PRAGMA synchronous = EXTRA; PRAGMA temp_store = "
               "MEMORY; PRAGMA cache_size = -65536",
               nullptr, nullptr, nullptr);
  return database;
}

void BenchStore::AddTransactions(int count) {
  const auto connection = Open();
  Transaction rows = connection->Begin();
  const Date first = *Date::FromYmd(2016, 12, 1);
  for (int i = 0; i < count; ++i) {
    const Date date = first.AddDays(static_cast<std::int32_t>(i * 3650LL / count));
    connection->Execute(
        "INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,[Amount],"
        "Description,[Date],BankChk,BankRec) VALUES (1," +
        std::to_string(3 + i % 120) + ",2," + std::to_string(14 + i % 300) + "," +
        SqlNumber((i % 2000 - 1200) / 10.0) + ",'Row " + std::to_string(i) + "'," + SqlDate(date) +
        "," + std::to_string(i % 2) + ",0)");
  }
  rows.Commit();
}

BenchStore& StoreOf(std::int64_t count) {
  static std::map<std::int64_t, std::unique_ptr<BenchStore>> stores;
  std::unique_ptr<BenchStore>& store = stores[count];
  if (!store) {
    store = std::make_unique<BenchStore>();
    store->AddTransactions(static_cast<int>(count));
  }
  return *store;
}

}  // namespace corvanta
