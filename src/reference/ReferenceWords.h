// What the named rows and their texts are called where a person meets them.
#pragma once

#include "ledger/reference/ReferenceRecords.h"
#include "reference/MergeEditor.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline reference {

struct ReferenceWords {
  const char* form = nullptr;        // the given name of its editor
  const char* missing = nullptr;     // the warning for a name of blanks
  const char* taken = nullptr;       // and for one that another row has
  bool keepsTwins = true;            // rows of one name stay open to other changes
  std::optional<MergeKind> merge{};  // where the editor offers to merge
};

template <typename Record>
inline constexpr ReferenceWords kReferenceWords{};

template <>
inline constexpr ReferenceWords kReferenceWords<AccountGroupRecord>{
    .form = "FrmAccountTypes",
    .missing = "You need to enter an Account Group",
    .taken = "Account group already exists",
    .keepsTwins = false};
template <>
inline constexpr ReferenceWords kReferenceWords<BankRecord>{
    .form = "FrmBanks", .missing = "You need to enter a Bank", .taken = "Bank already exists"};
template <>
inline constexpr ReferenceWords kReferenceWords<PayeeRecord>{.form = "FrmPayees",
                                                             .missing = "You need to enter a Payee",
                                                             .taken = "Payee already exists",
                                                             .merge = MergeKind::Payee};
template <>
inline constexpr ReferenceWords kReferenceWords<PaymentRecord>{
    .form = "FrmPayments",
    .missing = "You need to enter a Payment Type",
    .taken = "Payment type already exists"};
template <>
inline constexpr ReferenceWords kReferenceWords<CurrencyRecord>{
    .form = "FrmCurrencies",
    .missing = "You need to enter a Currency",
    .taken = "Currency already exists",
    .keepsTwins = false};
template <>
inline constexpr ReferenceWords kReferenceWords<KeywordRecord>{
    .form = "FrmKeywords",
    .missing = "You need to enter a Keyword",
    .taken = "Keyword already exists"};

// A text beside the name.
struct TextWords {
  std::string_view column;
  const char* label;  // in the window, with its mnemonic
  const char* help;   // on the command line
  int lines = 1;
};
// Of a column of a ReferenceTable.
[[nodiscard]] const TextWords& WordsOf(std::string_view column);

// The given name of the control that holds the column: "txtAddress".
[[nodiscard]] inline std::string ControlOf(std::string_view column) {
  return "txt" + std::string(column);
}

}  // namespace corvanta::inline reference
