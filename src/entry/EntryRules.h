// Rules and questions that the editors of entries share.
#pragma once

#include "ledger/CategoryPath.h"
#include "ledger/ClosedAccounts.h"
#include "ledger/Warning.h"
#include "ledger/clsCorvanta.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace corvanta {

class Prompts;
struct Platform;

inline constexpr const char* kInvalidAmount = "You need to enter a valid Amount";
inline constexpr const char* kInvalidShare = "Please enter a valid value for Amount";

inline constexpr const char* kSignedAmount =
    "Please enter the Amount without a sign, the Type says where it goes";

// For an amount, of either sign, that is beyond the largest one; with that text.
[[nodiscard]] std::optional<Warning> CheckSize(std::optional<double> amount, const char* text);
// For a payment type that is empty, where it is needed, or too long.
[[nodiscard]] std::optional<Warning> CheckPayment(const std::string& payment, bool isNeeded);
[[nodiscard]] std::optional<Warning> CheckPayee(const std::string& payee, bool isNeeded);
[[nodiscard]] std::optional<Warning> CheckCategory(const CategoryName& name, bool isNeeded);
// The same for the category of a form, which may be typed as a path.
template <typename Form>
[[nodiscard]] std::optional<Warning> CheckCategoryOf(clsCorvanta& ledger, const Form& form,
                                                     bool isNeeded) {
  return CheckCategory(CategoryOf(ledger, form.category, form.subCategory), isNeeded);
}
// For a reference or a description that its column cannot hold.
[[nodiscard]] std::optional<Warning> CheckTexts(clsCorvanta& ledger, const std::string& reference,
                                                const std::string& description);
// For an account that is closed, under that title.
[[nodiscard]] std::optional<Warning> CheckOpenAccount(clsCorvanta& ledger, std::int64_t accountId,
                                                      const char* title, const char* field);

// The names of the form's category, also where both were typed into the first field.
template <typename Form>
void TakeCategoryPath(clsCorvanta& ledger, Form& form) {
  CategoryName name = CategoryOf(ledger, form.category, form.subCategory);
  form.category = std::move(name.category);
  form.subCategory = std::move(name.subCategory);
}

// Whether the category may be used: it is there, or the person agrees to make it, as an income for
// a `type` above 0 and as an expense otherwise. Makes nothing.
[[nodiscard]] bool AgreeToCategory(clsCorvanta& ledger, Prompts& prompts,
                                   const std::string& category, const std::string& subCategory,
                                   int type);

// Tells that a saved row is worth what its lines add up to, where that is not the amount that was
// typed for it (signed).
void TellOtherAmount(clsCorvanta& ledger, Platform& platform, std::int64_t key, double typed);

}  // namespace corvanta
