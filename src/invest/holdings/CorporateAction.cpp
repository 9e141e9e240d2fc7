#include "invest/holdings/CorporateAction.h"

#include "invest/holdings/Holdings.h"
#include "invest/holdings/HoldingsReader.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/investments/PriceBook.h"
#include "platform/Platform.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"

#include <fmt/format.h>

#include <map>

namespace corvanta::inline invest {
namespace {

constexpr const char* kTitle = "Save Warning";

Warning Refused(const char* text, const char* field) {
  return {kTitle, text, field};
}

bool IsAbove0(const std::optional<double>& number) {
  return number && *number > 0 && *number < 1e9;
}

const char* NameOf(CorporateKind kind) {
  if (kind == CorporateKind::Merger) return "Merger";
  return kind == CorporateKind::Split ? "Split" : "Spin-off";
}

// Puts the rows of one account's holding together.
class RowMaker {
 public:
  RowMaker(const CorporateForm& form, std::int64_t accountId, std::string account,
           CorporatePlan& plan)
      : form_(form), accountId_(accountId), account_(std::move(account)), plan_(plan) {}

  void Make(double units, double cost, const std::string& own, const std::string& other) {
    const double given = units * *form_.given / *form_.held;
    if (form_.kind == CorporateKind::Split && given > units) {
      return Add(InvestAction::AddShares, form_.payeeId, own, given - units, 0);
    }
    Add(InvestAction::RemoveShares, form_.payeeId, own, units, cost);
    if (form_.kind == CorporateKind::Split) {
      return Add(InvestAction::AddShares, form_.payeeId, own, given, cost);
    }
    const double over = form_.kind == CorporateKind::Merger ? cost : cost * *form_.costPart / 100;
    if (form_.kind == CorporateKind::SpinOff) {
      Add(InvestAction::AddShares, form_.payeeId, own, units, cost - over);
    }
    Add(InvestAction::AddShares, form_.otherId, other, given, over);
  }

 private:
  void Add(InvestAction action, std::int64_t payee, const std::string& name, double units,
           double cost) {
    CorporateRow row{account_, name, {}};
    row.record.accountId = accountId_;
    row.record.payeeId = payee;
    row.record.action = action;
    row.record.shares = units;
    row.record.price = cost / units;
    row.record.date = *form_.day;
    row.record.description =
        fmt::format("{} {:g} for {:g}", NameOf(form_.kind), *form_.given, *form_.held);
    plan_.rows.push_back(std::move(row));
  }

  const CorporateForm& form_;
  std::int64_t accountId_;
  std::string account_;
  CorporatePlan& plan_;
};

std::string NameIn(const std::unordered_map<std::int64_t, HoldingName>& names, std::int64_t key) {
  const auto found = names.find(key);
  return found == names.end() ? std::string() : found->second.investment;
}

// The price that the split makes of the last one before it; nullopt where there is none, or the day
// has one already.
std::optional<double> PriceAfter(Connection& store, const CorporateForm& form) {
  std::optional<DayPrice> last;
  for (const DayPrice& price : ReadPrices(store, form.payeeId)) {
    if (price.date <= *form.day) last = price;
  }
  if (!last || last->date == *form.day || last->price == 0) return std::nullopt;
  return last->price * *form.held / *form.given;
}

}  // namespace

CorporateAction::CorporateAction(clsCorvanta& ledger, Platform& platform)
    : ledger_(ledger), platform_(platform) {}

std::optional<Warning> CorporateAction::Check(const CorporateForm& form) const {
  if (form.payeeId == 0) return Refused("You need to select an Investment", "cmbInvestment");
  if (!form.day) return Refused("You need to enter a valid Date", "dtInvest");
  if (!IsAbove0(form.given)) {
    return Refused("You need to enter how many units are given", "txtGiven");
  }
  if (!IsAbove0(form.held)) {
    return Refused("You need to enter for how many units they are given", "txtHeld");
  }
  if (form.kind == CorporateKind::Split) {
    if (*form.given != *form.held) return std::nullopt;
    return Refused("A split that gives as many units as there were changes nothing", "txtGiven");
  }
  if (form.otherId == 0 || form.otherId == form.payeeId) {
    return Refused("You need to select another Investment, whose units are given", "cmbOther");
  }
  const bool isPart = form.costPart && *form.costPart >= 0 && *form.costPart <= 100;
  if (form.kind == CorporateKind::SpinOff && !isPart) {
    return Refused("You need to enter which part of the cost goes over, from 0 to 100 percent",
                   "txtCostPart");
  }
  return std::nullopt;
}

CorporatePlan CorporateAction::Plan(const CorporateForm& form) const {
  CorporatePlan plan;
  plan.warning = Check(form);
  if (plan.warning) return plan;
  Connection& store = ledger_.Store();
  const auto names = ReadHoldingNames(store);
  const auto accounts = ReadHoldingAccounts(store);
  std::map<std::int64_t, CostBasis> held;
  for (const HoldingRow& row : ReadHoldingRows(store, 0)) {
    if (row.payeeId != form.payeeId || row.day > *form.day) continue;
    held.try_emplace(row.accountId, ChosenCostMethod(platform_.registry)).first->second.Add(row);
  }
  for (const auto& [accountId, basis] : held) {
    const auto account = accounts.find(accountId);
    if (account == accounts.end() || basis.Units() <= 0) continue;
    if (account->second.closed) {
      plan.closed.push_back(account->second.account);
      continue;
    }
    RowMaker(form, accountId, account->second.account, plan)
        .Make(basis.Units(), basis.Cost(), NameIn(names, form.payeeId),
              NameIn(names, form.otherId));
  }
  if (plan.rows.empty()) {
    plan.warning = Refused("No open account holds this Investment on that day", "cmbInvestment");
  } else if (form.kind == CorporateKind::Split && form.writesPrice) {
    plan.price = PriceAfter(store, form);
  }
  return plan;
}

std::size_t CorporateAction::Write(const CorporateForm& form, const CorporatePlan& plan) {
  const UndoLog::Step step = ledger_.Undo().Begin(NameOf(form.kind));
  Transaction all = ledger_.Store().Begin();
  for (const CorporateRow& row : plan.rows) {
    InvestmentTransaction record = row.record;
    ledger_.Investments().SaveInvestmentTransaction(record);
  }
  if (plan.price) {
    ledger_.Prices().StorePrice(form.payeeId, *form.day, *plan.price);
  }
  all.Commit();
  return plan.rows.size();
}

}  // namespace corvanta::inline invest
