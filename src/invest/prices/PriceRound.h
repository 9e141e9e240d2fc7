#pragma once

#include "invest/prices/PriceDownload.h"
#include "ledger/Keys.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace corvanta::inline invest {

// The download of the prices of many investments in one go. It shows how far it is, ends when the
// person stops it, and asks a service that nobody answers for no further price. All that it stores
// is taken back as one step.
class PriceRound {
 public:
  // Both outlive this object.
  PriceRound(clsCorvanta& ledger, Platform& platform) : ledger_(ledger), platform_(platform) {}

  // An investment whose source is asked over the network.
  struct Asked {
    std::int64_t investmentId = 0;
    std::string investment;
    std::int64_t dataId = 0;  // its source
  };
  // All of them by name. Throws StoreError, as the next does.
  [[nodiscard]] std::vector<Asked> All() const;

  // One investment without a price, or with one that something is to be said of.
  struct Remark {
    Asked asked;
    std::string why;  // in words
    bool isStored = false;
  };
  struct Result {
    std::size_t stored = 0;
    std::vector<Remark> remarks;
    bool wasStopped = false;
  };
  // Called with every price as it was stored; may be empty.
  using Stored = std::function<void(const Asked&, const StoredPrice&)>;
  Result Download(const std::vector<Asked>& investments, const Stored& stored = {});

 private:
  void DownloadOne(const Asked& asked, const Stored& stored, Result& result);

  clsCorvanta& ledger_;
  Platform& platform_;
  PriceDownload download_{ledger_, platform_};
  std::set<std::int64_t> dead_;  // sources that nobody answers for
};

// What the remarks say, in lines of text: investments of which the same is to be said together, and
// no more lines than a person reads.
[[nodiscard]] std::string RemarksText(const std::vector<PriceRound::Remark>& remarks);

}  // namespace corvanta::inline invest
