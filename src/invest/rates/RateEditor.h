#pragma once

#include "invest/prices/MarketData.h"
#include "ledger/Keys.h"
#include "ledger/Warning.h"
#include "ledger/investments/RateBook.h"
#include "platform/Date.h"

#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline invest {

// A rate as a person enters it.
struct RateForm {
  std::string from;  // codes; empty for none
  std::string to;
  Date day;
  std::optional<double> rate;  // nullopt for what is no number
};

// The rules behind the list of the exchange rates that are known. Operations throw StoreError.
class RateEditor {
 public:
  // Both outlive this object.
  RateEditor(clsCorvanta& ledger, Platform& platform)
      : ledger_(ledger), platform_(platform), market_(ledger, platform) {}

  // Newest first.
  [[nodiscard]] std::vector<RateRecord> Rows();
  // The first rule that is broken.
  [[nodiscard]] static std::optional<Warning> Check(const RateForm& form);
  // Keeps what Check accepts as entered, in place of the rate that the day had; returns its key.
  std::int64_t Save(const RateForm& form);
  // The currencies alone: what a rate can be fetched for.
  [[nodiscard]] static std::optional<Warning> CheckPair(const RateForm& form);
  // Fetches today's rate of what CheckPair accepts, which is kept. False when none came: the person
  // has been told, and Note() says why.
  bool Download(const RateForm& form);
  [[nodiscard]] const std::string& Note() const { return market_.Trouble().text; }
  // Asks first. True when they are gone.
  bool Delete(Keys rateIds);

 private:
  clsCorvanta& ledger_;
  Platform& platform_;
  MarketData market_;
};

}  // namespace corvanta::inline invest
