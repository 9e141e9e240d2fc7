#include "reports/query/ReportRates.h"

#include "ledger/investments/RateSource.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reports/query/ReportRequest.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <utility>

namespace corvanta::inline reports {

ReportRates::ReportRates(Connection& store, const std::string& statement,
                         std::string reportCurrency, const Ask& ask)
    : reportCurrency_(std::move(reportCurrency)) {
  {
    Recordset rows = store.OpenRecordset(statement);
    const bool opens = rows.Fields().size() > 2;
    for (; !rows.Eof(); rows.MoveNext()) {
      uses_.push_back({rows.Text("Currency"), opens ? rows.Double("OpeningBalance") : 0, 1});
    }
  }
  // Asking may let the window live: no statement stands open meanwhile.
  for (CurrencyUse& use : uses_) {
    use.rate = ask(use.currency);
    use.opening *= use.rate;
  }
}

void ReportRates::Add(Connection& store, const std::string& statement, const Ask& ask) {
  if (statement.empty()) return;
  const ReportRates more(store, statement, reportCurrency_, [&](const std::string& currency) {
    const bool isKnown = std::ranges::count(uses_, currency, &CurrencyUse::currency) != 0;
    return isKnown ? RateOf(currency) : ask(currency);
  });
  for (const CurrencyUse& use : more.uses_) {
    if (std::ranges::count(uses_, use.currency, &CurrencyUse::currency) == 0) uses_.push_back(use);
  }
}

std::string ReportRates::Expression() const {
  std::string text;
  for (const CurrencyUse& use : uses_) {
    text += "IIF(Currency=" + SqlText(use.currency) + "," + SqlNumber(use.rate) + ",";
  }
  return text + "1 " + std::string(uses_.size(), ')');
}

double ReportRates::RateOf(const std::string& currency) const {
  const auto use = std::ranges::find_if(
      uses_, [&currency](const CurrencyUse& each) { return EqualFolded(each.currency, currency); });
  return use == uses_.end() ? 1 : use->rate;
}

std::string ReportRates::ShownIn(const std::string& currency) const {
  return ShownIn(currency, RateOf(currency));
}

std::string ReportRates::ShownIn(const std::string& currency, double rate) const {
  return rate == 1 ? currency : reportCurrency_;
}

std::string ReportRates::Home() const {
  for (const CurrencyUse& use : uses_) {
    if (EqualFolded(ShownIn(use.currency, use.rate), reportCurrency_)) return reportCurrency_;
  }
  return uses_.empty() ? reportCurrency_ : uses_.front().currency;
}

AskedRates::AskedRates(const ReportRequest& request, RateSource& source, Prompts& prompts)
    : request_(request), source_(source), prompts_(prompts) {}

double AskedRates::Rate(const std::string& currency) {
  if (!request_.converts || request_.currency.empty() || wasStopped_) return 1;
  if (EqualFolded(currency, request_.currency)) return 1;
  const std::optional<RateAnswer> answer = source_.Rate(currency, request_.currency);
  if (!answer) {
    wasStopped_ = source_.WasStopped();
    hasFailed_ = hasFailed_ || !wasStopped_;
    return 1;
  }
  if (!answer->notice.empty()) notices_ += (notices_.empty() ? "" : "\n") + answer->notice;
  // A 1 that stands in for a rate would be a wrong total.
  return answer->notice.empty() || answer->day ? answer->rate : 1;
}

void AskedRates::TellTroubles() {
  constexpr const char* kTitle = "Download Currency for Report";
  if (hasFailed_) prompts_.Tell(kTitle, "Could not connect to website");
  if (!notices_.empty()) prompts_.Tell(kTitle, notices_);
}

}  // namespace corvanta::inline reports
