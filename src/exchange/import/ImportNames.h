#pragma once

#include "exchange/import/AccountNames.h"
#include "exchange/import/ImportRecord.h"
#include "ledger/reference/ReferenceRecords.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline exchange {

// The keys behind the names of a file. What the ledger has is read once; what it has not is made
// when it is first asked for, at a cost that does not depend on how many there are. A text that is
// longer than its column is shortened.
class ImportNames {
 public:
  ImportNames(clsCorvanta& ledger, const Locale& locale);

  // The account of that key; nullptr when there is none. Pointers stay valid.
  [[nodiscard]] const ImportTarget* Account(std::int64_t accountId) const {
    return accounts_.Get(accountId);
  }
  // By number where the file gives one, else by name; nullptr when there is none.
  [[nodiscard]] const ImportTarget* FindAccount(const ImportAccount& account) const;
  const ImportTarget* FindOrCreateAccount(const ImportAccount& account);
  // Notes the number on an account that has none.
  void SetNumber(std::int64_t accountId, const std::string& number);

  std::int64_t Payee(std::string_view name);
  // `amount` gives a new category its type, and a record without one "Credit" or "Debit".
  std::int64_t Category(const ImportCategory& category, double amount);
  // "Credit" or "Debit"; 0 where there is none.
  [[nodiscard]] std::int64_t FindCategoryOf(double amount) const;
  std::int64_t Payment();
  std::int64_t Investment(const std::string& name, std::int64_t currencyId);
  [[nodiscard]] std::int64_t FindInvestment(const std::string& name) const;
  // The symbol that the file gives an investment which the ledger has not.
  void SetSymbol(const std::string& name, const std::string& symbol);

  // As long as the column holds, blanks around it taken off.
  [[nodiscard]] std::string Fit(std::string_view text, std::size_t length);
  [[nodiscard]] std::size_t Shortened() const { return shortened_; }

 private:
  using Keys = std::unordered_map<std::string, std::int64_t>;
  struct KnownCategory {
    std::int64_t categoryId = 0;
    std::string category;  // as the ledger spells it
    int type = 0;
  };

  void ReadPayees();
  void ReadCategories();
  const KnownCategory& FindOrMakeCategory(const std::string& category,
                                          const std::string& subCategory, int type);
  [[nodiscard]] std::int64_t GroupFor(const std::string& group);
  [[nodiscard]] const CurrencyRecord& CurrencyFor(const std::string& code);

  clsCorvanta& ledger_;
  const Locale& locale_;
  AccountNames accounts_;
  Keys payees_;  // by NameKey, as all names here
  std::unordered_map<std::string, KnownCategory> categories_;
  Keys investments_;
  Keys groups_;                                                 // that were asked for
  std::unordered_map<std::string, CurrencyRecord> currencies_;  // the same
  std::unordered_map<std::string, std::string> symbols_;
  std::int64_t payment_ = 0;
  std::size_t shortened_ = 0;
};

}  // namespace corvanta::inline exchange
