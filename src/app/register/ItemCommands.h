#pragma once

#include "app/ViewHost.h"

#include <QObject>
#include <QStringList>

class QDropEvent;

namespace corvanta::inline app {

class MainView;
class RegisterView;

// What the menu of transactions does with the rows of the register beside editing them: deleting,
// copying and pasting, their keywords and their attachments. A file that is dropped on a row is
// attached to it.
class ItemCommands : public QObject {
  Q_OBJECT

 public:
  // `owner` is the view that shows the register.
  ItemCommands(const ViewPlace& place, RegisterView& view, MainView& owner, QObject* parent);

  // Marks the commands for the choice.
  void Mark(bool isShown);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ChooseKeywords();
  void ShowAttachments();
  void Attach(std::int64_t transactionId, const QStringList& paths);
  // What other programs have changed in attached files is taken back.
  void TakeBack();
  // The row below the mouse; 0 for none.
  [[nodiscard]] std::int64_t RowAt(const QPoint& place) const;
  [[nodiscard]] bool Drop(QDropEvent& event);

  ViewPlace place_;
  RegisterView& view_;
  MainView& owner_;
};

}  // namespace corvanta::inline app
