#include "reports/query/ReportClause.h"

#include "ledger/investments/InvestmentRecord.h"
#include "platform/TextCase.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline reports {
namespace {

// What no transaction has, so that a list of names that are none does not become an empty one.
constexpr std::int64_t kNoAction = -1;

constexpr const char* kParents =
    "select distinct AllocatedItem from tblTransactions WHERE AllocatedItem <> 0";

std::string Condition(const std::string& column, const std::string& list) {
  return list.empty() ? std::string() : "(" + column + " IN (" + list + ")) AND ";
}

}  // namespace

std::string ReportClause::ActionCodes() const {
  std::vector<std::int64_t> codes;
  for (const InvestActionName& each : kInvestActions) {
    for (const std::string& name : request_.actions) {
      if (!EqualFolded(name, each.name)) continue;
      codes.push_back(static_cast<std::int64_t>(each.action));
      break;
    }
  }
  if (codes.empty() && !request_.actions.empty()) codes.push_back(kNoAction);
  return JoinKeys(codes);
}

std::string ReportClause::Compose(const std::string& days, Payments payments) const {
  // The filter of the views says its part itself; actions and payment types stand between.
  RowFilter lists = request_.filter;
  lists.SetKeys(FilterKind::Keyword, {});
  lists.SetSearch({});
  RowFilter keywords;
  keywords.SetKeys(FilterKind::Keyword, request_.filter.Keys(FilterKind::Keyword));
  RowFilter text;
  text.SetSearch(request_.filter.Search());

  std::string clause = " WHERE " + request_.status.Clause();
  if (!request_.withClosedAccounts) clause += "CloseAccount <> 1 AND ";
  if (request_.withoutTransfers) clause += " (T.TransferID = 0 or isNull(T.TransferID)) AND ";
  clause += days + lists.Clause() + Condition("T.Action", ActionCodes()) + keywords.Clause();
  clause += Condition(payments == Payments::Joined ? "P.PaymentID" : "T.PaymentID",
                      JoinKeys(request_.paymentTypes));
  clause += text.Clause();
  constexpr std::size_t kAnd = 4;
  return clause.replace(clause.size() - kAnd, kAnd, " ");
}

std::string ReportClause::Where(Payments payments) const {
  if (!request_.range) return Compose({}, payments);
  return Compose("[Date] Between " + SqlDate(request_.range->from) + " AND " +
                     SqlEndOf(request_.range->to) + " AND ",
                 payments);
}

std::string ReportClause::WhereUntil(const std::optional<Date>& day, Payments payments) const {
  const std::string clause = Compose({}, payments);
  return day ? clause + "AND T.[DATE] <= " + SqlEndOf(*day) + " " : clause;
}

std::optional<Date> ReportClause::DayBefore() const {
  if (!request_.range || request_.range->from <= Date::FromYmd(1, 1, 1)) return std::nullopt;
  return request_.range->from.AddDays(-1);
}

std::string ReportClause::AccountCondition() const {
  const bool some = request_.filter.IsSet(FilterKind::Account);
  const std::string list = " AccountId in (" + request_.filter.List(FilterKind::Account) + ") ";
  if (request_.withClosedAccounts) return some ? " WHERE " + list : std::string();
  return some ? " WHERE CloseAccount <> 1 AND " + list : " WHERE CloseAccount <> 1 ";
}

std::string ReportClause::KeywordList() const {
  return request_.filter.List(FilterKind::Keyword);
}

std::string ReportClause::Linked() const {
  return "(Select TransactionID, Min(KeywordID) as KeywordID from tblKeywordLink WHERE KeywordID "
         "in (" +
         KeywordList() + ") Group by TransactionID) K";
}

std::string ReportClause::WithKeywords(const std::string& tables) const {
  if (!HasKeywords()) return tables;
  return tables + " LEFT JOIN " + Linked() + " ON K.TransactionId = T.TransactionID ";
}

std::string ReportClause::KeywordsWith(const std::string& tables) const {
  if (!HasKeywords()) return tables;
  return Linked() + " RIGHT JOIN (" + tables + ") ON T.TransactionId = K.TransactionID ";
}

std::string ReportClause::WithoutSplitParents() {
  return std::string("AND T.TransactionId NOT IN (") + kParents + ")";
}

std::string ReportClause::WithoutOtherSplitParents() const {
  if (!HasKeywords()) return WithoutSplitParents();
  const std::string linked =
      "(Select TransactionID from tblKeywordLink WHERE KeywordID in (" + KeywordList() + "))";
  return std::string("AND T.TransactionId NOT IN (") + kParents + " AND AllocatedItem NOT IN " +
         linked + ") AND (isNull(T.AllocatedItem) or T.AllocatedItem NOT IN " + linked + ")";
}

}  // namespace corvanta::inline reports
