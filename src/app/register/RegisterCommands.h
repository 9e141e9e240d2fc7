#pragma once

#include "app/MainView.h"
#include "app/ViewHost.h"
#include "ledger/transactions/StatusBook.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <vector>

class QMenu;
class QPoint;

namespace corvanta::inline app {

class RegisterView;

// The commands on the rows of the register: its pop-up menu, the menu of transactions, and what the
// Edit menu means there.
class RegisterCommands : public QObject {
  Q_OBJECT

 public:
  RegisterCommands(const ViewPlace& place, RegisterView& view);

  // Of the choice as it stands; the clipboard is CanPaste()'s.
  [[nodiscard]] bool Can(EditTask task) const;
  // Whether the clipboard has transactions of this data file.
  [[nodiscard]] bool CanPaste() const;
  // In that account, 0 for none.
  void Do(EditTask task, std::int64_t accountId);
  // Marks the commands for the row in use.
  void Mark(bool isShown);

 private:
  void ConnectMenu();
  void ConnectStatus();
  // Tells that the shown account is closed, or that of one of these rows where several are shown,
  // and returns true when it is.
  bool IsAccountClosed(const char* title, Keys transactionIds = {});
  // Runs a change of many rows with the words for it in the status bar.
  void ChangeRows(const std::function<void()>& change);
  void ApplyStatus(StatusCommand command, bool isTicked);
  void MarkRow(std::int64_t key);
  // The chosen transaction, or several at once.
  void Edit();
  // A row was opened in the list: it, or with it all that are chosen.
  void Open(std::int64_t key);
  void Copy();
  void Paste(std::int64_t accountId);
  void Delete();
  void ShowMenu(QPoint place);
  // The other half of a transfer.
  void ShowTwin();
  // The schedule that the row was made from.
  void EditScheduleOfRow();
  [[nodiscard]] std::vector<std::int64_t> Copied() const;
  // 0 while another view is in front.
  [[nodiscard]] std::int64_t RowInUse() const;

  ViewPlace place_;
  RegisterView& view_;
  QMenu* menu_;
};

}  // namespace corvanta::inline app
