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
                         std::string reportCurrency, AtOne atOne, const Ask& ask)
    : reportCurrency_(std::move(reportCurrency)), atOne_(atOne) {
  {
    Recordset rows = store.OpenRecordset(statement);
    const bool opens = rows.Fields().size() > 2;
    for (; !rows.Eof(); rows.MoveNext()) {
      uses_.push_back({rows.Text("Currency"), opens ? rows.Double("OpeningBalance") : 0});
    }
  }
  // Asking may let the window live: no statement stands open meanwhile.
  for (CurrencyUse& use : uses_) {
    AskFor(use, ask);
    use.opening *= use.rate;
  }
}

void ReportRates::Add(Connection& store, const std::string& statement, const Ask& ask) {
  if (statement.empty()) return;
  const ReportRates more(store, statement, reportCurrency_, atOne_,
                         [&](const std::string& currency) {
                           const CurrencyUse* known = UseOf(currency);
                           if (known == nullptr) return ask(currency);
                           return known->isConverted ? std::optional(known->rate) : std::nullopt;
                         });
  for (const CurrencyUse& use : more.uses_) {
    if (UseOf(use.currency) == nullptr) uses_.push_back(use);
  }
}

void ReportRates::AskFor(CurrencyUse& use, const Ask& ask) const {
  const std::optional<double> rate = ask(use.currency);
  use.rate = rate.value_or(1);
  use.isConverted = rate && (*rate != 1 || atOne_ == AtOne::Converts);
}

void ReportRates::KeepPlansIn(const std::string& currency, const Ask& ask) {
  const CurrencyUse* use = UseOf(currency);
  CurrencyUse plans{currency};
  if (use == nullptr) {
    AskFor(plans, ask);
  } else {
    plans.rate = use->rate;
    plans.isConverted = use->isConverted;
  }
  plans_ = plans;
}

std::vector<CurrencyUse> ReportRates::All() const {
  std::vector<CurrencyUse> all = uses_;
  const bool isOther = std::ranges::none_of(uses_, [this](const CurrencyUse& each) {
    return EqualFolded(each.currency, plans_.currency);
  });
  if (isOther && !plans_.currency.empty()) all.push_back(plans_);
  return all;
}

std::string ReportRates::Expression() const {
  std::string text;
  for (const CurrencyUse& use : uses_) {
    text += "IIF(Currency=" + SqlText(use.currency) + "," + SqlNumber(use.rate) + ",";
  }
  return text + "1 " + std::string(uses_.size(), ')');
}

const CurrencyUse* ReportRates::UseOf(const std::string& currency) const {
  const auto use = std::ranges::find_if(
      uses_, [&currency](const CurrencyUse& each) { return EqualFolded(each.currency, currency); });
  if (use != uses_.end()) return &*use;
  return !currency.empty() && EqualFolded(plans_.currency, currency) ? &plans_ : nullptr;
}

double ReportRates::RateOf(const std::string& currency) const {
  const CurrencyUse* use = UseOf(currency);
  return use == nullptr ? 1 : use->rate;
}

std::string ReportRates::ShownIn(const std::string& currency) const {
  const CurrencyUse* use = UseOf(currency);
  return use != nullptr && use->isConverted ? reportCurrency_ : currency;
}

std::string ReportRates::ShownIn(const std::string& currency, double rate) const {
  if (rate != 1) return reportCurrency_;
  return atOne_ == AtOne::Stays ? currency : ShownIn(currency);
}

AskedRates::AskedRates(const ReportRequest& request, RateSource& source, Prompts& prompts)
    : request_(request), source_(source), prompts_(prompts) {}

std::optional<double> AskedRates::Rate(const std::string& currency) {
  if (!request_.converts || request_.currency.empty() || wasStopped_) return std::nullopt;
  if (EqualFolded(currency, request_.currency)) return std::nullopt;
  const std::optional<RateAnswer> answer = source_.Rate(currency, request_.currency);
  if (!answer) {
    wasStopped_ = source_.WasStopped();
    hasFailed_ = hasFailed_ || !wasStopped_;
    return std::nullopt;
  }
  if (!answer->notice.empty()) notices_ += (notices_.empty() ? "" : "\n") + answer->notice;
  // A 1 that stands in for a rate would be a wrong total.
  if (!answer->notice.empty() && !answer->day) return std::nullopt;
  return answer->rate;
}

void AskedRates::TellTroubles() {
  constexpr const char* kTitle = "Download Currency for Report";
  if (hasFailed_) prompts_.Tell(kTitle, "Could not connect to website");
  if (!notices_.empty()) prompts_.Tell(kTitle, notices_);
}

}  // namespace corvanta::inline reports
