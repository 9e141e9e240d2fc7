#pragma once

#include "ledger/clsCorvanta.h"
#include "platform/Date.h"
#include "reports/query/Explain.h"
#include "reports/query/ReportClause.h"
#include "reports/query/ReportRates.h"
#include "reports/query/ReportRequest.h"
#include "reports/query/ReportTable.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline reports {

// What one run of a report works with.
struct ReportRun {
  clsCorvanta& ledger;
  Platform& platform;
  const ReportRequest& request;
  const ReportClause& clause;
  const ReportRates& rates;
  std::string exchange;  // the expression that gives a row's rate

  [[nodiscard]] Connection& Store() const { return ledger.Store(); }
};

// A transaction that may be part of a figure.
struct EvidenceRow {
  std::int64_t transactionId = 0;
  corvanta::Date date;
  std::int64_t accountId = 0;
  std::string account;
  std::int64_t payeeId = 0;
  std::string payee;
  std::int64_t categoryId = 0;
  std::string category;  // the main category's name
  std::int64_t paymentId = 0;
  std::int64_t transferId = 0;
  double amount = 0;  // in the account's currency
  std::string currency;
  std::int64_t action = 0;
  double shares = 0;
  double dividend = 0;
  double commission = 0;
  double price = 0;
};

// One report: its query and its fold. The totals behind the rows are its own, too.
class Report {
 public:
  // What stands between "FROM " and "WHERE" of the report's own query, and the conditions.
  struct Sources {
    std::string tables;
    std::string conditions;
  };

  virtual ~Report() = default;

  // Whether it shows what is planned.
  [[nodiscard]] virtual bool HasPlans() const { return false; }

  // The statement that gives the currencies in use.
  [[nodiscard]] virtual std::string Currencies(const ReportClause& clause) const;
  // A statement that gives further ones to be converted, which may be among them; empty for none.
  [[nodiscard]] virtual std::string MoreCurrencies() const { return {}; }
  // Adds the rows to the table, which has its columns. Throws StoreError.
  virtual void Fill(const ReportRun& run, ReportTable& table) const = 0;
  // What a figure is made of. Throws StoreError.
  [[nodiscard]] virtual std::vector<ExplainedRow> Explain(const ReportRun& run,
                                                          const ReportTable& table,
                                                          const ReportRow& row,
                                                          std::size_t column) const;

 protected:
  // The rows that the report's figures are made of, and whether one of them is among those that a
  // row that is no total stands for; its currency is that of the row already. For reports that do
  // not explain their figures themselves.
  [[nodiscard]] virtual Sources EvidenceOf(const ReportRun& run) const;
  [[nodiscard]] virtual bool IsOf(const EvidenceRow& evidence, const ReportRow& row,
                                  const ReportRun& run) const;
  // "AND ...": as much of that as a statement can ask for, so that it need not read the rows of all
  // the others; empty where it can ask for nothing. It may let through what is not of the row.
  [[nodiscard]] virtual std::string Narrowed(const ReportRow& row, const ReportRun& run) const;

  // The rows of these sources, by date and key.
  [[nodiscard]] static std::vector<EvidenceRow> ReadEvidence(const ReportRun& run,
                                                             const Sources& sources);
  // Whether the row's amount is part of the figure under that header: an income, of a month ...
  [[nodiscard]] static bool IsUnder(const EvidenceRow& evidence, const std::string& header);
  [[nodiscard]] static ExplainedRow Explained(const EvidenceRow& evidence, double amount,
                                              double rate, int sign = 1);
  // What is no transaction.
  [[nodiscard]] static ExplainedRow Beside(const std::string& what, const std::string& account,
                                           const std::string& currency, double amount, double rate,
                                           int sign = 1);
};

// The keys of all accounts: whole entries of named accounts are found by their days. Throws
// StoreError.
[[nodiscard]] std::vector<std::int64_t> AccountKeys(Connection& store);

// The day of the first transaction; nullopt without any. Throws StoreError.
[[nodiscard]] std::optional<corvanta::Date> FirstDayOf(const ReportRun& run);

// The report of that number of the catalogue.
[[nodiscard]] std::unique_ptr<Report> MakeReport(int number);

// A row of the report's query as a row of its result. A second one of the same group and currency
// is added to the first.
class RowFold {
 public:
  explicit RowFold(ReportTable& table) : table_(table) {}
  // `group` says which rows are one where their keys do not: each came with a key of its own.
  void Add(ReportRow row, const std::string& group = {});

 private:
  ReportTable& table_;
  std::unordered_map<std::string, std::size_t> places_;
};

// A row that stands for a group.
[[nodiscard]] ReportRow GroupRow(const std::string& key, const std::string& currency,
                                 std::vector<Value> cells);
// One row "Total (EUR)" for each currency of the rows, in the order in which they occur, with the
// sums of these columns. Rows that are totals already do not count.
void AppendTotals(ReportTable& table, const std::vector<std::string>& headers);
// A total row as it stands in the table: empty but for its caption and its currency.
[[nodiscard]] ReportRow TotalRow(const ReportTable& table, const std::string& caption,
                                 const std::string& currency);
// What a total of that currency is called.
[[nodiscard]] std::string TotalCaption(const std::string& currency);

}  // namespace corvanta::inline reports
