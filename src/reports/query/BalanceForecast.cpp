#include "reports/query/BalanceForecast.h"

#include "ledger/Money.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/investments/RateBook.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleRows.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <map>
#include <optional>

namespace corvanta::inline reports {
namespace {

constexpr int kYear = 365;
constexpr int kMaxMonths = 120;

// Something that is to come.
struct Expected {
  std::int64_t accountId = 0;
  corvanta::Date day;
  std::int64_t transactionId = 0;  // 0 for what is not entered
  std::string what;
  double amount = 0;  // in the account's currency
};

struct Outlook {
  AccountRow account;
  double balance = 0;  // this evening
  double average = 0;  // of a day
  double rate = 1;
};

corvanta::Date EndOf(const ReportRun& run) {
  return BalanceForecast::EndOf(run.request, run.platform.clock.Today());
}

std::string RowsOf(std::int64_t account) {
  return "FROM tblTransactions AS T INNER JOIN tblCategory AS C ON T.CategoryID = C.CategoryID "
         "WHERE T.AllocatedItem = 0 AND T.AccountID = " +
         SqlNumber(account) + " AND T.[Date] ";
}

double SumOf(const ReportRun& run, const std::string& rows) {
  return run.Store().QueryValue("SELECT SUM(Amount) " + rows).Double();
}

// For how many days, at most a year, the account has had transactions.
int AgeOf(const ReportRun& run, std::int64_t account) {
  const corvanta::Date today = run.platform.clock.Today();
  const std::optional<corvanta::Date> first =
      run.Store()
          .QueryValue("SELECT TOP 1 T.[Date] " + RowsOf(account) + "<= " + SqlEndOf(today) +
                      " Order by T.[Date]")
          .AsDate();
  return first ? std::min(kYear, today.Serial() - first->Serial() + 1) : kYear;
}

std::vector<Outlook> ReadOutlooks(const ReportRun& run) {
  const corvanta::Date today = run.platform.clock.Today();
  const std::vector<std::int64_t>& some = run.request.filter.Keys(FilterKind::Account);
  std::vector<Outlook> outlooks;
  TreeOptions options;
  options.includeClosed = run.request.withClosedAccounts;
  options.end = today;
  for (const AccountRow& account : run.ledger.Accounts().Accounts(options)) {
    if (!some.empty() && std::ranges::count(some, account.accountId) == 0) continue;
    const double year =
        SumOf(run, RowsOf(account.accountId) + "Between " + SqlDate(today.AddDays(1 - kYear)) +
                       " AND " + SqlEndOf(today) +
                       " AND T.BankSch = 0 AND T.Action = 0 AND (T.TransferID = 0 or "
                       "isNull(T.TransferID))");
    outlooks.push_back({account, account.balance, year / AgeOf(run, account.accountId),
                        run.rates.RateOf(account.currency)});
  }
  return outlooks;
}

void AddEntered(const ReportRun& run, std::int64_t account, std::vector<Expected>& expected) {
  Recordset rows = run.Store().OpenRecordset(
      "SELECT T.TransactionID, T.Date, Amount, PP.Payee FROM (tblTransactions AS T INNER JOIN "
      "tblCategory AS C ON T.CategoryID = C.CategoryID) LEFT JOIN tblPayees PP ON PP.PayeeID = "
      "T.PayeeID WHERE T.AllocatedItem = 0 AND T.AccountID = " +
      SqlNumber(account) + " AND T.[Date] > " + SqlEndOf(run.platform.clock.Today()) +
      " AND T.[Date] <= " + SqlEndOf(EndOf(run)));
  for (; !rows.Eof(); rows.MoveNext()) {
    expected.push_back({account, rows.Day("Date").value_or(corvanta::Date()), rows.Int(0),
                        rows.Text("Payee"), rows.Double("Amount")});
  }
}

// What arrives of a scheduled transfer, 0 of what is none; nullopt where no rate is known.
std::optional<double> ArrivingOf(const ReportRun& run, const ScheduleDetails& schedule) {
  if (!schedule.IsTransfer()) return 0;
  if (!schedule.NeedsRate()) return -schedule.amount;
  const auto rate = run.ledger.Rates().Latest(schedule.currency, schedule.transferCurrency,
                                              run.platform.clock.Today());
  return rate ? std::optional(-schedule.amount * rate->rate) : std::nullopt;
}

// What is overdue and has no row yet is expected on the first day. A transfer that waits for a rate
// would otherwise leave the one account and never arrive in the other.
void AddScheduled(const ReportRun& run, std::vector<Expected>& expected) {
  const corvanta::Date first = run.platform.clock.Today().AddDays(1);
  const PostedBySchedule posted = PostedOfAll(run.Store());
  for (const ScheduleDetails& schedule : run.ledger.Schedules().Schedules()) {
    if (schedule.isFinished || !schedule.nextDue) continue;
    const std::optional<double> arriving = ArrivingOf(run, schedule);
    if (!arriving) continue;
    const auto rows = posted.find(schedule.scheduleId);
    for (const corvanta::Date due : PaymentsBookedUntil(schedule, EndOf(run))) {
      if (rows != posted.end() && rows->second.Has(due)) continue;
      const corvanta::Date day = std::max(first, schedule.days.BookedOn(due));
      expected.push_back({schedule.accountId, day, 0, schedule.payee, schedule.amount});
      if (!schedule.IsTransfer()) continue;
      expected.push_back({schedule.transferAccountId, day, 0, schedule.payee, *arriving});
    }
  }
}

// Whether the request is kept to rows by more than accounts.
bool HasOtherFilters(const ReportRequest& request) {
  constexpr FilterKind kOthers[] = {FilterKind::Category, FilterKind::Payee, FilterKind::Investment,
                                    FilterKind::Keyword};
  return request.withoutTransfers || !request.actions.empty() || !request.paymentTypes.empty() ||
         !request.filter.Search().text.empty() ||
         std::ranges::any_of(kOthers, [&](FilterKind kind) { return request.filter.IsSet(kind); });
}

// What AddScheduled leaves out of the payments into or out of these accounts; empty for nothing.
std::string WaitingOf(const ReportRun& run, const std::vector<Outlook>& outlooks) {
  const auto isShown = [&outlooks](std::int64_t account) {
    return std::ranges::any_of(
        outlooks, [account](const Outlook& each) { return each.account.accountId == account; });
  };
  std::string transfers;
  for (const ScheduleDetails& schedule : run.ledger.Schedules().Schedules()) {
    if (schedule.isFinished || !schedule.nextDue || ArrivingOf(run, schedule)) continue;
    if (schedule.days.BookedOn(*schedule.nextDue) > EndOf(run)) continue;
    if (!isShown(schedule.accountId) && !isShown(schedule.transferAccountId)) continue;
    transfers += (transfers.empty() ? "" : ", ") + schedule.account + " to " +
                 schedule.transferAccount + " (" + schedule.currency + " to " +
                 schedule.transferCurrency + ")";
  }
  if (transfers.empty()) return {};
  return "Scheduled transfers that wait for an exchange rate are not counted: " + transfers + ".";
}

// All that is to come, by day.
std::vector<Expected> ReadExpected(const ReportRun& run, const std::vector<Outlook>& outlooks) {
  std::vector<Expected> expected;
  for (const Outlook& outlook : outlooks) AddEntered(run, outlook.account.accountId, expected);
  AddScheduled(run, expected);
  const corvanta::Date first = run.platform.clock.Today().AddDays(1);
  for (const WhatIf& each : run.request.whatIf) {
    expected.push_back({each.accountId, std::max(first, each.day), 0,
                        each.text.empty() ? "What if" : each.text, each.amount});
  }
  std::ranges::stable_sort(expected, {}, &Expected::day);
  return expected;
}

std::string KeyOf(const Outlook& outlook) {
  return SqlNumber(outlook.account.accountId);
}

}  // namespace

corvanta::Date BalanceForecast::Farthest(corvanta::Date today) {
  return today.AddMonths(kMaxMonths);
}

corvanta::Date BalanceForecast::EndOf(const ReportRequest& request, corvanta::Date today) {
  // Days that are past have nothing to come.
  if (!request.range || request.range->to <= today) return today.AddMonths(3);
  return std::min(request.range->to, Farthest(today));
}

void BalanceForecast::Fill(const ReportRun& run, ReportTable& table) const {
  const std::vector<Outlook> outlooks = ReadOutlooks(run);
  const std::vector<Expected> expected = ReadExpected(run, outlooks);
  std::map<std::pair<corvanta::Date, std::int64_t>, double> sums;
  for (const Expected& each : expected) sums[{each.day, each.accountId}] += each.amount;
  const corvanta::Date end = EndOf(run.request, run.platform.clock.Today());
  const corvanta::Date tomorrow = run.platform.clock.Today().AddDays(1);
  const corvanta::Date first =
      run.request.range ? std::clamp(run.request.range->from, tomorrow, end) : tomorrow;
  table.periods = {Period{first, end}};
  table.notice = WaitingOf(run, outlooks);
  if (HasOtherFilters(run.request)) {
    table.notice += std::string(table.notice.empty() ? "" : " ") +
                    "Of the filters only accounts count in a forecast.";
  }
  for (const Outlook& outlook : outlooks) {
    double balance = outlook.balance;
    const std::string shown = run.rates.ShownIn(outlook.account.currency, outlook.rate);
    for (corvanta::Date day = tomorrow; day <= end; day = day.AddDays(1)) {
      const auto sum = sums.find({day, outlook.account.accountId});
      const double expectedSum = sum == sums.end() ? 0 : sum->second;
      balance += expectedSum + outlook.average;
      if (day < first) continue;
      ReportRow row = GroupRow(
          KeyOf(outlook), shown,
          {outlook.account.account, day, RoundMoney(expectedSum * outlook.rate),
           RoundMoney(outlook.average * outlook.rate), RoundMoney(balance * outlook.rate), shown});
      row.part = day.ToIso();
      table.rows.push_back(std::move(row));
    }
  }
}

std::vector<ExplainedRow> BalanceForecast::Explain(const ReportRun& run, const ReportTable& table,
                                                   const ReportRow& row, std::size_t column) const {
  const std::string& header = table.columns.at(column).header;
  const corvanta::Date day = corvanta::Date::FromIso(row.part).value_or(corvanta::Date());
  const int days = day.Serial() - run.platform.clock.Today().Serial();
  const std::vector<Outlook> outlooks = ReadOutlooks(run);
  std::vector<ExplainedRow> explained;
  for (const Outlook& outlook : outlooks) {
    if (KeyOf(outlook) != row.groupKey) continue;
    const AccountRow& account = outlook.account;
    const auto add = [&](const std::string& what, double amount) {
      explained.push_back(Beside(what, account.account, account.currency, amount, outlook.rate));
    };
    if (header == "Balance") add("Balance today", outlook.balance);
    if (header == "Average") add("Average of a day", outlook.average);
    if (header == "Balance") add(std::to_string(days) + " days", outlook.average * days);
    if (header == "Average") continue;
    for (const Expected& each : ReadExpected(run, outlooks)) {
      const bool isWanted = header == "Balance" ? each.day <= day : each.day == day;
      if (!isWanted || each.accountId != account.accountId) continue;
      add(each.what, each.amount);
      explained.back().transactionId = each.transactionId;
      explained.back().date = each.day;
    }
  }
  return explained;
}

}  // namespace corvanta::inline reports
