#include "reports/query/DrillDown.h"

#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryPath.h"
#include "ledger/register/FilterChoice.h"
#include "reports/query/ReportCatalogue.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <charconv>

namespace corvanta::inline reports {
namespace {

std::int64_t KeyOf(const ReportRow& row) {
  std::int64_t key = 0;
  const char* end = row.groupKey.data() + row.groupKey.size();
  const auto [last, error] = std::from_chars(row.groupKey.data(), end, key);
  return error == std::errc() && last == end ? key : 0;
}

// As much of a name as a label has room for.
std::string FirstForty(const std::string& name) {
  std::size_t end = 0;
  for (int signs = 0; signs < 40 && end < name.size(); ++signs) {
    ++end;
    while (end < name.size() && (static_cast<unsigned char>(name[end]) & 0xc0U) == 0x80U) ++end;
  }
  return name.substr(0, end);
}

std::string NameOf(Connection& store, const std::string& column, const std::string& table,
                   const std::string& key, std::int64_t id) {
  return store
      .QueryValue("Select " + column + " from " + table + " WHERE " + key + " = " + SqlNumber(id))
      .Text();
}

DrillStep Into(const ReportRequest& request, int report) {
  DrillStep step{request, std::nullopt, false, false, {}};
  step.request.report = report;
  return step;
}

std::optional<DrillStep> WithFilter(DrillStep step, FilterKind kind,
                                    const std::vector<std::int64_t>& keys,
                                    const std::string& label) {
  if (keys.empty() || label.empty()) return std::nullopt;
  step.request.filter.SetKeys(kind, keys);
  step.filter = kind;
  step.label = label;
  return step;
}

std::optional<DrillStep> IntoMonth(const ReportRequest& request, const ReportRow& row) {
  const std::int64_t month = KeyOf(row);
  const auto first = Date::FromYmd(static_cast<int>(month / 100), static_cast<int>(month % 100), 1);
  if (!first) return std::nullopt;
  DrillStep step = Into(request, kAccountTransactions);
  step.request.range = Period{*first, DateAdd("d", -1, DateAdd("m", 1, *first))};
  step.setsRange = true;
  return step;
}

// A row that stands for a whole category stands for all below it that the report is of.
std::optional<DrillStep> IntoCategory(Connection& store, const ReportRequest& request,
                                      std::int64_t key) {
  const std::vector<std::int64_t>& some = request.filter.Keys(FilterKind::Category);
  std::vector<std::int64_t> keys;
  std::vector<std::string> paths;
  std::string category;
  bool isWhole = request.foldsSubCategories;
  const std::string whole =
      "Select CategoryID, Category, SubCategory from tblCategory WHERE Category IN (Select "
      "Category "
      "from tblCategory WHERE CategoryID = " +
      SqlNumber(key) + ")";
  const std::string one =
      "Select CategoryID, Category, SubCategory from tblCategory WHERE CategoryID = " +
      SqlNumber(key);
  Recordset rows = store.OpenRecordset(request.foldsSubCategories ? whole : one);
  for (; !rows.Eof(); rows.MoveNext()) {
    category = rows.Text("Category");
    const std::int64_t each = rows.Int(0);
    if (request.foldsSubCategories && !some.empty() && std::ranges::count(some, each) == 0) {
      isWhole = false;
      continue;
    }
    keys.push_back(each);
    paths.push_back(CategoryPath(category, rows.Text("SubCategory")));
  }
  if (isWhole) paths = {category};
  return WithFilter(Into(request, kAccountTransactions), FilterKind::Category, keys,
                    FilterLabel(paths));
}

std::optional<DrillStep> IntoPayment(Connection& store, const ReportRequest& request,
                                     std::int64_t key) {
  DrillStep step = Into(request, kAccountTransactions);
  step.label = FilterLabel({NameOf(store, "Payment", "tblPayments", "PaymentID", key)});
  step.request.paymentTypes = {key};
  step.setsPaymentTypes = true;
  return step;
}

}  // namespace

std::optional<DrillStep> DrillDown(clsCorvanta& ledger, const ReportRequest& request,
                                   const ReportRow& row) {
  if (row.groupKey.empty() || row.kind == ReportRowKind::Total) return std::nullopt;
  Connection& store = ledger.Store();
  const std::int64_t key = KeyOf(row);
  const auto payee = [&store](std::int64_t id) {
    return NameOf(store, "Payee", "tblPayees", "PayeeID", id);
  };
  // An investment stands among the payees of transactions, but not among those of the filter.
  const auto isInvestment = [&store](std::int64_t id) {
    const std::string query = "Select Investment from tblPayees WHERE PayeeID = " + SqlNumber(id);
    return store.QueryValue(query).Int() == 1;
  };
  const DrillStep transactions = Into(request, kAccountTransactions);
  switch (request.report) {
    case kAccountSummary:
    case kBalanceForecast:
      return WithFilter(transactions, FilterKind::Account, {key},
                        FirstForty(NameOf(store, "Account", "tblAccounts", "AccountID", key)));
    case kCashFlow:
    case kNetWorth:
      return IntoMonth(request, row);
    case kBudgets:
    case kSpendingByCategory:
    case kMonthlySpendingByCategory:
    case kTwoPeriods:
    case kBudgetOfMonth:
      return IntoCategory(store, request, key);
    case kSpendingByPayee:
    case kMonthlySpendingByPayee:
      return WithFilter(transactions,
                        isInvestment(key) ? FilterKind::Investment : FilterKind::Payee, {key},
                        FilterLabel({payee(key)}));
    case kSpendingByPaymentType:
      return IntoPayment(store, request, key);
    case kInvestmentGains:
      return WithFilter(transactions, FilterKind::Investment, {key}, FirstForty(payee(key)));
    case kInvestmentTransactions: {
      const std::int64_t investment =
          store
              .QueryValue("Select PayeeID from tblTransactions WHERE TransactionID = " +
                          SqlNumber(key))
              .Int();
      return WithFilter(Into(request, kInvestmentTransactions), FilterKind::Investment,
                        {investment}, FirstForty(payee(investment)));
    }
    default:
      return std::nullopt;
  }
}

}  // namespace corvanta::inline reports
