// What an import costs, counted in steps of the library's own machine and not in time.
#include "exchange/ExchangeTest.h"

#include <sqlcipher/sqlite3.h>

namespace corvanta {
namespace {

constexpr int kStepsPerTick = 100;
long ticks = 0;

int CountTick(void*) {
  ++ticks;
  return 0;
}

int Watch(sqlite3* database, char**, const void*) {
  sqlite3_progress_handler(database, kStepsPerTick, CountTick, nullptr);
  return SQLITE_OK;
}

// Every connection that is opened while it lives is counted.
class Watched {
 protected:
  Watched() { sqlite3_auto_extension(reinterpret_cast<void (*)()>(&Watch)); }
  ~Watched() { sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(&Watch)); }
};

class ImportCost : private Watched, public ExchangeTest {
 protected:
  long CostOf(const std::string& text) {
    const long before = ticks;
    EXPECT_EQ(Import(text).outcome, ImportOutcome::Complete);
    return ticks - before;
  }
};

// Four times as many names that the ledger has not cost four times as much, and not sixteen times.
TEST_F(ImportCost, OfNewNamesDoesNotGrowWithTheirNumber) {
  const auto categories = [](const std::string& kind, int count) {
    std::string text = "!Account\nNMine\n^\n!Type:Bank\n";
    for (int i = 0; i < count; ++i) {
      const std::string name = kind + std::to_string(i);
      text += "D13/2/2020\nT-1\nPShop\nL" + name + ":" + name + "\n^\n";
    }
    return text;
  };
  const auto accounts = [](const std::string& kind, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
      text += "!Account\nN" + kind + std::to_string(i) + "\n^\n!Type:Bank\nD13/2/2020\nT-1\n^\n";
    }
    return text;
  };
  const long few = CostOf(categories("A", 400));
  EXPECT_GT(few, 100);
  EXPECT_LT(CostOf(categories("B", 1600)), 6 * few);
  const long fewAccounts = CostOf(accounts("A", 200));
  EXPECT_LT(CostOf(accounts("B", 800)), 6 * fewAccounts);
}

}  // namespace
}  // namespace corvanta
