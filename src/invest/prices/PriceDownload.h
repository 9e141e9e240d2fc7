#pragma once

#include "invest/prices/MarketData.h"
#include "ledger/Warning.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline invest {

// A price as it was stored: of one unit, in the currency in which the investment is held.
struct StoredPrice {
  Date date;
  double price = 0;
};

// What the download of a price came to.
struct PriceOutcome {
  std::optional<StoredPrice> stored;
  std::optional<Warning> refusal;  // why nothing was stored; none where the person stopped it
  std::string note;                // what is to be said besides, in a line; empty for nothing
  // Whether nobody answered for the source of the prices: others of it would be waited for as long.
  bool isServiceDead = false;
  bool wasStopped = false;
};

// The download of the price of an investment.
class PriceDownload {
 public:
  // Both outlive this object.
  PriceDownload(clsCorvanta& ledger, Platform& platform);

  // Fetches the quote of a stored investment, multiplies it by the investment's conversion and,
  // where it is quoted in another currency than it is held in, by the rate of today, and stores it
  // as today's price. nullopt when nothing was stored, which the person has been told; one who
  // stops it is told nothing. Throws StoreError, as the next does.
  std::optional<StoredPrice> DownloadInvestmentPrice(std::int64_t investmentId);
  // The same, but nobody is told anything.
  PriceOutcome Download(std::int64_t investmentId);

  // Of the last one: why nothing was stored, in a line for a form; empty when something was, or
  // nothing is to be said.
  [[nodiscard]] const std::string& Note() const { return note_; }

 private:
  struct Question {
    std::string symbol;
    std::string accountCurrency;  // codes
    std::string investCurrency;
    std::int64_t dataId = 0;
    double conversion = 1;
  };
  [[nodiscard]] std::optional<Question> Read(std::int64_t investmentId);
  // nullopt when there is none, which the outcome says then.
  [[nodiscard]] std::optional<double> Fetch(const Question& question, PriceOutcome& outcome);
  // Units of the account's currency for one of the quote's.
  [[nodiscard]] std::optional<double> RateOf(const Question& question, PriceOutcome& outcome);
  void Refuse(PriceOutcome& outcome) const;

  clsCorvanta& ledger_;
  Platform& platform_;
  MarketData market_;
  std::string note_;
};

}  // namespace corvanta::inline invest
