#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace corvanta {

struct ModelRow {
  std::int64_t account = 0;
  std::int64_t payee = 0;
  std::int64_t category = 0;
  std::int64_t cents = 0;
  int day = 0;  // a date's serial number
  int chk = 0;
  int rec = 0;
  std::int64_t twin = 0;
  std::int64_t parent = 0;

  bool operator==(const ModelRow&) const = default;
};

// What the ledger's rows should be after each operation, worked out without a database.
class LedgerModel {
 public:
  using Key = std::int64_t;

  std::map<Key, ModelRow> rows;
  std::multiset<std::pair<Key, Key>> links;  // keyword and transaction
  std::multiset<Key> files;                  // transactions

  bool operator==(const LedgerModel&) const = default;

  void Save(Key key, ModelRow row);
  void SaveTransfer(Key from, const ModelRow& fromRow, Key to, const ModelRow& toRow);
  void Delete(Key key);
  // The copies got these keys: the row, its lines in order, its twin (0 for none).
  void Paste(Key source, Key account, Key copy, const std::vector<Key>& lines, Key twin);
  void Reverse(Key key);
  void Move(Key key, Key account);
  void SetStatus(Key key, int chk, int rec);
  void MergePayees(Key source, Key target);
  void DeleteAccount(Key account);

  [[nodiscard]] std::vector<Key> LinesOf(Key key) const;
  [[nodiscard]] std::vector<Key> WholeRows() const;
  [[nodiscard]] std::int64_t Sum(Key account) const;

 private:
  void Link(Key from, Key to);
  void Erase(Key key);
  void CopyLinks(Key source, Key copy);
  void Resum(Key parent);
};

}  // namespace corvanta
