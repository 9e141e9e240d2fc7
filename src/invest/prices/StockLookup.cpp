#include "invest/prices/StockLookup.h"

#include "invest/prices/LookUpPage.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Progress.h"
#include "platform/Prompts.h"
#include "platform/Registry.h"
#include "platform/Settings.h"
#include "platform/TextCase.h"
#include "reference/RowOf.h"

#include <algorithm>

namespace corvanta::inline invest {
namespace {

constexpr std::string_view kCurrencyIn = "Currency";
constexpr const char* kStockWarning = "Stock Warning";
constexpr const char* kDownloadWarning = "Download Warning";

// The places of an answer's fields.
enum Field : std::size_t { kValue = 1, kDay = 2, kTime = 3, kChange = 4 };

std::string WithoutQuotes(std::string text) {
  std::erase(text, '"');
  return std::string(Trim(text));
}

}  // namespace

StockLookup::StockLookup(WatchMode mode, clsCorvanta& ledger, Platform& platform)
    : mode_(mode),
      ledger_(ledger),
      platform_(platform),
      market_(ledger, platform),
      list_(platform.registry, mode) {}

const char* StockLookup::Caption() const {
  return mode_ == WatchMode::Stocks ? "Stock Lookup" : "Currency Lookup";
}

std::vector<WatchSource> StockLookup::Sources() {
  std::vector<WatchSource> sources;
  if (mode_ == WatchMode::Currency) {
    if (const auto row = market_.GetSourceRow(kCurrencySource, 0)) {
      sources.push_back({row->dataId, row->name, row->lookUpUrl});
    }
    return sources;
  }
  for (const StockSource& row : ledger_.Investments().StockSources()) {
    sources.push_back({row.dataId, row.name, row.lookUpUrl});
  }
  std::ranges::stable_sort(sources, [](const WatchSource& a, const WatchSource& b) {
    return CompareFolded(a.name, b.name) < 0;
  });
  return sources;
}

std::string StockLookup::Currency() const {
  return platform_.registry.Read(Hive::CurrentUser, kSettingsKey, kCurrencyIn)
      .value_or(std::string());
}

void StockLookup::KeepCurrency(const std::string& code) {
  platform_.registry.Write(Hive::CurrentUser, kSettingsKey, kCurrencyIn, code);
}

std::optional<Warning> StockLookup::Add(const std::string& symbol) {
  const std::string trimmed(Trim(symbol));
  if (trimmed.empty()) {
    return mode_ == WatchMode::Stocks
               ? Warning{kStockWarning, "Please enter a stock symbol", "txtSymbol"}
               : Warning{kStockWarning, "Please select a currency", "cmbSymbol"};
  }
  if (list_.Has(trimmed)) {
    return Warning{"Duplicate Entry", "Duplicate value entered",
                   mode_ == WatchMode::Stocks ? "txtSymbol" : "cmbSymbol"};
  }
  list_.Add(trimmed);
  return std::nullopt;
}

bool StockLookup::Delete(std::span<const int> numbers) {
  if (!platform_.prompts.Ask("Delete Items?", "Do you want to delete all selected items?")) {
    return false;
  }
  for (const int number : numbers) list_.Delete(number);
  return true;
}

std::optional<Warning> StockLookup::Check(const LookupForm& form) const {
  if (form.dataId == 0) {
    return Warning{"Data Source Required", "Please select a Data Source", "cmbDataSource"};
  }
  if (!form.currency.empty() && !list_.Entries().empty()) return std::nullopt;
  const char* field = form.currency.empty()        ? "cmbCurrency"
                      : mode_ == WatchMode::Stocks ? "txtSymbol"
                                                   : "cmbSymbol";
  if (mode_ == WatchMode::Stocks) {
    return Warning{kStockWarning, "Please select both Currency In, and Add a Stock to lookup",
                   field};
  }
  return Warning{"Currency Warning", "Please select both Currency In, and Add a Currency to lookup",
                 field};
}

void StockLookup::Tell(const Warning& warning) {
  platform_.prompts.Tell(warning.title, warning.text, Icon::Information);
}

std::optional<Warning> StockLookup::Download(const LookupForm& form,
                                             std::span<const std::string> symbols,
                                             const Show& show) {
  note_.clear();
  isUnanswered_ = false;
  if (auto warning = Check(form)) return warning;
  if (symbols.empty()) {
    return Warning{kDownloadWarning, "No items selected to download", "lvLookUp"};
  }
  for (std::size_t i = 0; i < symbols.size(); ++i) {
    const std::string symbol = ToUpper(symbols[i]);
    std::vector<std::string> result;
    if (!Fetch(form, symbol, result)) {
      if (market_.Trouble().wasStopped) return std::nullopt;
      note_ = market_.Trouble().text;
      isUnanswered_ = true;
      return Warning{kDownloadWarning, "Could not connect to website", "cmbDataSource"};
    }
    if (!market_.Trouble().text.empty()) note_ = market_.Trouble().text;
    if (const auto value = Read(result)) {
      show(i, *value);
    } else if (mode_ == WatchMode::Stocks) {
      Tell({kDownloadWarning, "Invalid Symbol " + symbol + " entered", {}});
    }
    if (!platform_.progress.Yield()) return std::nullopt;
  }
  Tell({"Downloading Rates", "Downloading latest values now complete", {}});
  return std::nullopt;
}

bool StockLookup::Fetch(const LookupForm& form, const std::string& symbol,
                        std::vector<std::string>& result) {
  if (mode_ == WatchMode::Stocks) return market_.FetchQuote(symbol, result, form.dataId);
  return market_.FetchRate(form.currency, symbol, result);
}

std::optional<WatchValue> StockLookup::Read(const std::vector<std::string>& result) const {
  if (result.size() <= kValue || !market_.NumberOf(result[kValue])) return std::nullopt;
  WatchValue value;
  value.value = Shown(result[kValue]);
  if (result.size() <= kDay) return value;
  const std::string time = result.size() > kTime ? " " + result[kTime] : std::string();
  value.dateTime = WithoutQuotes(result[kDay] + time);
  if (result.size() > kChange) {
    value.trend = Shown(market_.NormaliseNumber(WithoutQuotes(result[kChange])));
  }
  return value;
}

// With the decimals of prices; what is no number stays as it came.
std::string StockLookup::Shown(const std::string& field) const {
  const auto number = market_.NumberOf(field);
  if (!number) return field;
  return platform_.locale.FormatNumber(*number, Settings(platform_.registry).InvestmentDecimals());
}

std::optional<Warning> StockLookup::OpenLookUp(std::int64_t dataId) {
  const auto source = RowOf(Sources(), &WatchSource::dataId, dataId);
  return OpenLookUpPage(source ? std::optional(source->lookUpUrl) : std::nullopt, platform_.opener);
}

}  // namespace corvanta::inline invest
