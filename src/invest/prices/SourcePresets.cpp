#include "invest/prices/SourcePresets.h"

#include "invest/prices/AnswerReader.h"

#include <array>

namespace corvanta::inline invest {
namespace {

constexpr std::array kPresets = {
    SourcePreset{"European Central Bank", kCurrencySource,
                 "https://api.frankfurter.dev/v1/latest?base=FROM&symbols=TO", "/rates/TO",
                 "https://frankfurter.dev"},
    SourcePreset{"Alpha Vantage Rates", kCurrencySource,
                 "https://www.alphavantage.co/query?function=CURRENCY_EXCHANGE_RATE"
                 "&from_currency=FROM&to_currency=TO&apikey=APIKEY",
                 "/Realtime Currency Exchange Rate/5. Exchange Rate",
                 "https://www.alphavantage.co/support/#api-key"},
    SourcePreset{"Alpha Vantage Prices", kStockSource,
                 "https://www.alphavantage.co/query?function=GLOBAL_QUOTE&symbol=STOCK"
                 "&apikey=APIKEY",
                 "/Global Quote/05. price", "https://www.alphavantage.co/support/#api-key"},
    SourcePreset{"Twelve Data Prices", kStockSource,
                 "https://api.twelvedata.com/price?symbol=STOCK&apikey=APIKEY", "/price",
                 "https://twelvedata.com/stocks"},
    SourcePreset{"Finnhub Prices", kStockSource,
                 "https://finnhub.io/api/v1/quote?symbol=STOCK&token=APIKEY", "/c",
                 "https://finnhub.io"}};

}  // namespace

bool SourcePreset::WantsKey() const {
  return url.find(kOwnKeyWord) != std::string_view::npos;
}

SourceRow SourcePreset::Row() const {
  SourceRow row;
  row.name = name;
  row.url = url;
  row.key = type;
  row.type = type;
  row.lookUpUrl = lookUpUrl;
  row.kind = AnswerKind::Pointer;
  row.field = field;
  return row;
}

std::span<const SourcePreset> SourcePresets() {
  return kPresets;
}

}  // namespace corvanta::inline invest
