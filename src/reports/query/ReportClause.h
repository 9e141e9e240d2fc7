#pragma once

#include "platform/Date.h"
#include "reports/query/ReportRequest.h"

#include <optional>
#include <string>

namespace corvanta::inline reports {

// The conditions that all reports have in common, put into SQL from one request. They speak of
// tblTransactions as T, tblAccounts as A, tblPayees as PP, tblCategory as C, tblPayments as P and
// tblKeywordLink as K.
class ReportClause {
 public:
  // Whether the statement joins the payment types; without them a transaction's own key is asked.
  enum class Payments { Joined, NotJoined };

  // The request outlives this object.
  explicit ReportClause(const ReportRequest& request) : request_(request) {}

  // " WHERE ... ", which further conditions follow as "AND ...".
  [[nodiscard]] std::string Where(Payments payments) const;
  // The same, but in place of the days of the range all days up to that one, and none left out
  // without one.
  [[nodiscard]] std::string WhereUntil(const std::optional<Date>& day, Payments payments) const;

  // The day that balances are brought forward from; nullopt where nothing lies before the range.
  [[nodiscard]] std::optional<Date> DayBefore() const;
  // " WHERE ..." for statements about accounts alone; empty where all are wanted.
  [[nodiscard]] std::string AccountCondition() const;
  [[nodiscard]] bool HasKeywords() const { return request_.filter.IsSet(FilterKind::Keyword); }
  // Joins the transactions that have one of the keywords, each once, behind a statement's other
  // tables, or before them. Both leave the tables as they are without keywords.
  [[nodiscard]] std::string WithKeywords(const std::string& tables) const;
  [[nodiscard]] std::string KeywordsWith(const std::string& tables) const;

  // "AND ...": of a split its lines and not its parent.
  [[nodiscard]] static std::string WithoutSplitParents();
  // The same for a list of transactions: a split that has one of the keywords itself is shown
  // whole, and its lines are not.
  [[nodiscard]] std::string WithoutOtherSplitParents() const;

 private:
  [[nodiscard]] std::string Compose(const std::string& days, Payments payments) const;
  [[nodiscard]] std::string ActionCodes() const;
  [[nodiscard]] std::string KeywordList() const;
  // The transactions with one of the keywords, each once, as K.
  [[nodiscard]] std::string Linked() const;

  const ReportRequest& request_;
};

}  // namespace corvanta::inline reports
