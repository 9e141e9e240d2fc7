#pragma once

#include "invest/prices/PriceDownload.h"
#include "ledger/Keys.h"
#include "ledger/Warning.h"
#include "ledger/investments/PriceBook.h"
#include "platform/Date.h"

#include <cstdint>
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

// The rules behind the price history of one investment. Operations throw StoreError.
class HistoryEditor {
 public:
  // Both outlive this object.
  HistoryEditor(clsCorvanta& ledger, Platform& platform, std::int64_t investmentId);

  [[nodiscard]] std::int64_t InvestmentId() const { return investmentId_; }
  // The investment's name; empty when it is gone.
  [[nodiscard]] std::string Investment();
  // Newest first.
  [[nodiscard]] std::vector<PriceRecord> Rows();
  // `price` is what stands in the field; nullopt for what is no number.
  [[nodiscard]] static std::optional<Warning> Check(std::optional<double> price);
  // In place of the price that the day had.
  void Save(Date day, double price);
  // Asks first. True when they are gone.
  bool Delete(Keys historyIds);
  // True when a price was stored; otherwise the person has been told, and Note() says more.
  bool Download();
  [[nodiscard]] const std::string& Note() const { return download_.Note(); }

 private:
  clsCorvanta& ledger_;
  Platform& platform_;
  std::int64_t investmentId_;
  PriceDownload download_;
};

}  // namespace corvanta::inline invest
