#include "platform/IcuLocale.h"

#include "platform/Decimal.h"
#include "platform/NumberText.h"
#include "platform/TextCase.h"
#include "platform/TwoDigitYear.h"

#include <fmt/format.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/gregocal.h>
#include <unicode/numberformatter.h>
#include <unicode/smpdtfmt.h>
#include <unicode/ucurr.h>
#include <unicode/uloc.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace corvanta::inline platform {
namespace {

constexpr int kMaxDecimals = 15;
constexpr double kMillisecondsPerDay = 86'400'000.0;

// A name of the environment or of ICU as ICU's; the plain ones of C programs as en_US.
std::string CanonicalName(std::string name) {
  const std::size_t codeset = name.find('.');
  if (codeset != std::string::npos) {
    name.erase(codeset, std::min(name.find('@', codeset), name.size()) - codeset);
  }
  if (name.empty() || name == "C" || name == "POSIX") return "en_US";
  return name;
}

std::string EnvironmentName(const char* category) {
  for (const char* variable : {"LC_ALL", category, "LANG"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && value[0] != '\0') return value;
  }
  return {};
}

icu::Locale WithLatinDigits(const std::string& name) {
  icu::Locale locale = icu::Locale::createCanonical(name.c_str());
  UErrorCode status = U_ZERO_ERROR;
  locale.setKeywordValue("numbers", "latn", status);
  locale.setKeywordValue("calendar", "gregorian", status);
  return locale;
}

std::string ToUtf8(const icu::UnicodeString& text) {
  std::string result;
  text.toUTF8String(result);
  return result;
}

icu::UnicodeString FromUtf8(std::string_view text) {
  return icu::UnicodeString::fromUTF8(
      icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

std::unique_ptr<icu::SimpleDateFormat> DateFormatOf(const icu::Locale& locale,
                                                    icu::DateFormat::EStyle style) {
  std::unique_ptr<icu::DateFormat> format(icu::DateFormat::createDateInstance(style, locale));
  auto* simple = dynamic_cast<icu::SimpleDateFormat*>(format.get());
  if (simple == nullptr) return nullptr;
  format.release();
  std::unique_ptr<icu::SimpleDateFormat> result(simple);
  UErrorCode status = U_ZERO_ERROR;
  auto calendar =
      std::make_unique<icu::GregorianCalendar>(*icu::TimeZone::getGMT(), locale, status);
  // The new calendar reaches back to the first year.
  calendar->setGregorianChange(-1e17, status);
  result->adoptCalendar(calendar.release());
  result->setLenient(false);
  return result;
}

// The runs of digits of a text, or nothing when it holds anything but digits and separators.
std::vector<std::string> NumbersOf(const icu::UnicodeString& text) {
  std::vector<std::string> numbers;
  bool inNumber = false;
  for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    const UChar32 c = text.char32At(i);
    const int digit = u_charDigitValue(c);
    if (digit >= 0) {
      if (!inNumber) numbers.emplace_back();
      numbers.back() += static_cast<char>('0' + digit);
    } else if (u_isalpha(c) != 0) {
      return {};
    }
    inNumber = digit >= 0;
  }
  return numbers;
}

int FullYear(const std::string& digits) {
  const int year = std::stoi(digits);
  return digits.size() > 2 ? year : YearOfTwoDigits(year);
}

}  // namespace

struct IcuLocale::DatePatterns {
  std::unique_ptr<icu::SimpleDateFormat> longDate;
  std::unique_ptr<icu::SimpleDateFormat> mediumDate;
};

IcuLocale::IcuLocale(const std::string& name) : patterns_(std::make_unique<DatePatterns>()) {
  const auto nameOf = [&](const char* category) {
    return CanonicalName(name.empty() ? EnvironmentName(category) : name);
  };
  LoadNumbers(nameOf("LC_NUMERIC"));
  LoadCurrency(nameOf("LC_MONETARY"));
  LoadDates(nameOf("LC_TIME"));
}

IcuLocale::~IcuLocale() = default;

void IcuLocale::LoadNumbers(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::NumberFormat> format(
      icu::NumberFormat::createInstance(WithLatinDigits(name), status));
  const auto* decimal = dynamic_cast<const icu::DecimalFormat*>(format.get());
  if (U_FAILURE(status) || decimal == nullptr) return;
  const icu::DecimalFormatSymbols* symbols = decimal->getDecimalFormatSymbols();
  decimal_ = ToUtf8(symbols->getSymbol(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol));
  group_ = ToUtf8(symbols->getSymbol(icu::DecimalFormatSymbols::kGroupingSeparatorSymbol));
  groupSize_ = std::max(1, decimal->getGroupingSize());
  const int upper = decimal->getSecondaryGroupingSize();
  upperGroupSize_ = upper > 0 ? upper : groupSize_;
  // Some locales leave four digits ungrouped, which the pattern does not tell.
  const icu::UnicodeString smallest =
      icu::number::NumberFormatter::withLocale(WithLatinDigits(name))
          .formatInt(static_cast<std::int64_t>(std::pow(10, groupSize_)), status)
          .toString(status);
  fewestGroupDigits_ = smallest.length() > groupSize_ + 1 ? 1 : 2;
}

void IcuLocale::LoadCurrency(const std::string& name) {
  // A language alone stands for the country where most of its speakers live.
  std::array<char, ULOC_FULLNAME_CAPACITY> likely{};
  UErrorCode status = U_ZERO_ERROR;
  const icu::Locale locale = icu::Locale::createCanonical(name.c_str());
  uloc_addLikelySubtags(locale.getName(), likely.data(), ULOC_FULLNAME_CAPACITY, &status);
  if (U_FAILURE(status)) return;
  std::array<UChar, 4> code{};
  const std::int32_t length = ucurr_forLocale(likely.data(), code.data(), 4, &status);
  if (U_FAILURE(status) || length != 3) return;
  currency_ = ToUtf8(icu::UnicodeString(code.data(), length));
  const std::int32_t decimals = ucurr_getDefaultFractionDigits(code.data(), &status);
  // A country whose own money has no decimals keeps accounts in other money, too.
  if (U_SUCCESS(status)) decimals_ = std::max(decimals_, static_cast<int>(decimals));
}

void IcuLocale::LoadDates(const std::string& name) {
  const icu::Locale locale = WithLatinDigits(name);
  patterns_->longDate = DateFormatOf(locale, icu::DateFormat::kLong);
  patterns_->mediumDate = DateFormatOf(locale, icu::DateFormat::kMedium);
  std::string pattern = "yyyy-MM-dd";
  if (const auto shortDate = DateFormatOf(locale, icu::DateFormat::kShort)) {
    icu::UnicodeString text;
    pattern = ToUtf8(shortDate->toPattern(text));
  }
  LoadShortPattern(pattern);
}

void IcuLocale::LoadShortPattern(const std::string& pattern) {
  const icu::UnicodeString text = FromUtf8(pattern);
  bool isQuoted = false;
  std::string order;
  shortDate_.clear();
  for (std::int32_t i = 0; i < text.length(); ++i) {
    const UChar c = text.charAt(i);
    if (c == '\'') {
      isQuoted = !isQuoted;
    } else if (!isQuoted && (c == 'd' || c == 'M' || c == 'L' || c == 'y')) {
      const char field = c == 'L' ? 'M' : static_cast<char>(c);
      const bool continues = !shortDate_.empty() && shortDate_.back().field == field;
      if (!continues) {
        shortDate_.push_back({field, 0, {}});
        order += field;
      }
      ++shortDate_.back().width;
    } else if (isQuoted || u_isalpha(c) == 0) {
      // Marks for the direction of writing would only be in the way of plain numbers.
      if (c == 0x200E || c == 0x200F || c == 0x061C) continue;
      if (shortDate_.empty() || shortDate_.back().field != 0) shortDate_.push_back({});
      shortDate_.back().literal += ToUtf8(icu::UnicodeString(c));
    }
  }
  if (order.size() != 3) return LoadShortPattern("yyyy-MM-dd");
  order_ = order[0] == 'y'   ? DateOrder::YearMonthDay
           : order[0] == 'M' ? DateOrder::MonthDayYear
                             : DateOrder::DayMonthYear;
}

std::string IcuLocale::Grouped(std::string_view digits) const {
  const auto lowest = static_cast<std::size_t>(groupSize_);
  if (digits.size() < lowest + static_cast<std::size_t>(fewestGroupDigits_)) {
    return std::string(digits);
  }
  std::string result(digits.substr(digits.size() - lowest));
  std::string_view rest = digits.substr(0, digits.size() - lowest);
  while (!rest.empty()) {
    const std::size_t size = std::min(rest.size(), static_cast<std::size_t>(upperGroupSize_));
    result.insert(0, group_).insert(0, rest.substr(rest.size() - size));
    rest.remove_suffix(size);
  }
  return result;
}

std::string IcuLocale::FormatNumber(double value, int decimals) const {
  if (!std::isfinite(value)) return fmt::format("{}", value);
  const int places = decimals < 0 ? decimals_ : std::min(decimals, kMaxDecimals);
  const Decimal number = RoundToDecimals(value, places);
  std::string text = number.isNegative ? "-" : "";
  text += Grouped(number.whole);
  if (places > 0) text += decimal_ + number.fraction;
  return text;
}

std::optional<double> IcuLocale::ParseNumber(std::string_view text) const {
  return ReadNumber(text, decimal_, group_);
}

std::string IcuLocale::FormatShortDate(Date date) const {
  std::string text;
  for (const DatePiece& piece : shortDate_) {
    if (piece.field == 0) {
      text += piece.literal;
    } else if (piece.field == 'y') {
      // Always the whole year: a ledger is kept for longer than two digits tell apart.
      text += fmt::format("{:04}", date.Year());
    } else {
      const int number = piece.field == 'd' ? date.Day() : date.Month();
      text += fmt::format("{:0{}}", number, std::min(piece.width, 2));
    }
  }
  return text;
}

std::string IcuLocale::FormatLongDate(Date date) const {
  if (patterns_->longDate == nullptr) return date.ToIso();
  icu::UnicodeString text;
  patterns_->longDate->format(date.Serial() * kMillisecondsPerDay, text);
  return ToUtf8(text);
}

std::optional<Date> IcuLocale::DateOfNumbers(const std::vector<std::string>& numbers) const {
  if (numbers.size() != 3) return std::nullopt;
  for (const std::string& number : numbers) {
    if (number.size() > 4) return std::nullopt;
  }
  const bool yearFirst = order_ == DateOrder::YearMonthDay || numbers[0].size() > 2;
  const std::string& year = numbers[yearFirst ? 0 : 2];
  const bool dayFirst = !yearFirst && order_ == DateOrder::DayMonthYear;
  const std::string& month = numbers[yearFirst || dayFirst ? 1 : 0];
  const std::string& day = numbers[yearFirst ? 2 : dayFirst ? 0 : 1];
  return Date::FromYmd(FullYear(year), std::stoi(month), std::stoi(day));
}

std::optional<Date> IcuLocale::ParseDate(std::string_view text) const {
  const std::string_view trimmed = Trim(text);
  if (trimmed.empty()) return std::nullopt;
  if (const auto iso = Date::FromIso(trimmed)) return iso;
  const icu::UnicodeString characters = FromUtf8(trimmed);
  if (const auto numbers = NumbersOf(characters); !numbers.empty()) return DateOfNumbers(numbers);
  for (const auto* format : {patterns_->longDate.get(), patterns_->mediumDate.get()}) {
    if (format == nullptr) continue;
    icu::ParsePosition position(0);
    const UDate moment = format->parse(characters, position);
    if (position.getIndex() != characters.length()) continue;
    const auto date =
        Date::FromSerial(static_cast<std::int32_t>(std::floor(moment / kMillisecondsPerDay)));
    if (date.Year() >= 100) return date;
    return Date::FromYmd(YearOfTwoDigits(date.Year()), date.Month(), date.Day());
  }
  return std::nullopt;
}

}  // namespace corvanta::inline platform
