#pragma once

#include "ledger/schedules/Reminders.h"

#include <QWidget>

#include <vector>

class QAction;
class QLabel;
class QPushButton;
class QTreeWidget;

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

// The right column: what is due, in two groups, and the commands on the chosen payment.
class RemindersPanel : public QWidget {
  Q_OBJECT

 public:
  struct Commands {
    QAction* open;
    QAction* post;
    QAction* skip;
  };
  RemindersPanel(const Locale& locale, const Commands& commands, QWidget* parent);

  // Shows these; the payment that was chosen stays so, or the one that took its place.
  void SetReminders(ReminderList reminders);
  // Gives it the keyboard, with a payment chosen.
  void Enter();
  // The chosen payment; null when none is.
  [[nodiscard]] const Reminder* Chosen() const;

 Q_SIGNALS:
  void ChoiceChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AddGroup(const QString& title, const std::vector<Reminder>& reminders, bool isOverdue);
  [[nodiscard]] QString Details(const Reminder& reminder) const;
  QPushButton* MakeButton(QAction* action, const char* name);
  // The group and the place in it of the chosen payment; -1 for none.
  [[nodiscard]] std::pair<int, int> Place() const;
  void Choose(const Reminder& former, std::pair<int, int> place);

  const Locale& locale_;
  Commands commands_;
  ReminderList reminders_;
  std::vector<const std::vector<Reminder>*> groups_;  // those that are shown
  QTreeWidget* list_;
  QLabel* lblNone_;
};

}  // namespace corvanta::inline app
