#include "invest/rates/CurrencyConverter.h"

#include "ledger/investments/RateSource.h"
#include "platform/ArithmeticText.h"
#include "platform/Locale.h"
#include "platform/TextCase.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace corvanta::inline invest {
namespace {

constexpr const char* kTitle = "Download Currency";
constexpr int kDigits = 6;

bool IsEmpty(const std::string& text) {
  return Trim(text).empty();
}

Conversion Refused(const CurrencyForm& form, const char* text, const char* field) {
  return {Warning{kTitle, text, field}, 0, {}, form.amount, form.amountCurrency};
}

}  // namespace

std::string CurrencyConverter::Entry(const CurrencyRecord& currency) {
  const std::string code = "(" + currency.currency + ")";
  if (currency.description.empty()) return currency.currency + " " + code;
  return currency.description.ends_with(code) ? currency.description
                                              : currency.description + " " + code;
}

std::string CurrencyConverter::CodeOf(std::string_view entry) {
  const std::size_t bracket = entry.rfind('(');
  if (bracket == std::string_view::npos) return {};
  std::string_view code = Trim(entry.substr(bracket + 1));
  if (code.ends_with(')')) code.remove_suffix(1);
  return std::string(Trim(code));
}

Conversion CurrencyConverter::Convert(const CurrencyForm& form) {
  constexpr const char* kMissing = "Please select a Currency, and an Amount";
  const std::string code = CodeOf(form.currency);
  if (code.empty()) return Refused(form, kMissing, "cmbCurrency");
  // A field that was emptied last must not wipe the amount in the other one.
  const bool isCurrencyEntered =
      form.isCurrencyEntered ? !IsEmpty(form.amountCurrency) : IsEmpty(form.amount);
  const std::string& entered = isCurrencyEntered ? form.amountCurrency : form.amount;
  const auto number = WorkOut(entered, locale_);
  if (!number) {
    return Refused(form, kMissing, form.isCurrencyEntered ? "txtAmountCurrency" : "txtAmount");
  }
  const auto answer = rates_.Rate(form.otherCode, code);
  if (!answer || answer->rate <= 0 || answer->day) {
    // Only a rate of today converts here; one of another day is for the person to know.
    const bool wasStopped = rates_.WasStopped();
    Conversion refused =
        Refused(form, wasStopped ? "The download was stopped" : "Could not connect to website", "");
    if (answer && answer->day) {
      refused.notice = "Known is 1 " + form.otherCode + " = " + PlainNumber(answer->rate) + " " +
                       code + " of " + locale_.FormatShortDate(*answer->day) + ".";
    }
    return refused;
  }
  Conversion result{std::nullopt, answer->rate, answer->notice, form.amount, form.amountCurrency};
  if (isCurrencyEntered) {
    result.amount = PlainNumber(*number / answer->rate);
  } else {
    result.amountCurrency = PlainNumber(*number * answer->rate);
  }
  return result;
}

std::string CurrencyConverter::PlainNumber(double value) const {
  int decimals = kDigits;
  if (value != 0 && std::abs(value) < 1) {
    decimals -= static_cast<int>(std::floor(std::log10(std::abs(value)))) + 1;
  }
  std::string text = fmt::format("{:.{}f}", value, decimals);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  if (text == "-0") text = "0";
  const std::size_t point = text.find('.');
  if (point != std::string::npos) text.replace(point, 1, locale_.DecimalSeparator());
  return text;
}

}  // namespace corvanta::inline invest
