#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace corvanta {

class Connection;

// What a register shows of the rows that its transactions point to, read once: looking these few
// names up in memory costs a third of joining them to a hundred thousand rows.
class RegisterNames {
 public:
  RegisterNames(Connection& connection, std::int64_t accountId);

  // "Category" or "Category:SubCategory"; nullptr for a key that has no row.
  [[nodiscard]] const std::string* Category(std::int64_t key) const;
  // Empty for a key that has no row.
  [[nodiscard]] std::string_view Payee(std::int64_t key) const;
  [[nodiscard]] std::string_view Payment(std::int64_t key) const;
  // The account of a transfer's other half; nullptr when there is no such half.
  [[nodiscard]] const std::string* TwinAccount(std::int64_t twin) const;
  [[nodiscard]] bool HasLines(std::int64_t transaction) const;
  [[nodiscard]] bool HasAttachment(std::int64_t transaction) const;

 private:
  using Names = std::unordered_map<std::int64_t, std::string>;
  [[nodiscard]] static Names ReadNames(Connection& connection, std::string_view sql);
  [[nodiscard]] static std::unordered_set<std::int64_t> ReadKeys(Connection& connection,
                                                                 std::string_view sql);

  Names categories_;
  Names payees_;
  Names payments_;
  Names twins_;
  std::unordered_set<std::int64_t> parents_;
  std::unordered_set<std::int64_t> attached_;
};

}  // namespace corvanta
