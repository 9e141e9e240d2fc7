#include "exchange/ofx/OfxTrades.h"

#include <algorithm>
#include <array>
#include <map>

namespace corvanta::inline exchange {
namespace {

constexpr std::array<std::string_view, 20> kTrades = {
    "BUYDEBT",    "BUYMF",    "BUYOPT",    "BUYOTHER",       "BUYSTOCK", "CLOSUREOPT", "INCOME",
    "INVEXPENSE", "JRNLFUND", "JRNLSEC",   "MARGININTEREST", "REINVEST", "RETOFCAP",   "SELLDEBT",
    "SELLMF",     "SELLOPT",  "SELLOTHER", "SELLSTOCK",      "SPLIT",    "TRANSFER"};

bool IsTrade(std::string_view element) {
  return std::ranges::find(kTrades, element) != kTrades.end();
}

// "20200213120000" as 2020-02-13.
std::string DayOf(const std::string& value) {
  if (value.size() < 8 || value.find_first_not_of("0123456789") < 8) return value;
  return value.substr(0, 4) + "-" + value.substr(4, 2) + "-" + value.substr(6, 2);
}

}  // namespace

void OfxTrades::Look(const OfxElement& element) {
  if (element.name == "UNIQUEID") security_ = element.value;
  if (element.name == "SECNAME") names_.try_emplace(security_, element.value);
}

void OfxTrades::Open(const OfxElement& element) {
  const std::string& name = element.name;
  const std::string& value = element.value;
  if (open_.empty()) {
    if (!IsTrade(name)) return;
    open_ = name;
    trades_.push_back({element.line, name, {}, {}, {}, {}, {}});
    return;
  }
  Trade& trade = trades_.back();
  if (name == "DTTRADE") trade.date = DayOf(value);
  if (name == "UNIQUEID") trade.security = value;
  if (name == "UNITS") trade.units = value;
  if (name == "UNITPRICE") trade.price = value;
  if (name == "TOTAL") trade.total = value;
}

void OfxTrades::Close(std::string_view element) {
  if (element == open_ || element.starts_with("INVSTMT") || element == "INVTRANLIST") open_.clear();
}

std::string OfxTrades::TextOf(const Trade& trade) const {
  std::string text = "The trade was left out: " + trade.kind;
  const auto known = names_.find(trade.security);
  const std::string& security = known == names_.end() ? trade.security : known->second;
  if (!security.empty()) text += ", " + security;
  if (!trade.date.empty()) text += ", " + trade.date;
  if (!trade.units.empty()) text += ", " + trade.units + " units";
  if (!trade.price.empty()) text += " at " + trade.price;
  if (!trade.total.empty()) text += ", total " + trade.total;
  return text + ".";
}

void OfxTrades::Tell(ImportSink& sink) const {
  if (trades_.empty()) return;
  std::map<std::string, std::size_t> counts;
  for (const Trade& trade : trades_) ++counts[trade.kind];
  std::string kinds;
  for (const auto& [kind, count] : counts) {
    kinds += (kinds.empty() ? "" : ", ") + kind + " " + std::to_string(count);
  }
  sink.OnProblem(0, "Of the investment statement only the cash was imported. Trades left out: " +
                        std::to_string(trades_.size()) + " (" + kinds + ").");
  for (const Trade& trade : trades_) sink.OnProblem(trade.line, TextOf(trade));
}

}  // namespace corvanta::inline exchange
