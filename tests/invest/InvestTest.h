#pragma once

#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>

#include <string>

namespace corvanta {

// A data file with the reference rows alone, whose currency source is at an address of the test's.
class InvestTest : public testing::Test {
 protected:
  static constexpr const char* kSite = "http://rates.test/";

  InvestTest() { SetSource(std::string(kSite) + "CURRENCY"); }

  void SetSource(const std::string& url) {
    Store().Execute("UPDATE tblStockData SET [URL] = " + SqlText(url) + " WHERE DataID = 1");
  }
  // The answer for two codes written together, with the rate in the place where it belongs.
  void AnswerRate(const std::string& codes, const std::string& rate) {
    Machine().download.Answer(kSite + codes,
                              "\"" + codes + "=X\"," + rate + ",\"11/20/2026\",\"5:30pm\",1,2\r\n");
  }
  [[nodiscard]] std::size_t Downloads() { return Machine().download.Requested().size(); }

  TestPlatform& Machine() { return store_.platform; }
  Platform& Services() { return store_.platform.Get(); }
  Connection& Store() { return store_.Db(); }

  TemporaryStore store_{StoreContent::Default};
};

}  // namespace corvanta
