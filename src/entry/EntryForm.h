#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline entry {

enum class EntryType { None, Expense, Income, Transfer };

// "Expense", "Income" or "Transfer"; empty for None.
[[nodiscard]] const char* TextOf(EntryType type);
// What the unsigned amount is multiplied by: 1 for an income, -1 for an expense and the From half
// of a transfer, 0 without a type.
[[nodiscard]] int SignOf(EntryType type);
// Of a row with that amount, signed.
[[nodiscard]] EntryType TypeOf(bool isTransfer, double amount);

// What transactions and schedules have in common, as their editors show it. Names are typed or
// picked.
struct EntryForm {
  EntryType type = EntryType::None;
  std::int64_t accountId = 0;    // 0 not chosen; of a transfer: From
  std::int64_t accountToId = 0;  // of a transfer
  std::string payee;             // not of a transfer
  std::string payment;
  std::string category;
  std::string subCategory;           // empty for none
  std::optional<double> amount = 0;  // unsigned, in accountId's currency; nullopt is no number
  std::string reference;
  std::string description;
  bool hasLines = false;  // as it was loaded: it is split

  [[nodiscard]] bool IsTransfer() const { return type == EntryType::Transfer; }
  // With the sign of its type, never -0.
  [[nodiscard]] double SignedAmount() const { return SignOf(type) * amount.value_or(0) + 0.0; }
  bool operator==(const EntryForm&) const = default;
};

// Sets the type; a transfer without a category is of the category "Credit", which it loses again
// with the type.
void ChooseType(EntryForm& form, EntryType type);

// Puts what the details of a transaction or a schedule say into the form.
template <typename Details>
void FillForm(const Details& row, bool isTransfer, EntryForm& form) {
  form.type = TypeOf(isTransfer, row.amount);
  form.accountId = row.accountId;
  if (!isTransfer) form.payee = row.payee;
  form.payment = row.payment;
  form.category = row.category;
  form.subCategory = row.subCategory;
  form.amount = std::fabs(row.amount);
  form.reference = row.reference;
  form.description = row.description;
  form.hasLines = row.hasLines;
}

}  // namespace corvanta::inline entry
