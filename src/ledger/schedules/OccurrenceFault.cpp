#include "ledger/schedules/OccurrenceFault.h"

#include "ledger/accounts/ClosedAccounts.h"

namespace corvanta::inline ledger {

std::string OccurrenceFault(OccurrenceResult result, const std::string& day) {
  switch (result) {
    case OccurrenceResult::Done:
      break;
    case OccurrenceResult::NotDue:
      return "The schedule has no payment due on " + day + ".";
    case OccurrenceResult::AlreadyPosted:
      return "The payment of " + day + " is posted already.";
    case OccurrenceResult::ClosedAccount:
      return kAccountClosed;
    case OccurrenceResult::NoRate:
      return "There is no exchange rate for the payment of " + day + "; it stays pending.";
    case OccurrenceResult::EarlierPending:
      return "An earlier payment is waiting. Post or skip that one first.";
  }
  return {};
}

}  // namespace corvanta::inline ledger
