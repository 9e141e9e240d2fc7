#include "cli/reports/WhatIfArgument.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/AccountArgument.h"
#include "cli/arguments/Arguments.h"
#include "ledger/Money.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/clsCorvanta.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"
#include "reports/query/WhatIfForm.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline cli {
namespace {

struct Parts {
  std::string day;
  std::string account;  // may have colons of its own
  std::string amount;
  std::string text;
};

std::vector<std::string> ItemsOf(const std::string& text) {
  std::vector<std::string> items(1);
  for (const char sign : text) {
    if (sign == ':') {
      items.emplace_back();
    } else {
      items.back() += sign;
    }
  }
  return items;
}

// Split at that item, which is the amount: the account stands before it, the text behind it.
Parts PartsAt(const std::vector<std::string>& items, std::size_t amount) {
  const auto join = [&items](std::size_t from, std::size_t to) {
    std::string text;
    for (std::size_t i = from; i < to; ++i) text += (i == from ? "" : ":") + items[i];
    return text;
  };
  return {items.front(), join(1, amount), items[amount], join(amount + 1, items.size())};
}

// The ways to read it, by the place of the amount, which is one of the items that are numbers:
// names of accounts and texts may have colons and numbers, too.
std::vector<Parts> ReadingsOf(const std::string& typed) {
  const std::vector<std::string> items = ItemsOf(typed);
  std::vector<Parts> readings;
  for (std::size_t i = 1; i < items.size(); ++i) {
    if (NumberFault(items[i]).empty()) readings.push_back(PartsAt(items, i));
  }
  return readings;
}

// The amount is the first number behind the name of an account; without such a name the first one.
Parts PartsOf(const std::string& typed, clsCorvanta& ledger) {
  const std::vector<Parts> readings = ReadingsOf(typed);
  const auto known = std::ranges::find_if(readings, [&ledger](const Parts& each) {
    return !each.account.empty() && ledger.Accounts().FindAccount(each.account);
  });
  return known == readings.end() ? readings.front() : *known;
}

std::string Fault(const std::string& typed) {
  const std::vector<Parts> readings = ReadingsOf(typed);
  if (readings.empty()) return "'" + typed + "' is not of the form DATE:ACCOUNT:AMOUNT[:TEXT]";
  return DateFault(readings.front().day);
}

}  // namespace

void WhatIfArgument::Declare(Parser& command) {
  command
      .AddOption("--what-if", payments_,
                 "In a forecast also that payment, which is not stored; may be given several times")
      ->Repeated()
      ->TypeName("DATE:ACCOUNT:AMOUNT[:TEXT]")
      ->Check(Fault);
}

bool WhatIfArgument::Apply(ReportRequest& request, clsCorvanta& ledger, Session& session) const {
  const std::vector<std::int64_t>& kept = request.filter.Keys(FilterKind::Account);
  const Date today = session.Machine().clock.Today();
  for (const std::string& payment : payments_) {
    const Parts parts = PartsOf(payment, ledger);
    if (parts.account.empty() && kept.size() != 1) {
      session.Tell("Account", "Say which account \"" + payment +
                                  "\" is of (DATE:ACCOUNT:AMOUNT), or keep the forecast to one "
                                  "account with --account.");
      return false;
    }
    const std::string name =
        parts.account.empty() ? "#" + std::to_string(kept.front()) : parts.account;
    const auto account = AccountArgument{name}.Find(ledger, session);
    if (!account) return false;
    const WhatIf made{Date::FromIso(parts.day).value_or(Date()), account->accountId,
                      RoundToCurrency(NumberOf(parts.amount), account->currency),
                      std::string(Trim(parts.text))};
    std::optional<Warning> warning = CheckWhatIf(FormOf(made), today);
    if (!warning) warning = CheckCounts(made, *account, request, today);
    if (warning) {
      session.Tell(warning->title, "\"" + payment + "\": " + warning->text);
      return false;
    }
    request.whatIf.push_back(made);
  }
  return true;
}

}  // namespace corvanta::inline cli
