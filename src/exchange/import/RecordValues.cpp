#include "exchange/import/RecordValues.h"

#include "exchange/qif/InvestActions.h"
#include "ledger/Money.h"
#include "platform/Locale.h"

#include <cmath>
#include <optional>
#include <utility>

namespace corvanta::inline exchange {
namespace {

std::string Quoted(const std::string& text) {
  constexpr std::size_t kMax = 60;
  return "\"" + (text.size() <= kMax ? text : text.substr(0, kMax) + "...") + "\"";
}

RecordFault FaultOf(const ImportRecord& record, const ImportValue& value, std::string text) {
  return {value.line == 0 ? record.line : value.line, std::move(text)};
}
RecordFault NoNumber(const ImportRecord& record, const ImportValue& value) {
  return FaultOf(
      record, value,
      value.text.empty() ? "There is no amount." : Quoted(value.text) + " is no number.");
}
RecordFault NoDate(const ImportRecord& record) {
  const std::string& text = record.date.text;
  return FaultOf(record, record.date,
                 text.empty() ? "There is no date." : Quoted(text) + " is no date.");
}

std::optional<double> Number(const ImportValue& value, const ImportStyle& style) {
  if (value.text.empty()) return style.emptyIsZero ? std::optional(0.0) : std::nullopt;
  return ReadFileNumber(value.text, style.mark);
}

std::optional<RecordFault> ReadHolding(const ImportRecord& record, const ImportStyle& style,
                                       RecordValues& values) {
  const std::pair<const ImportValue*, double*> numbers[] = {
      {&record.amount, &values.total},
      {&record.price, &values.price},
      {&record.quantity, &values.quantity},
      {&record.commission, &values.commission}};
  for (const auto& [text, target] : numbers) {
    const std::optional<double> number = Number(*text, style);
    if (!number) return NoNumber(record, *text);
    *target = *number;
  }
  values.amount = values.total;
  return std::nullopt;
}

std::optional<RecordFault> ReadCash(const ImportRecord& record, const ImportStyle& style,
                                    RecordValues& values) {
  const std::optional<double> total = Number(record.amount, style);
  if (!total) return NoNumber(record, record.amount);
  const bool isOut = record.isInvestment && *total > 0 && IsCashOut(record.action);
  values.total = isOut ? -*total : OnSide(*total, record.side);
  for (const ImportSplit& split : record.splits) {
    const std::optional<double> line = Number(split.amount, style);
    if (!line) return NoNumber(record, split.amount);
    values.lines.push_back(*line);
    values.amount = RoundMoney(values.amount + *line);
  }
  if (values.lines.empty()) values.amount = values.total;
  return std::nullopt;
}

}  // namespace

bool FitCurrency(RecordValues& values, std::string_view currency) {
  bool hadMore = false;
  const auto take = [&hadMore](double& amount, double fitting) {
    hadMore = hadMore || fitting != amount;
    amount = fitting;
  };
  take(values.total, RoundToCurrency(values.total, currency));
  PartsInCurrency parts{std::string(currency)};
  for (double& line : values.lines) take(line, parts.Next(line));
  values.amount = values.lines.empty() ? values.total : parts.Sum();
  return hadMore;
}

bool IsHolding(const ImportRecord& record) {
  return record.isInvestment && !record.security.empty();
}

InvestmentTransaction HoldingOf(const ImportRecord& record, const RecordValues& values) {
  InvestmentTransaction row;
  row.action = InvestActionOf(record.action);
  row.date = values.date;
  row.shares = std::fabs(values.quantity);
  row.price = values.price;
  row.commission = values.commission;
  row.total = values.total;
  switch (row.action) {
    case InvestAction::Buy:
    case InvestAction::Sell:
      row.total = std::fabs(values.total);  // some programs write the sign of the cash, some none
      break;
    case InvestAction::Dividend:
      row.dividend = values.total;
      row.shares = 0;
      break;
    case InvestAction::AddShares:
    case InvestAction::RemoveShares:
      row.total = 0;
      break;
    case InvestAction::ReinvestDividend:
      break;
  }
  return row;
}

std::variant<RecordValues, RecordFault> ReadValues(const ImportRecord& record,
                                                   const ImportStyle& style, const Locale& locale) {
  if (!record.fault.empty()) return FaultOf(record, record.date, record.fault);
  RecordValues values;
  const std::optional<Date> date =
      ReadFileDate(record.date.text, style.order, locale, style.tolerance);
  if (!date) return NoDate(record);
  values.date = *date;
  const std::optional<RecordFault> fault =
      IsHolding(record) ? ReadHolding(record, style, values) : ReadCash(record, style, values);
  if (fault) return *fault;
  return values;
}

}  // namespace corvanta::inline exchange
