#pragma once

#include "ledger/Warning.h"
#include "ledger/reference/ReferenceRecords.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline ledger {
class RateSource;
}

namespace corvanta::inline invest {

// What a person has chosen and typed. An amount is the text of its field.
struct CurrencyForm {
  std::string currency;            // an entry of the list: "Euro (EUR)"; empty for none
  std::string otherCode;           // the currency of `amount`
  std::string amount;              // in the other currency
  std::string amountCurrency;      // in the currency chosen
  bool isCurrencyEntered = false;  // whether amountCurrency is to be converted into amount
};

struct Conversion {
  std::optional<Warning> warning;  // then nothing was converted, and the amounts are as they were
  double rate = 0;                 // units of the currency chosen for one of the other
  std::string notice = {};  // what is to be told of the rate, or of one that is known; in words
  std::string amount;
  std::string amountCurrency;
};

// The rules behind the currency converter.
class CurrencyConverter {
 public:
  // Both outlive this object.
  CurrencyConverter(RateSource& rates, const Locale& locale) : rates_(rates), locale_(locale) {}

  // A currency as it stands in the list: its name with the code in brackets at the end.
  [[nodiscard]] static std::string Entry(const CurrencyRecord& currency);
  // The code of an entry; empty when there is none.
  [[nodiscard]] static std::string CodeOf(std::string_view entry);

  // Fetches the rate, which may take some seconds, and converts one amount into the other.
  [[nodiscard]] Conversion Convert(const CurrencyForm& form);
  // A number as plain text: the locale's decimal separator, no grouping, six decimals at most, or
  // six digits of what is smaller than 1.
  [[nodiscard]] std::string PlainNumber(double value) const;

 private:
  RateSource& rates_;
  const Locale& locale_;
};

}  // namespace corvanta::inline invest
