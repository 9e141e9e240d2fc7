#pragma once

#include "app/ViewCommand.h"
#include "app/ViewHost.h"
#include "ledger/KeySet.h"
#include "ledger/search/TransactionSearch.h"

#include <QObject>

#include <memory>
#include <vector>

class QTimer;

namespace corvanta::inline ledger {
class SearchIndex;
}

namespace corvanta::inline app {

class HitsTable;
class RegisterView;
class SearchBox;

// Searches from the register's box as a person types: in the account that is shown it goes from
// row to row, in all accounts it lists what was found. It works a few milliseconds at a time, so
// that no key has to wait for it, and begins anew with each of them.
class RegisterSearch : public QObject {
  Q_OBJECT

 public:
  // Both live as long as the parent.
  RegisterSearch(const ViewPlace& place, RegisterView& view, QObject* parent);

  // Empties the box and shows the register.
  void Leave();
  // Lets the rows of the data file go.
  void LetGo();
  // The list of what was found; in front where the register is not.
  [[nodiscard]] const HitsTable& Found() const { return *found_; }

 Q_SIGNALS:
  // What was gone to is only in the split lines of that transaction.
  void FoundInLines(qint64 transactionId);

 private:
  void Connect();
  // Looks for what is typed; `stays` where the same rows are to be found again after a change.
  void Begin(bool stays);
  // Works for a while; the timer goes on with the rest.
  void Step();
  // A piece of it; false once there is nothing left to do.
  bool Work();
  void Apply();
  void ApplyHere();
  void ApplyEverywhere();
  // Chooses that row of the register.
  void Reach(int row);
  void ShowPlace();
  void Go(bool ahead);
  void Move(int key);
  void OpenHit();
  // The register was shown anew, of whichever account.
  void Follow();
  // The row where the search began, or the one chosen since.
  [[nodiscard]] int CurrentRow() const;

  ViewPlace place_;
  RegisterView& view_;
  SearchBox& box_;
  HitsTable* found_;
  QTimer* timer_;
  std::shared_ptr<SearchIndex> index_;
  std::unique_ptr<TransactionSearch> search_;
  std::vector<int> rows_;  // of the register, that were found
  KeySet inLines_;         // those of them that are found only in their lines
  ViewCommand shown_;      // what the register shows
  int anchor_ = 0;         // the row that was chosen when the search began
  bool stays_ = false;     // the choice is left where it is
  bool isDone_ = false;
};

}  // namespace corvanta::inline app
