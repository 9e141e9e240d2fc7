#pragma once

#include "reports/query/ReportTable.h"

#include <functional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {
class RateSource;
}

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline reports {

struct ReportRequest;

// A currency in use, and what its accounts open with in what they are shown in.
struct CurrencyUse {
  std::string currency;
  double opening = 0;  // the sum of the opening balances times the rate
  double rate = 1;
};

// The rate of each currency in use into the report currency. Amounts of a currency whose rate is
// exactly 1 stay as they are, in that currency.
class ReportRates {
 public:
  // Gives the rate of a currency.
  using Ask = std::function<double(const std::string& currency)>;

  // `statement` gives the currencies as "Currency" and, where there are some, the sums of opening
  // balances as "OpeningBalance". Throws StoreError.
  ReportRates(Connection& store, const std::string& statement, std::string reportCurrency,
              const Ask& ask);

  // Also those of that statement; none for an empty one. Throws StoreError.
  void Add(Connection& store, const std::string& statement, const Ask& ask);

  [[nodiscard]] const std::vector<CurrencyUse>& Uses() const { return uses_; }
  // IIF(Currency='EUR',0.87,IIF(Currency='USD',1.31,1 ))
  [[nodiscard]] std::string Expression() const;
  // The rate of a currency; 1 for one that is not in use.
  [[nodiscard]] double RateOf(const std::string& currency) const;
  // What its amounts are shown in.
  [[nodiscard]] std::string ShownIn(const std::string& currency) const;
  // The same for a rate that a row came with.
  [[nodiscard]] std::string ShownIn(const std::string& currency, double rate) const;
  // What a figure is in that belongs to no account: the report currency where it is in use or all
  // is converted into it, otherwise the first one that is.
  [[nodiscard]] std::string Home() const;

 private:
  std::vector<CurrencyUse> uses_;
  std::string reportCurrency_;
};

// Asks for the rates of one report, tells what went wrong once it knows, and stops asking when the
// person has stopped it.
class AskedRates {
 public:
  AskedRates(const ReportRequest& request, RateSource& source, Prompts& prompts);
  [[nodiscard]] double Rate(const std::string& currency);
  void TellTroubles();

 private:
  const ReportRequest& request_;
  RateSource& source_;
  Prompts& prompts_;
  bool hasFailed_ = false;
  bool wasStopped_ = false;
  std::string notices_;
};

}  // namespace corvanta::inline reports
