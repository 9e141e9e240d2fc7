#include "invest/rates/CurrencyConverter.h"
#include "platform/IcuLocale.h"
#include "support/FixedLocale.h"
#include "support/ScriptedRates.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

TEST(CurrencyConverter, TheCodeStandsBehindTheLastBracket) {
  EXPECT_EQ(CurrencyConverter::CodeOf("U.S. Dollar (USD)"), "USD");
  EXPECT_EQ(CurrencyConverter::CodeOf("Mark (old) (DEM)"), "DEM");
  EXPECT_EQ(CurrencyConverter::CodeOf("Euro"), "");
  EXPECT_EQ(CurrencyConverter::CodeOf(""), "");
  for (const CurrencyRecord& row :
       {CurrencyRecord{1, "EUR", "Euro (EUR)"}, CurrencyRecord{2, "EUR", "Euro"},
        CurrencyRecord{3, "EUR", ""}}) {
    EXPECT_EQ(CurrencyConverter::CodeOf(CurrencyConverter::Entry(row)), "EUR");
  }
}

TEST(CurrencyConverter, TheAmountTypedLastIsConvertedIntoTheOther) {
  const FixedLocale locale;
  ScriptedRates rates(1.25);
  CurrencyConverter converter(rates, locale);
  CurrencyForm form{"U.S. Dollar (USD)", "EUR", "1,000", "7", false};
  Conversion result = converter.Convert(form);
  EXPECT_FALSE(result.warning);
  EXPECT_EQ(result.amount, "1,000");
  EXPECT_EQ(result.amountCurrency, "1250");
  EXPECT_EQ(result.rate, 1.25);
  form.isCurrencyEntered = true;
  result = converter.Convert(form);
  EXPECT_EQ(result.amount, "5.6");
  EXPECT_EQ(result.amountCurrency, "7");
  form.amountCurrency = "";
  EXPECT_EQ(converter.Convert(form).amountCurrency, "1250") << "an emptied field wipes nothing";
  EXPECT_EQ(rates.Asked(), std::vector<std::string>(3, "EURUSD"))
      << "always from the currency of the amount";
}

TEST(CurrencyConverter, ReadsAmountsAsPeopleWriteThem) {
  const FixedLocale locale;
  ScriptedRates rates(2);
  CurrencyConverter converter(rates, locale);
  for (const char* typed :
       {"1234.5", "1,234.50", "1.234,50", "1 234,50", "1'234.50", "1200+34.5"}) {
    EXPECT_EQ(converter.Convert({"U.S. Dollar (USD)", "EUR", typed, "", false}).amountCurrency,
              "2469")
        << typed;
  }
}

TEST(CurrencyConverter, WhatIsMissingIsSaidBeforeAnythingIsFetched) {
  const FixedLocale locale;
  ScriptedRates rates(1.25);
  CurrencyConverter converter(rates, locale);
  const auto field = [&](const CurrencyForm& form) {
    const Conversion result = converter.Convert(form);
    EXPECT_TRUE(result.warning);
    EXPECT_EQ(result.warning->title, "Download Currency");
    EXPECT_EQ(result.warning->text, "Please select a Currency, and an Amount");
    EXPECT_EQ(result.amount, form.amount);
    EXPECT_EQ(result.amountCurrency, form.amountCurrency);
    return result.warning->field;
  };
  EXPECT_EQ(field({"", "EUR", "10", "", false}), "cmbCurrency");
  EXPECT_EQ(field({"U.S. Dollar (USD)", "EUR", " ", "", false}), "txtAmount");
  EXPECT_EQ(field({"U.S. Dollar (USD)", "EUR", "1*", "", false}), "txtAmount");
  EXPECT_EQ(field({"U.S. Dollar (USD)", "EUR", "", "x", true}), "txtAmountCurrency");
  EXPECT_TRUE(rates.Asked().empty());
}

TEST(CurrencyConverter, AFailedDownloadLeavesBothAmounts) {
  const FixedLocale locale;
  ScriptedRates rates;
  const Conversion result =
      CurrencyConverter(rates, locale).Convert({"U.S. Dollar (USD)", "EUR", "10", "20", true});
  ASSERT_TRUE(result.warning);
  EXPECT_EQ(result.warning->title, "Download Currency");
  EXPECT_EQ(result.warning->text, "Could not connect to website");
  EXPECT_EQ(result.amount, "10");
  EXPECT_EQ(result.amountCurrency, "20");
}

TEST(CurrencyConverter, NumbersAreWrittenPlainly) {
  const IcuLocale locale("de_DE");
  ScriptedRates rates;
  const CurrencyConverter converter(rates, locale);
  EXPECT_EQ(converter.PlainNumber(1234567.5), "1234567,5");
  EXPECT_EQ(converter.PlainNumber(100 / 1.0834), "92,302012");
  EXPECT_EQ(converter.PlainNumber(0.1 + 0.2), "0,3");
  EXPECT_EQ(converter.PlainNumber(0.000012345678), "0,0000123457");
  EXPECT_EQ(converter.PlainNumber(-0.0), "0");
  EXPECT_EQ(converter.PlainNumber(-20), "-20");
  EXPECT_EQ(converter.PlainNumber(100), "100");
}

}  // namespace
}  // namespace corvanta
