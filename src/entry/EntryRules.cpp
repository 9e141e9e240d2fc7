#include "entry/EntryRules.h"

#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/CategoryPath.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/ArithmeticText.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reference/Rules.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvanta::inline entry {

std::optional<Warning> FirstBroken(std::span<const EntryRule> rules, const EntryForm& form) {
  const auto rule =
      std::ranges::find_if(rules, [&](const EntryRule& each) { return each.isBroken(form); });
  if (rule == rules.end()) return std::nullopt;
  return Warning{kSaveWarning, rule->text, rule->field};
}

bool HasNoAmount(const EntryForm& form) {
  return form.amount.value_or(0) == 0;
}

bool HasSign(const EntryForm& form) {
  return form.amount.value_or(0) < 0;
}

bool HasTooMuch(const EntryForm& form) {
  return std::fabs(form.amount.value_or(0)) > kLargestAmount;
}

bool IsToItself(const EntryForm& form) {
  return form.IsTransfer() && form.accountToId == form.accountId;
}

bool IsLongName(const std::string& name) {
  return TextLength(name) > kLongestName;
}

std::optional<Warning> CheckTexts(clsCorvanta& ledger, const char* table, const EntryForm& form) {
  return TextTooLong(ledger, table,
                     {{"Reference", form.reference, "txtReference"},
                      {"Description", form.description, "txtDescription"}});
}

std::optional<Warning> CheckOpenAccount(clsCorvanta& ledger, std::int64_t accountId,
                                        const char* title, const char* field) {
  const auto account = ledger.Accounts().ReadAccount(accountId);
  if (!account || !account->closed) return std::nullopt;
  return Warning{title, kAccountClosed, field};
}

void Settle(clsCorvanta& ledger, EntryForm& form) {
  for (std::string* text : {&form.payee, &form.payment, &form.category, &form.subCategory,
                            &form.reference, &form.description}) {
    TrimText(*text);
  }
  CategoryName name = CategoryOf(ledger, form.category, form.subCategory);
  form.category = std::move(name.category);
  form.subCategory = std::move(name.subCategory);
}

bool AgreeToCategory(clsCorvanta& ledger, Prompts& prompts, const std::string& category,
                     const std::string& subCategory, int type) {
  if (ledger.Categories().FindCategory(category, subCategory) != 0) return true;
  const std::string main(Trim(category));
  const std::string sub(Trim(subCategory));
  // A new sub-category is of its main category's kind.
  const auto parent = ledger.Categories().ReadCategory(ledger.Categories().FindCategory(main, {}));
  const bool isIncome = (parent ? parent->type : type) > 0;
  return prompts.Ask("Add Category?", "The category '" + CategoryPath(main, sub) +
                                          "' does not exist. Do you wish to add it as an " +
                                          (isIncome ? "income" : "expense") + " category?");
}

void TellOtherAmount(Platform& platform, double sum, double typed) {
  if (sum == typed) return;
  platform.prompts.Tell(kSaveWarning, "The Allocated items add up to " +
                                          platform.locale.FormatNumber(std::fabs(sum)) +
                                          ", which stays the Amount of this item");
}

}  // namespace corvanta::inline entry
