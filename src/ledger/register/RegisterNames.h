#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

using NamesByKey = std::unordered_map<std::int64_t, std::string>;

// The names that a register's rows point to, read once: looking these few up in memory costs a
// third of joining them to a hundred thousand rows.
class RegisterNames {
 public:
  explicit RegisterNames(Connection& connection);

  // "Category" or "Category:SubCategory"; nullptr for a key that has no row.
  [[nodiscard]] const std::string* Category(std::int64_t key) const;
  // Empty for a key that has no row.
  [[nodiscard]] std::string_view Payee(std::int64_t key) const;
  // Whether the payee is an investment.
  [[nodiscard]] bool IsInvestment(std::int64_t key) const { return investments_.contains(key); }
  [[nodiscard]] std::string_view Payment(std::int64_t key) const;
  [[nodiscard]] std::string_view Account(std::int64_t key) const;
  // All of them, in no order.
  using NameVisitor = std::function<void(std::int64_t key, std::string_view name)>;
  void VisitPayees(const NameVisitor& visitor) const;
  void VisitCategories(const NameVisitor& visitor) const;

 private:
  NamesByKey categories_;
  NamesByKey payees_;
  NamesByKey payments_;
  NamesByKey accounts_;
  std::unordered_set<std::int64_t> investments_;
};

// What other rows say of some transactions: other halves, split lines, attachments, keywords.
class RegisterLinks {
 public:
  // Of all rows of an account.
  RegisterLinks(Connection& connection, std::int64_t accountId);
  // Of these rows alone, whose keys stand with commas between them.
  RegisterLinks(Connection& connection, const std::string& keys);

  // The account of a transfer's other half; nullptr when there is no such half.
  [[nodiscard]] const std::string* TwinAccount(std::int64_t twin) const;
  [[nodiscard]] bool HasLines(std::int64_t transaction) const;
  [[nodiscard]] bool HasAttachment(std::int64_t transaction) const;
  // By name, with commas between them.
  [[nodiscard]] std::string_view Keywords(std::int64_t transaction) const;

 private:
  NamesByKey twins_;
  std::unordered_set<std::int64_t> parents_;
  std::unordered_set<std::int64_t> attached_;
  NamesByKey keywords_;
};

// The accounts of these other halves, whose keys stand with commas between them.
[[nodiscard]] NamesByKey TwinAccounts(Connection& connection, const std::string& twins);

}  // namespace corvanta::inline ledger
