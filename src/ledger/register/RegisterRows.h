#pragma once

#include "ledger/accounts/AccountRow.h"
#include "ledger/reference/CategoryKeys.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/Balances.h"
#include "ledger/register/RegisterReader.h"
#include "ledger/register/RegisterRow.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

enum class RegisterColumn;

// A row of the register as far as the access path of the account's rows knows it.
struct RegisterEntry {
  std::int32_t transactionId = 0;
  Date date;
  double amount = 0;   // in the account's currency, signed
  double balance = 0;  // after this row
  std::int32_t categoryId = 0;
  std::int32_t payeeId = 0;
  std::int32_t paymentId = 0;
  std::int32_t transferId = 0;  // not 0: the other half
  std::int32_t accountId = 0;
  const char* status = "";  // "", "C" or "R"
};

// The register of one account, or of what a filter has chosen of several, of any length, that reads
// no more than is asked for: its entries from the newest backwards, and the whole of a row when it
// is looked at. It is of the data as they were when it was made; what it has not read when they
// change it does not read any more.
//
// Rows are counted from 0, the oldest. Reading throws StoreError.
class RegisterRows {
 public:
  // `sums` are those of all rows of the scope's account and filter up to the period's end, where
  // they are known already.
  RegisterRows(Connection& store, const RegisterScope& scope, double openingBalance,
               const std::optional<EntrySums>& sums = std::nullopt);
  // Those of whole registers that a filter has chosen, the newest first, each with the balance that
  // its account had after it. `among` is how many there would be without the filter.
  RegisterRows(Connection& store, const RegisterScope& scope, std::vector<RegisterEntry> entries,
               const PeriodTotals& totals, std::size_t among);

  [[nodiscard]] const RegisterScope& Scope() const { return scope_; }
  [[nodiscard]] std::size_t Count() const { return count_; }
  // How many there would be without the scope's filter of rows.
  [[nodiscard]] std::size_t CountUnfiltered() const { return among_; }
  [[nodiscard]] const PeriodTotals& Totals() const { return totals_; }
  // Entries of the accounts that no statement has confirmed, whatever the scope; read once.
  [[nodiscard]] std::int64_t UnclearedCount();

  // The first row whose entry is read; the rest is read backwards from it.
  [[nodiscard]] std::size_t FirstRead() const { return count_ - entries_.size(); }
  [[nodiscard]] bool IsWhole() const { return isDone_ || entries_.size() == count_; }
  // False once the data have changed.
  [[nodiscard]] bool IsCurrent() const;
  // Reads on by so many entries.
  void ReadOn(std::size_t entries);
  void ReadAll() { ReadOn(count_); }
  // Reads on until that row is read.
  void ReadTo(std::size_t row);
  // Reads on until an entry stands before that day.
  void ReadBefore(Date day);

  // Reads on where it must. An entry that can no longer be read has the key 0.
  [[nodiscard]] const RegisterEntry& Entry(std::size_t row);
  // The row of the transaction; nullopt when it is not in the scope.
  [[nodiscard]] std::optional<std::size_t> RowOf(std::int64_t transactionId);
  // The rows whole, in the order given.
  [[nodiscard]] std::vector<RegisterRow> Read(const std::vector<std::size_t>& rows);
  // Names of the rows' payees, categories and payment types, read once.
  [[nodiscard]] const RegisterNames& Names();
  // The entries that are read, the newest first.
  [[nodiscard]] const std::vector<RegisterEntry>& Entries() const { return entries_; }
  // Hands over one text column ("Reference", "Description") of the rows whose entries are read, in
  // any order of the rows.
  using TextVisitor = std::function<void(std::size_t row, std::string_view text)>;
  void VisitTexts(const std::string& column, const TextVisitor& visitor);
  // The order that all rows were brought in last, kept for whoever shows them again.
  struct Order {
    RegisterColumn column;
    bool isDescending = false;
    std::vector<std::uint32_t> rows;
  };
  [[nodiscard]] const std::optional<Order>& LastOrder() const { return order_; }
  void KeepOrder(Order order) { order_ = std::move(order); }
  // The least and the largest amount and balance of the entries read so far.
  struct Extremes {
    double leastAmount = 0;
    double mostAmount = 0;
    double leastBalance = 0;
    double mostBalance = 0;
  };
  [[nodiscard]] const Extremes& Figures() const { return figures_; }
  [[nodiscard]] Connection& Store() const { return store_; }

 private:
  [[nodiscard]] CategoryKeys& Categories();
  enum class Part { SameDay, Before, Undated };
  [[nodiscard]] std::string EntriesStatement(Part part) const;
  std::size_t ReadPart(Part part, std::size_t entries);
  // All of them, in one go; false where they are not met in their order.
  bool ReadAtOnce();
  // Puts the account and the balance into the entry that follows those read so far.
  void Settle(RegisterEntry& entry, bool isFirst);
  void CountFigures(const RegisterEntry& entry, bool isFirst);

  Connection& store_;
  RegisterScope scope_;
  std::uint64_t stamp_;
  PeriodTotals totals_;
  std::size_t count_ = 0;
  std::size_t among_ = 0;
  double next_ = 0;                     // the balance after the next entry to be read
  std::vector<RegisterEntry> entries_;  // the newest first
  std::string lastDate_;                // of the entry read last, as it is stored
  bool isUndated_ = false;              // only rows without a day are left
  bool isDone_ = false;
  Extremes figures_;
  std::optional<Order> order_;
  std::optional<CategoryKeys> categories_;
  std::optional<RegisterNames> names_;
  std::optional<std::int64_t> uncleared_;
};

// Those of the transactions that the scope's register shows. Throws StoreError.
[[nodiscard]] std::unordered_set<std::int64_t> KeysInScope(Connection& store,
                                                           const RegisterScope& scope,
                                                           const std::vector<std::int64_t>& keys);

}  // namespace corvanta::inline ledger
