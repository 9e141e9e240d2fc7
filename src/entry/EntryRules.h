// Rules and questions of the editors of entries. Each editor puts the rules into its own order.
#pragma once

#include "entry/EntryForm.h"
#include "ledger/Warning.h"
#include "ledger/accounts/ClosedAccounts.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace corvanta::inline platform {
class Prompts;
struct Platform;
}  // namespace corvanta::inline platform

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline entry {

// What a form must not be, what is said then, and about which control. The forms are settled: their
// texts have no blanks around them, and the names of the category are apart.
struct EntryRule {
  bool (*isBroken)(const EntryForm& form);
  const char* text;
  const char* field;
};

// The warning of the first rule that is broken.
[[nodiscard]] std::optional<Warning> FirstBroken(std::span<const EntryRule> rules,
                                                 const EntryForm& form);

[[nodiscard]] bool HasNoAmount(const EntryForm& form);
[[nodiscard]] bool HasSign(const EntryForm& form);
// An amount, of either sign, beyond the largest one.
[[nodiscard]] bool HasTooMuch(const EntryForm& form);
[[nodiscard]] bool IsToItself(const EntryForm& form);
[[nodiscard]] bool IsLongName(const std::string& name);
// Of a member of the form.
template <auto Member>
[[nodiscard]] bool IsEmpty(const EntryForm& form) {
  return (form.*Member).empty();
}
template <auto Member>
[[nodiscard]] bool IsLong(const EntryForm& form) {
  return IsLongName(form.*Member);
}

inline constexpr const char* kInvalidAmount = "You need to enter a valid Amount";
inline constexpr const char* kSignedAmount =
    "Please enter the Amount without a sign, the Type says where it goes";

inline constexpr EntryRule kTypeNeeded{
    [](const EntryForm& form) { return form.type == EntryType::None; }, "You need to select a Type",
    "cmbType"};
inline constexpr EntryRule kPaymentNeeded{IsEmpty<&EntryForm::payment>,
                                          "You need to enter a Payment Type", "cmbPayment"};
inline constexpr EntryRule kPaymentFits{IsLong<&EntryForm::payment>,
                                        "Payment Type must be less than 100 characters long",
                                        "cmbPayment"};
inline constexpr EntryRule kAccountNeeded{[](const EntryForm& form) { return form.accountId == 0; },
                                          "You need to select an Account / Transfer From",
                                          "cmbAccount"};
inline constexpr EntryRule kPayeeNeeded{
    [](const EntryForm& form) { return !form.IsTransfer() && form.payee.empty(); },
    "You need to select a Payee", "cmbPayee"};
inline constexpr EntryRule kPayeeFits{
    [](const EntryForm& form) { return !form.IsTransfer() && IsLong<&EntryForm::payee>(form); },
    "Payee must be less than 100 characters long", "cmbPayee"};
inline constexpr EntryRule kCategoryNeeded{IsEmpty<&EntryForm::category>,
                                           "You need to enter a Category", "cmbCategory"};
inline constexpr EntryRule kCategoryFits{
    IsLong<&EntryForm::category>, "Category must be less than 100 characters long", "cmbCategory"};
inline constexpr EntryRule kSubCategoryFits{IsLong<&EntryForm::subCategory>,
                                            "Sub Category must be less than 100 characters long",
                                            "cmbSubCategory"};
inline constexpr EntryRule kAccountToNeeded{
    [](const EntryForm& form) { return form.IsTransfer() && form.accountToId == 0; },
    "You need to select an Account / Transfer To", "cmbAccountTo"};
inline constexpr EntryRule kAmountNeeded{HasNoAmount, kInvalidAmount, "txtAmount"};
inline constexpr EntryRule kAmountUnsigned{HasSign, kSignedAmount, "txtAmount"};
inline constexpr EntryRule kAmountFits{HasTooMuch, kInvalidAmount, "txtAmount"};

// For a reference or a description that its column of that table cannot hold.
[[nodiscard]] std::optional<Warning> CheckTexts(clsCorvanta& ledger, const char* table,
                                                const EntryForm& form);
// For an account that is closed, under that title.
[[nodiscard]] std::optional<Warning> CheckOpenAccount(clsCorvanta& ledger, std::int64_t accountId,
                                                      const char* title, const char* field);

// Takes the blanks around its texts off the form, and the names of its category apart.
void Settle(clsCorvanta& ledger, EntryForm& form);

// Whether the category may be used: it is there, or the person agrees to make it, as an income for
// a `type` above 0 and as an expense otherwise. Makes nothing.
[[nodiscard]] bool AgreeToCategory(clsCorvanta& ledger, Prompts& prompts,
                                   const std::string& category, const std::string& subCategory,
                                   int type);
// Tells that an entry that is split is worth what its lines add up to, where that is not the amount
// that was typed for it; both signed.
void TellOtherAmount(Platform& platform, double sum, double typed);

}  // namespace corvanta::inline entry
