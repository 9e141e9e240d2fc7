#include "entry/EntryRules.h"

#include "ledger/AccountBook.h"
#include "ledger/CategoryBook.h"
#include "ledger/ClosedAccounts.h"
#include "ledger/ReferenceRecords.h"
#include "ledger/TransactionBook.h"
#include "platform/ArithmeticText.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reference/RowOf.h"
#include "reference/Rules.h"

#include <cmath>

namespace corvanta {

std::optional<Warning> CheckSize(std::optional<double> amount, const char* text) {
  if (!amount || std::fabs(*amount) <= kLargestAmount) return std::nullopt;
  return Warning{kSaveWarning, text, "txtAmount"};
}

std::optional<Warning> CheckPayment(const std::string& payment, bool isNeeded) {
  if (isNeeded) {
    if (auto warning = Missing(payment, "You need to enter a Payment Type", "cmbPayment")) {
      return warning;
    }
  }
  return NameTooLong(payment, "Payment Type must be less than 100 characters long", "cmbPayment");
}

std::optional<Warning> CheckPayee(const std::string& payee, bool isNeeded) {
  if (isNeeded) {
    if (auto warning = Missing(payee, "You need to select a Payee", "cmbPayee")) return warning;
  }
  return NameTooLong(payee, "Payee must be less than 100 characters long", "cmbPayee");
}

std::optional<Warning> CheckCategory(const CategoryName& name, bool isNeeded) {
  const auto& [category, subCategory] = name;
  if (isNeeded) {
    if (auto warning = Missing(category, "You need to enter a Category", "cmbCategory")) {
      return warning;
    }
  }
  if (auto warning =
          NameTooLong(category, "Category must be less than 100 characters long", "cmbCategory")) {
    return warning;
  }
  return NameTooLong(subCategory, "Sub Category must be less than 100 characters long",
                     "cmbSubCategory");
}

std::optional<Warning> CheckTexts(clsCorvanta& ledger, const std::string& reference,
                                  const std::string& description) {
  return TextTooLong(ledger, "tblTransactions",
                     {{"Reference", Trim(reference), "txtReference"},
                      {"Description", Trim(description), "txtDescription"}});
}

std::optional<Warning> CheckOpenAccount(clsCorvanta& ledger, std::int64_t accountId,
                                        const char* title, const char* field) {
  const auto account = ledger.Accounts().ReadAccount(accountId);
  if (!account || !account->closed) return std::nullopt;
  return Warning{title, kAccountClosed, field};
}

bool AgreeToCategory(clsCorvanta& ledger, Prompts& prompts, const std::string& category,
                     const std::string& subCategory, int type) {
  if (ledger.Categories().FindCategory(category, subCategory) != 0) return true;
  const std::string main(Trim(category));
  const std::string sub(Trim(subCategory));
  // A new sub-category is of its main category's kind.
  const auto parent = RowOf(ledger.Categories().Categories(), &CategoryRecord::categoryId,
                            ledger.Categories().FindCategory(main, {}));
  const bool isIncome = (parent ? parent->type : type) > 0;
  return prompts.Ask("Add Category?", "The category '" + CategoryPath(main, sub) +
                                          "' does not exist. Do you wish to add it as an " +
                                          (isIncome ? "income" : "expense") + " category?");
}

void TellOtherAmount(clsCorvanta& ledger, Platform& platform, std::int64_t key, double typed) {
  const auto saved = ledger.Transactions().ReadTransaction(key);
  if (!saved || !saved->hasLines || saved->amount == typed) return;
  platform.prompts.Tell(kSaveWarning, "The Allocated items add up to " +
                                          platform.locale.FormatNumber(std::fabs(saved->amount)) +
                                          ", which stays the Amount of this item");
}

}  // namespace corvanta
