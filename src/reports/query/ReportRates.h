#pragma once

#include "reports/query/ReportTable.h"

#include <functional>
#include <optional>
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
  bool isConverted = false;  // into the report currency; otherwise amounts stay as they are
};

// The rate of each currency in use into the report currency.
class ReportRates {
 public:
  // Gives the rate of a currency; nullopt where its amounts stay as they are.
  using Ask = std::function<std::optional<double>(const std::string& currency)>;
  // Whether amounts of a currency whose rate is known to be exactly 1 stay in that currency.
  enum class AtOne { Stays, Converts };

  // `statement` gives the currencies as "Currency" and, where there are some, the sums of opening
  // balances as "OpeningBalance". Throws StoreError.
  ReportRates(Connection& store, const std::string& statement, std::string reportCurrency,
              AtOne atOne, const Ask& ask);

  // Plans are kept in that currency, which no account of the report need have.
  void KeepPlansIn(const std::string& currency, const Ask& ask);
  [[nodiscard]] const std::string& PlansKeptIn() const { return plans_.currency; }
  // What they are shown in, and by which rate.
  [[nodiscard]] std::string PlansShownIn() const { return ShownIn(plans_.currency); }
  [[nodiscard]] double PlanRate() const { return plans_.rate; }

  // Also those of that statement; none for an empty one. Throws StoreError.
  void Add(Connection& store, const std::string& statement, const Ask& ask);

  [[nodiscard]] const std::vector<CurrencyUse>& Uses() const { return uses_; }
  // Those of the accounts and, where that is none of them, that of the plans.
  [[nodiscard]] std::vector<CurrencyUse> All() const;
  // IIF(Currency='EUR',0.87,IIF(Currency='USD',1.31,1 ))
  [[nodiscard]] std::string Expression() const;
  // The rate of a currency; 1 for one that is not in use.
  [[nodiscard]] double RateOf(const std::string& currency) const;
  // What its amounts are shown in.
  [[nodiscard]] std::string ShownIn(const std::string& currency) const;
  // The same for a rate that a row came with.
  [[nodiscard]] std::string ShownIn(const std::string& currency, double rate) const;

 private:
  // Null for a currency that nothing is in.
  [[nodiscard]] const CurrencyUse* UseOf(const std::string& currency) const;
  void AskFor(CurrencyUse& use, const Ask& ask) const;

  std::vector<CurrencyUse> uses_;
  CurrencyUse plans_;
  std::string reportCurrency_;
  AtOne atOne_;
};

// Asks for the rates of one report, tells what went wrong once it knows, and stops asking when the
// person has stopped it.
class AskedRates {
 public:
  AskedRates(const ReportRequest& request, RateSource& source, Prompts& prompts);
  // nullopt where nothing is to be converted, or cannot be.
  [[nodiscard]] std::optional<double> Rate(const std::string& currency);
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
