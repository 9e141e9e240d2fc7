#pragma once

#include "ledger/investments/RateSource.h"
#include "reports/query/ReportRequest.h"
#include "store/sql/Connection.h"

#include <cstdint>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace corvanta {

// The rows of a ledger as plain values: what is written into a data file, and what reports are
// worked out from without it.
struct PlainLedger {
  struct Account {
    std::int64_t id;
    std::string name;
    double opening;
    std::string currency;
    bool closed;
  };
  struct Category {
    std::int64_t id;
    std::string name, sub;
    int type;
    double budget;
    int periodId;  // 0 none
  };
  struct Payee {
    std::int64_t id;
    std::string name;
    bool isInvestment;
    std::string symbol;
    double price;     // the latest one
    Date priceDay;    // of it
    double oldPrice;  // of 2020
    std::string currency;
  };
  struct Row {
    std::int64_t id, account, category, payment, payee;
    double amount;
    Date day;
    std::int64_t transfer = 0, parent = 0;
    int chk = 0, rec = 0;
    std::int64_t action = 0;
    double shares = 0, price = 0, dividend = 0, commission = 0;
    std::string description;
    std::set<std::int64_t> keywords;
    std::int64_t schedule = 0;  // whose payment it is
    Date scheduleDay = {};      // the day that was due
  };
  struct Schedule {
    std::int64_t id, account, transferAccount;  // 0: no transfer
    double amount;
    Date from;
    int days;   // from one payment to the next; 0: a month
    int times;  // 0 without end
    std::set<Date> posted;

    // The day of its payment of that number, from 0.
    [[nodiscard]] Date Due(int number) const {
      return days == 0 ? from.AddMonths(number) : from.AddDays(days * number);
    }
  };

  std::vector<Account> accounts;
  std::vector<Category> categories;  // by name
  std::vector<Payee> payees;         // by name
  std::map<std::int64_t, std::string> payments;
  std::vector<Row> rows;  // by day and key
  std::set<std::int64_t> parents;
  std::vector<Schedule> schedules;

  [[nodiscard]] const Account& AccountOf(const Row& row) const;
  [[nodiscard]] const Category& CategoryOf(const Row& row) const;
  [[nodiscard]] const Payee& PayeeOf(const Row& row) const;
};

// Accounts in several currencies, one of them closed; two years of plain rows, splits, transfers
// and trades; keywords on some of them; schedules, some of whose payments have a row.
[[nodiscard]] PlainLedger RandomLedger(std::mt19937& random, int entries);
// In place of what the data file holds.
void WriteLedger(const PlainLedger& ledger, Connection& store);
[[nodiscard]] ReportRequest RandomRequest(std::mt19937& random, const PlainLedger& ledger,
                                          int report);

// Rates by currency, into whatever is asked for; none for the others.
class PlainRates : public RateSource {
 public:
  std::map<std::string, double> rates;
  std::optional<RateAnswer> Rate(const std::string& from, const std::string& /*to*/) override {
    const auto rate = rates.find(from);
    return rate == rates.end() ? std::nullopt : std::optional(RateAnswer{rate->second, {}});
  }
};

}  // namespace corvanta
