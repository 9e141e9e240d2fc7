#include "cli/invest/HoldingsCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/AccountArgument.h"
#include "cli/output/OutputTable.h"
#include "invest/rates/WebRates.h"
#include "ledger/clsCorvanta.h"
#include "platform/Clock.h"
#include "platform/Decimal.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Holdings";

std::vector<OutputColumn> WithReturns(std::vector<OutputColumn> columns, bool with) {
  if (!with) return columns;
  columns.push_back({"Paid In", OutputKind::Money});
  for (const char* name : {"Money-Weighted", "Time-Weighted", "Time-Weighted a Year"}) {
    columns.push_back({name, OutputKind::Number});
  }
  return columns;
}

double Percent(double part) {
  constexpr int kDecimals = 4;
  return Rounded(part * 100, kDecimals);
}

void AddReturns(std::vector<Value>& row, const PeriodReturn& earned) {
  const auto percent = [](const std::optional<double>& part) {
    return part ? Value(Percent(*part)) : Value();
  };
  row.emplace_back(earned.paidIn);
  row.push_back(percent(earned.moneyWeighted));
  const auto& weighted = earned.timeWeighted;
  row.push_back(weighted ? Value(Percent(weighted->whole)) : Value());
  row.push_back(weighted ? percent(weighted->annual) : Value());
}

}  // namespace

Parser* HoldingsCommand::Declare(Parser& parser) {
  Parser* command =
      parser.AddCommand("holdings", "What is held of each investment, and what it has earned");
  command->AddOption("account", account_,
                     "The account's name, or # and its key; all accounts without it");
  period_.Declare(*command);
  command->AddOption("--cost", cost_, "How costs are counted: average, fifo (the setting else)")
      ->Correct(OneOf({"average", "fifo"}));
  command->AddFlag("--sold", withSold_, "Also what is sold out");
  Argument* totals = command->AddFlag("--totals", totals_, "What they come to, for each currency");
  command->AddOption("--in", currency_, "With --totals: one more line, in that currency")
      ->TypeName("CODE")
      ->Needs(totals);
  return command;
}

CostMethod HoldingsCommand::Method(Session& session) const {
  if (cost_.empty()) return ChosenCostMethod(session.Machine().registry);
  return cost_ == "fifo" ? CostMethod::FirstInFirstOut : CostMethod::Average;
}

ExitStatus HoldingsCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  HoldingsScope scope;
  scope.method = Method(session);
  scope.withSold = withSold_;
  if (!account_.empty()) {
    const std::optional<AccountRow> account = AccountArgument{account_}.Find(ledger, session);
    if (!account) return ExitStatus::Refused;
    scope.accountId = account->accountId;
  }
  scope.period = period_.Get();
  if (scope.period && period_.to.empty()) scope.period->to = session.Machine().clock.Today();
  const HoldingsList list = ReadHoldings(ledger, scope);
  if (totals_) return PrintTotals(list, ledger, session);
  if (list.holdings.empty()) session.Tell(kTitle, "There are no investments held");
  if (!list.holdings.empty() || session.Options().format != "text") PrintHoldings(list, session);
  return ExitStatus::Done;
}

void HoldingsCommand::PrintHoldings(const HoldingsList& list, Session& session) const {
  const bool withReturns = period_.Get().has_value();
  OutputTable table(WithReturns({{"Account"},
                                 {"Investment"},
                                 {"Symbol"},
                                 {"Currency"},
                                 {"Units", OutputKind::Number},
                                 {"Average Cost", OutputKind::Number},
                                 {"Cost", OutputKind::Money},
                                 {"Price", OutputKind::Number},
                                 {"Price Date", OutputKind::Date},
                                 {"Value", OutputKind::Money},
                                 {"Share", OutputKind::Number},
                                 {"Unrealised", OutputKind::Money},
                                 {"Realised", OutputKind::Money},
                                 {"Dividends", OutputKind::Money}},
                                withReturns));
  for (const Holding& row : list.holdings) {
    std::vector<Value> values = {row.account,
                                 row.investment,
                                 row.symbol,
                                 row.currency,
                                 row.units,
                                 Rounded(row.averageCost, 9),
                                 row.cost,
                                 row.price ? Value(row.price->price) : Value(),
                                 row.price ? Value(row.price->date) : Value(),
                                 row.value,
                                 Percent(row.share),
                                 row.unrealised,
                                 row.realised,
                                 row.dividends};
    if (withReturns) AddReturns(values, row.earned);
    table.AddRow(std::move(values));
  }
  session.Print(table);
}

ExitStatus HoldingsCommand::PrintTotals(const HoldingsList& list, clsCorvanta& ledger,
                                        Session& session) const {
  const bool withReturns = period_.Get().has_value();
  OutputTable table(WithReturns({{"Currency"},
                                 {"Cost", OutputKind::Money},
                                 {"Value", OutputKind::Money},
                                 {"Unrealised", OutputKind::Money},
                                 {"Realised", OutputKind::Money},
                                 {"Dividends", OutputKind::Money}},
                                withReturns));
  const auto add = [&](const std::string& name, const HoldingTotal& total, bool isOne) {
    std::vector<Value> values = {name,           total.cost,     total.value, total.unrealised,
                                 total.realised, total.dividends};
    if (withReturns && isOne) values.resize(values.size() + 4);
    if (withReturns && !isOne) AddReturns(values, total.earned);
    table.AddRow(std::move(values));
  };
  for (const HoldingTotal& total : list.totals) add(total.currency, total, false);
  std::vector<std::string> missing;
  if (!currency_.empty()) {
    WebRates rates(ledger, session.Machine());
    const std::string code = ToUpper(currency_);
    const ConvertedTotal sum = Converted(list.totals, code, rates);
    add("All in " + code, sum.total, true);
    missing = sum.missing;
    for (const std::string& notice : sum.notices) session.Tell(kTitle, notice);
  }
  session.Print(table);
  for (const std::string& code : missing) {
    session.Tell(kTitle, "There is no exchange rate for " + code + ", which is left out");
  }
  return missing.empty() ? ExitStatus::Done : ExitStatus::MachineFailed;
}

}  // namespace corvanta::inline cli
