#include "store/datafile/schema/QuoteSources.h"

#include "store/sql/SqlText.h"

#include <cassert>

namespace corvanta::inline datafile {
namespace {

// The first sources answer with a line of values and have no marker.
constexpr int kLastWithoutMarker = 3;

constexpr QuoteSource kSources[] = {
    {1, "Yahoo Currency",
     "https://download.finance.yahoo.com/d/quotes.csv?s=CURRENCY=X&f=sl1d1t1ba", "CURRENCY",
     "CURRENCY", 0, "", "https://finance.yahoo.com/currencies"},
    {2, "Yahoo Stock", "https://download.finance.yahoo.com/d/quotes.csv?s=STOCK&f=sl1d1t1c1ohgv",
     "STOCK", "STOCK", 0, "", "https://finance.yahoo.com/lookup"},
    {3, "Yahoo UK Stock", "https://uk.finance.yahoo.com/d/quotes.csv?s=STOCK&f=sl1d1t1c1ohgv",
     "STOCK", "STOCK", 0, "", "https://uk.finance.yahoo.com/lookup"},
    {4, "Google Finance Stock", "https://www.google.com/finance?q=STOCK", "STOCK", "STOCK", 1,
     "class=\"pr\"", "https://www.google.com/finance"},
    {5, "MSN Money Stock", "https://investing.money.msn.com/investments/stock-price?Symbol=STOCK",
     "STOCK", "STOCK", 1, "class=\"lp\"",
     "https://investing.money.msn.com/investments/find-symbol"},
    {6, "Bloomberg Stock", "https://www.bloomberg.com/quote/STOCK", "STOCK", "STOCK", 1,
     "class=\" price\"", "https://www.bloomberg.com/markets/symbolsearch"},
    {7, "Manual Update", "", "STOCK", "STOCK", 0, "", ""},
    {8, "MSN Money UK Stock", "https://money.uk.msn.com/investor/quotes/quotes.aspx?symbol=STOCK",
     "STOCK", "STOCK", 1, "id=\"quickquote\"", "https://money.uk.msn.com/investor/find-symbol"},
    {9, "Financial Times Stock",
     "https://markets.ft.com/Research/Markets/Tearsheets/Summary?s=STOCK", "STOCK", "STOCK", 1,
     "class=\"text first\"", "https://markets.ft.com/research/Markets/Company-Search"},
};

std::string InsertSql(const QuoteSource& source) {
  const bool hasMarker = source.dataId > kLastWithoutMarker;
  std::string sql = "INSERT INTO tblStockData (DataID,[Name],[URL],[Key],[Type],[Occur],";
  sql += hasMarker ? "[Start],LookUpURL) VALUES (" : "LookUpURL) VALUES (";
  sql += std::to_string(source.dataId);
  for (const std::string_view text : {source.name, source.url, source.key, source.type}) {
    sql += "," + SqlText(text);
  }
  sql += "," + std::to_string(source.occur);
  if (hasMarker) sql += "," + SqlText(source.start);
  return sql + "," + SqlText(source.lookUpUrl) + ");";
}

}  // namespace

const QuoteSource& DefaultQuoteSource(int dataId) {
  assert(dataId >= 1 && dataId <= static_cast<int>(std::size(kSources)));
  return kSources[dataId - 1];
}

std::vector<std::string> QuoteSourceStatements() {
  std::vector<std::string> statements;
  for (const QuoteSource& source : kSources) statements.push_back(InsertSql(source));
  return statements;
}

}  // namespace corvanta::inline datafile
