#pragma once

#include "store/sql/Value.h"
#include "store/sql/writer/FoldWriter.h"

#include <sqlcipher/sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace corvanta::inline sql {

// Adds rows up by group as they come. Keys are alike as the dialect compares them: texts without
// regard to case, whole numbers and others by value, NULL as one of its own.
class GroupFold {
 public:
  // Rows have as many values: the keys, then what each of the folds is of.
  GroupFold(std::size_t keys, std::vector<jet::FoldKind> folds);

  void Clear();
  void Add(sqlite3_value** values);
  [[nodiscard]] std::size_t Count() const { return groups_.size(); }
  // A key of the group, as its first row had it, or what its rows came to. NULL is left out of what
  // is folded; a sum of whole numbers is one.
  [[nodiscard]] Value At(std::size_t group, std::size_t column) const;

 private:
  struct Folded {
    std::int64_t count = 0;  // of values that are not NULL
    std::int64_t whole = 0;
    double sum = 0;
    bool isWhole = true;
    Value best;
  };
  struct Group {
    std::vector<Value> keys;
    std::vector<Folded> folded;
  };
  [[nodiscard]] std::size_t PlaceOf(sqlite3_value** values);
  static void Fold(jet::FoldKind kind, sqlite3_value* value, Folded& folded);

  std::size_t keys_;
  std::vector<jet::FoldKind> folds_;
  std::vector<Group> groups_;
  // By the keys' bytes as they come, which are compared for nearly every row, and folded.
  std::unordered_map<std::string, std::size_t> places_;
  std::unordered_map<std::string, std::size_t> foldedPlaces_;
  std::string bytes_;
};

}  // namespace corvanta::inline sql
