#include "ReaderFuzz.h"

#include "exchange/text/DateStyle.h"
#include "exchange/text/Encoding.h"
#include "platform/TextCase.h"

#include <cmath>

namespace corvanta {
namespace {

void Check(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

bool CheckingSink::OnRecord(ImportRecord& record) {
  // Every record takes bytes of the file.
  Check(++records_ <= size_);
  Check(record.offset <= size_);
  CheckNumber(record.amount);
  CheckNumber(record.price);
  CheckNumber(record.quantity);
  CheckNumber(record.commission);
  for (const ImportSplit& split : record.splits) CheckNumber(split.amount);
  for (const DateOrder order :
       {DateOrder::DayMonthYear, DateOrder::MonthDayYear, DateOrder::YearMonthDay}) {
    const auto date = ReadFileDate(record.date.text, order, locale_);
    Check(!date || (date->Year() >= 1 && date->Year() <= 9999));
  }
  CutNames(record);
  for (const std::string* name : {&record.payee, &record.category.category}) {
    Check(IsUtf8(*name) && TextLength(*name) <= 100);
  }
  DateOrderFinder finder;
  finder.Add(record.date.text);
  (void)finder.Find(locale_);
  return true;
}

void CheckingSink::OnProblem(std::size_t, const std::string& text) {
  Check(!text.empty());
}

void CheckingSink::CheckNumber(const ImportValue& value) const {
  for (const DecimalMark mark : {DecimalMark::Point, DecimalMark::Comma}) {
    const auto number = ReadFileNumber(value.text, mark);
    Check(!number || std::fabs(*number) <= 1e15);
  }
  const auto own = ReadFileNumber(value.text, std::nullopt);
  Check(!own || std::fabs(*own) <= 1e15);
}

std::string FuzzText(const std::uint8_t* data, std::size_t size) {
  std::string text = DecodeText(std::string(reinterpret_cast<const char*>(data), size)).text;
  Check(IsUtf8(text));
  return text;
}

const Locale& FuzzLocale() {
  static const IcuLocale locale("en_GB");
  return locale;
}

}  // namespace corvanta
