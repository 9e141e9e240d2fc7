#pragma once

#include "ledger/register/Period.h"
#include "store/sql/Value.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline reports {

struct ReportColumn {
  // By which the column is sorted, as the catalogue's list says.
  enum Kind { Text, Number, Date };
  // What stands in its cells, by which they are written and aligned.
  enum class Content { Text, Date, Count, Money, Quantity };

  std::string header;
  Kind kind = Text;
  Content content = Content::Text;

  [[nodiscard]] bool HoldsNumbers() const {
    return content != Content::Text && content != Content::Date;
  }
};

enum class ReportRowKind {
  Group,  // stands for many rows, and can be looked into
  Plain,  // one transaction
  Total
};

struct ReportRow {
  ReportRowKind kind = ReportRowKind::Plain;
  // What the row is looked into with: the key of its account, category, payee, payment type,
  // investment or transaction, or year and month ("202611"). Empty for nothing.
  std::string groupKey;
  // What tells rows of one key apart: of a payee's transfers the other half's key, of an
  // investment's the code of the currency that its accounts are in.
  std::string part;
  std::int64_t transactionId = 0;  // of a row that is one transaction
  std::string currency;            // the code that its amounts are in
  std::vector<Value> cells;        // one for every column; NULL where there is nothing to say
};

// A rate that amounts were multiplied by.
struct ReportRate {
  std::string currency;
  double rate = 1;           // units of the report currency for one of it
  bool isConverted = false;  // otherwise amounts of it stay as they are
};

struct ReportTable {
  int report = 1;
  std::string name;
  std::vector<ReportColumn> columns;
  std::vector<ReportRow> rows;
  // Of every currency in use, so that what a figure is made of can be told with the same ones.
  std::vector<ReportRate> rates;
  // The days that the figures are of; none where they are of all. Of a comparison the other ones
  // stand behind them.
  std::vector<Period> periods = {};
  std::string convertedInto = {};  // the report currency's code; empty where nothing is converted
  std::string plansKeptIn = {};    // whatever they are shown in; empty for a report without plans
  std::string savedName = {};      // of the saved report that it was opened as; empty for none
  std::string notice = {};         // what the figures leave out, as a sentence; empty for nothing

  // The place of the column of that header; nullopt when there is none.
  [[nodiscard]] std::optional<std::size_t> Column(std::string_view header) const {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (columns[i].header == header) return i;
    }
    return std::nullopt;
  }
};

}  // namespace corvanta::inline reports
