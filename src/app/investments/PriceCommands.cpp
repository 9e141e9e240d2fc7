#include "app/investments/PriceCommands.h"

#include "app/LedgerSession.h"
#include "app/ViewHost.h"
#include "app/investments/InvestmentsView.h"
#include "controls/QtText.h"
#include "invest/InvestDialogs.h"
#include "invest/prices/PriceRound.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <algorithm>

namespace corvanta::inline app {
namespace {

constexpr const char* kTitle = "Download Prices";

std::string Counted(std::size_t count, const std::string& one, const std::string& many) {
  return count == 1 ? "1 " + one : std::to_string(count) + " " + many;
}

std::string Came(const PriceRound::Result& result) {
  if (result.stored == 0) return "No price was downloaded";
  return Counted(result.stored, "price was", "prices were") + " downloaded";
}

// True when the person wants to see the data sources.
bool TellRemarks(const PriceRound::Result& result, Prompts& prompts) {
  const auto missing = static_cast<std::size_t>(std::ranges::count_if(
      result.remarks, [](const PriceRound::Remark& remark) { return !remark.isStored; }));
  const std::string list = "\n\n" + RemarksText(result.remarks);
  if (missing == 0) {
    prompts.Tell(kTitle, Came(result) + "." + list);
    return false;
  }
  return prompts.Ask(kTitle,
                     Came(result) + ", " + Counted(missing, "is", "are") + " missing." + list +
                         "\nDo you want to see where the prices come from?",
                     Icon::Warning);
}

}  // namespace

void DownloadAllPrices(const ViewPlace& place) {
  PriceRound round(place.session.Ledger(), place.platform);
  const std::vector<PriceRound::Asked> all = round.All();
  if (all.empty()) {
    place.platform.prompts.Tell(kTitle,
                                "No investment has a data source with an address. Choose one in "
                                "the investment, or enter prices in its price history.");
    return;
  }
  const PriceRound::Result result = round.Download(all);
  if (result.stored > 0) place.host.Reload();
  const std::string stop = result.wasStopped ? "Stopped: " : "";
  place.host.Notice(ToQt(stop + Came(result)));
  if (result.remarks.empty() || !TellRemarks(result, place.platform.prompts)) return;
  const auto first = std::ranges::find(result.remarks, false, &PriceRound::Remark::isStored);
  if (OpenSources(InvestHere(place), first->asked.dataId)) place.host.Reload();
}

}  // namespace corvanta::inline app
