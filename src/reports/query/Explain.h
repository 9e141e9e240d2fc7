#pragma once

#include "platform/Date.h"
#include "reports/query/ReportRequest.h"
#include "reports/query/ReportTable.h"

#include <cstddef>
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

namespace corvanta::inline reports {

// Something that a figure is made of: a transaction, or with key 0 what is none, such as the
// opening balance of an account.
struct ExplainedRow {
  std::int64_t transactionId = 0;
  std::optional<corvanta::Date> date = std::nullopt;
  std::string account = {};
  std::string payee = {};     // for what is no transaction, what it is
  std::string currency = {};  // of the amount
  double amount = 0;          // as it is stored
  double rate = 1;            // what it was multiplied by
  int sign = 1;               // -1 where it is taken off
  double contribution = 0;    // amount times rate times sign
};

// What the figure of that row and column is made of; the contributions add up to it. Nothing for
// what is no figure. Throws StoreError.
[[nodiscard]] std::vector<ExplainedRow> Explain(clsCorvanta& ledger, const ReportRequest& request,
                                                const ReportTable& table, std::size_t row,
                                                std::size_t column, Platform& platform);

}  // namespace corvanta::inline reports
