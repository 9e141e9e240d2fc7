#pragma once

namespace corvanta::inline app {

struct ViewPlace;

// Downloads the prices of all investments in one go and says what came of it; where some did not
// come, the way to the data sources is offered.
void DownloadAllPrices(const ViewPlace& place);

}  // namespace corvanta::inline app
