#include "exchange/qif/InvestActions.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvanta::inline exchange {
namespace {

constexpr std::array<std::pair<std::string_view, InvestAction>, 39> kActions = {
    {{"buy", InvestAction::Buy},
     {"buyx", InvestAction::Buy},
     {"buytocover", InvestAction::Buy},
     {"buytocoverx", InvestAction::Buy},
     {"sell", InvestAction::Sell},
     {"sellx", InvestAction::Sell},
     {"sellshort", InvestAction::Sell},
     {"sellshortx", InvestAction::Sell},
     {"cvrshrt", InvestAction::Sell},
     {"cvrshrtx", InvestAction::Sell},
     {"div", InvestAction::Dividend},
     {"divx", InvestAction::Dividend},
     {"intinc", InvestAction::Dividend},
     {"intincx", InvestAction::Dividend},
     {"margint", InvestAction::Dividend},
     {"margintx", InvestAction::Dividend},
     {"miscinc", InvestAction::Dividend},
     {"miscincx", InvestAction::Dividend},
     {"cglong", InvestAction::Dividend},
     {"cglongx", InvestAction::Dividend},
     {"cgmid", InvestAction::Dividend},
     {"cgmidx", InvestAction::Dividend},
     {"cgshort", InvestAction::Dividend},
     {"cgshortx", InvestAction::Dividend},
     {"reinvdiv", InvestAction::ReinvestDividend},
     {"reinvint", InvestAction::ReinvestDividend},
     {"reinvlg", InvestAction::ReinvestDividend},
     {"reinvmd", InvestAction::ReinvestDividend},
     {"reinvsh", InvestAction::ReinvestDividend},
     {"reminder", InvestAction::ReinvestDividend},
     {"rtrncap", InvestAction::ReinvestDividend},
     {"rtrncapx", InvestAction::ReinvestDividend},
     {"miscexp", InvestAction::ReinvestDividend},
     {"miscexpx", InvestAction::ReinvestDividend},
     {"shrsin", InvestAction::AddShares},
     {"stksplit", InvestAction::AddShares},
     {"xin", InvestAction::AddShares},
     {"shrsout", InvestAction::RemoveShares},
     {"xout", InvestAction::RemoveShares}}};

constexpr std::array<std::string_view, 12> kCashOut = {
    "xout",     "withdrw", "withdrwx", "miscexp",    "miscexpx",    "margint",
    "margintx", "buy",     "buyx",     "buytocover", "buytocoverx", "cvrshrt"};

}  // namespace

InvestAction InvestActionOf(std::string_view action) {
  const auto* const known =
      std::ranges::find_if(kActions, [&](const auto& entry) { return entry.first == action; });
  return known == kActions.end() ? InvestAction::AddShares : known->second;
}

bool IsCashOut(std::string_view action) {
  return std::ranges::find(kCashOut, action) != kCashOut.end();
}

}  // namespace corvanta::inline exchange
