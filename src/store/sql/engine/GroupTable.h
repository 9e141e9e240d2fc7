#pragma once

#include "store/sql/engine/GroupFold.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace corvanta::inline sql {

// How the library adds up the rows of grouped queries, and reads the groups: an aggregate that
// takes the rows' values, and a table of what they came to. Both are the connection's own and stand
// in no stored schema. A fold is told from others by its number.
class GroupTable {
 public:
  using Folds = std::map<std::int64_t, GroupFold*>;
  // So many columns a fold can have at most.
  static constexpr std::size_t kColumns = 60;

  explicit GroupTable(sqlite3* database);
  GroupTable(const GroupTable&) = delete;
  GroupTable& operator=(const GroupTable&) = delete;

  // The fold is known under its number as long as it lives, which may be longer than the table.
  class Entry {
   public:
    Entry(GroupTable& table, const jet::FoldedQuery& query);
    ~Entry();
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

    // The statement that hands all rows over, and the one that gives the result.
    [[nodiscard]] const std::string& Rows() const { return rows_; }
    [[nodiscard]] const std::string& Result() const { return result_; }
    void Clear() { fold_.Clear(); }

   private:
    std::shared_ptr<Folds> folds_;
    std::int64_t number_;
    GroupFold fold_;
    std::string rows_;
    std::string result_;
  };

  // Nullptr for a number that stands for none.
  [[nodiscard]] GroupFold* Find(std::int64_t number) const;

 private:
  std::shared_ptr<Folds> folds_ = std::make_shared<Folds>();
  std::int64_t last_ = 0;
};

}  // namespace corvanta::inline sql
