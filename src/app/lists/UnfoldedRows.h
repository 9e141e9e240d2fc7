#pragma once

#include "app/ViewHost.h"

#include <QObject>

#include <cstdint>
#include <set>

namespace corvanta::inline app {

class RegisterView;

// Shows the lines of split transactions in the register, below their row: by a click on its mark,
// by Right and Left, + and -, or by the command. A row stays unfolded as long as its account is
// shown.
class UnfoldedRows : public QObject {
  Q_OBJECT

 public:
  // Both live as long as the parent.
  UnfoldedRows(const ViewPlace& place, RegisterView& view, QObject* parent);

  // Throws StoreError.
  void Unfold(std::int64_t transactionId);
  void Fold(std::int64_t transactionId);
  void Toggle(std::int64_t transactionId);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Whether the key has done something.
  bool HandleKey(int key);
  // The row whose mark is there; 0 for none.
  [[nodiscard]] std::int64_t MarkAt(const QPoint& place) const;
  // Reads the lines of the account's rows anew; drops those of another one.
  void Follow();
  // Makes room for the lines again after the rows were put in another order.
  void MakeRoom();
  // Makes the row as high as it is with so many lines.
  void SetLines(int row, std::size_t lines);

  ViewPlace place_;
  RegisterView& view_;
  std::int64_t account_ = 0;
  std::set<std::int64_t> keys_;
};

}  // namespace corvanta::inline app
