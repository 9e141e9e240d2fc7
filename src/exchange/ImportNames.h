#pragma once

#include "exchange/ImportRecord.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace corvanta {

class clsCorvanta;
class Locale;

struct ImportTarget {
  std::int64_t accountId = 0;
  std::int64_t currencyId = 0;
  std::string name;
  bool isClosed = false;
};

// The keys behind the names of a file. What the ledger has is read once; what it has not is made
// when it is first asked for. A text that is longer than its column is shortened.
class ImportNames {
 public:
  ImportNames(clsCorvanta& ledger, const Locale& locale);

  // The account of that key; nullptr when there is none. Pointers stay valid.
  [[nodiscard]] const ImportTarget* Account(std::int64_t accountId) const;
  // By number where the file gives one, else by name; nullptr when there is none.
  [[nodiscard]] const ImportTarget* FindAccount(const ImportAccount& account) const;
  const ImportTarget* FindOrCreateAccount(const ImportAccount& account);

  std::int64_t Payee(std::string_view name);
  // `amount` gives a new category its type, and a record without one "Credit" or "Debit".
  std::int64_t Category(const ImportCategory& category, double amount);
  std::int64_t Payment();
  std::int64_t Investment(const std::string& name, std::int64_t currencyId);
  // The symbol that the file gives an investment which the ledger has not.
  void SetSymbol(const std::string& name, const std::string& symbol);

  // As long as the column holds, blanks around it taken off.
  [[nodiscard]] std::string Fit(std::string_view text, std::size_t length);
  [[nodiscard]] std::size_t Shortened() const { return shortened_; }
  // Whether something was made.
  [[nodiscard]] bool HasMade() const { return hasMade_; }

 private:
  using Keys = std::unordered_map<std::string, std::int64_t>;

  void ReadAccounts();
  void ReadPayees();
  void ReadCategories();
  [[nodiscard]] std::int64_t GroupFor(const std::string& group);
  [[nodiscard]] std::int64_t CurrencyFor(const std::string& code) const;
  const ImportTarget* AddTarget(ImportTarget target, const std::string& number);

  clsCorvanta& ledger_;
  const Locale& locale_;
  std::unordered_map<std::int64_t, ImportTarget> accounts_;
  Keys accountNames_;  // in lower case, as all names here
  Keys accountNumbers_;
  Keys payees_;
  Keys categories_;
  Keys investments_;
  std::unordered_map<std::string, std::string> symbols_;
  std::int64_t payment_ = 0;
  std::size_t shortened_ = 0;
  bool hasMade_ = false;
};

}  // namespace corvanta
