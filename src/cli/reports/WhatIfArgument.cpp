#include "cli/reports/WhatIfArgument.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/AccountArgument.h"
#include "cli/arguments/Arguments.h"
#include "ledger/Money.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"
#include "reports/query/WhatIfForm.h"

namespace corvanta::inline cli {
namespace {

struct Parts {
  std::string day;
  std::string account;  // may have colons of its own
  std::string amount;   // empty where none was found
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

// The amount is the last item that is a number: the account stands before it, the text behind it.
Parts PartsOf(const std::string& typed) {
  const std::vector<std::string> items = ItemsOf(typed);
  std::size_t amount = items.size() - 1;
  while (amount > 0 && !NumberFault(items[amount]).empty()) --amount;
  Parts parts{items.front(), {}, {}, {}};
  if (amount == 0) return parts;
  parts.amount = items[amount];
  const auto join = [&items](std::size_t from, std::size_t to) {
    std::string text;
    for (std::size_t i = from; i < to; ++i) text += (i == from ? "" : ":") + items[i];
    return text;
  };
  parts.account = join(1, amount);
  parts.text = join(amount + 1, items.size());
  return parts;
}

std::string Fault(const std::string& typed) {
  const Parts parts = PartsOf(typed);
  const std::string fault = DateFault(parts.day);
  if (parts.amount.empty()) return "'" + typed + "' is not of the form DATE:ACCOUNT:AMOUNT[:TEXT]";
  return fault;
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
    const Parts parts = PartsOf(payment);
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
