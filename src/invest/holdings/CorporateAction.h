#pragma once

#include "invest/holdings/CostBasis.h"
#include "ledger/Warning.h"
#include "ledger/investments/InvestmentRecord.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline invest {

enum class CorporateKind { Split, Merger, SpinOff };

// What a company has done with its shares, as a person says it.
struct CorporateForm {
  CorporateKind kind = CorporateKind::Split;
  std::int64_t payeeId = 0;  // the investment that is held
  std::optional<Date> day;   // on whose evening it happens; nullopt where what was typed is none
  // So many units are given for so many held; after a split that many are held for so many before.
  std::optional<double> given = 1;
  std::optional<double> held = 1;
  std::int64_t otherId = 0;            // what is given, except in a split
  std::optional<double> costPart = 0;  // of a spin-off: percent of the cost that goes over to it
  bool writesPrice = true;             // of a split: the price of that day
};

// A row that is written, as it is shown before.
struct CorporateRow {
  std::string account;
  std::string investment;
  InvestmentTransaction record;
};

struct CorporatePlan {
  std::optional<Warning> warning;  // then there is nothing to write
  std::vector<CorporateRow> rows;
  std::optional<double> price;      // of the investment on that day
  std::vector<std::string> closed;  // accounts that hold it and are closed: left as they are
};

// Writes as rows what no single row can say. With u units held of a cost c, g given for h:
//
//   split, g > h   adds u (g / h - 1) units without a price
//   split, g < h   removes u units at c / u, adds u g / h at c h / (u g)
//   merger         removes u units at c / u, adds u g / h of the other at c h / (u g)
//   spin-off, p %  removes u units at c / u, adds u at c (1 - p) / u, and u g / h of the other at
//                  c p h / (u g)
//
// in every open account that holds the investment on that evening. So no money moves, no gain is
// realised and the cost goes on; how it is counted is the person's choice. Removed and added again,
// units that had come on different days become one lot.
class CorporateAction {
 public:
  // Both outlive this object.
  CorporateAction(clsCorvanta& ledger, Platform& platform);

  // What would be written. Throws StoreError.
  [[nodiscard]] CorporatePlan Plan(const CorporateForm& form) const;
  // Writes it as one step that can be undone; how many rows there were. Throws StoreError.
  std::size_t Write(const CorporateForm& form, const CorporatePlan& plan);

 private:
  [[nodiscard]] std::optional<Warning> Check(const CorporateForm& form) const;

  clsCorvanta& ledger_;
  Platform& platform_;
};

}  // namespace corvanta::inline invest
