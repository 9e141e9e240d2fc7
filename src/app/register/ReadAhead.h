#pragma once

#include "ledger/accounts/AccountRow.h"
#include "ledger/register/RegisterShelf.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QTimer;

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {
struct AccountRow;
struct StatusFilter;
}  // namespace corvanta::inline ledger

namespace corvanta::inline app {

// Reads the long registers of the accounts that are not shown, little by little while nothing else
// happens, so that going to one of them finds it read, whatever it is sorted by. It ends with the
// data that it began with: whoever shows others starts it again.
class ReadAhead : public QObject {
  Q_OBJECT

 public:
  ReadAhead(RegisterShelf& shelf, QObject* parent);

  // Begins a while from now with the accounts, whose sums are those of the filter, the longest
  // first. It waits as long as `isBusy` says so.
  void Start(Connection& store, const std::vector<AccountRow>& accounts, const StatusFilter& filter,
             std::function<bool()> isBusy);
  // Lets go of the data file.
  void Stop();

 private:
  void Step();
  void Next();

  RegisterShelf& shelf_;
  QTimer* timer_;
  Connection* store_ = nullptr;
  std::uint64_t stamp_ = 0;  // the data as they were
  std::function<bool()> isBusy_;
  struct Wanted {
    RegisterScope scope;
    double openingBalance;
    EntrySums sums;
  };
  std::vector<Wanted> wanted_;  // the next one last
  std::shared_ptr<RegisterRows> rows_;
};

}  // namespace corvanta::inline app
