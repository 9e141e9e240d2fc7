#include "app/reminders/RemindersPanel.h"

#include "app/reminders/ReminderDelegate.h"
#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Locale.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline app {
namespace {
constexpr int kSmallestWidth = 24 * kRhythm;
}

RemindersPanel::RemindersPanel(const Locale& locale, const Commands& commands, QWidget* parent)
    : QWidget(parent),
      locale_(locale),
      commands_(commands),
      list_(new QTreeWidget(this)),
      lblNone_(new MutedLabel(this)) {
  setObjectName(QStringLiteral("pnlReminders"));
  setMinimumWidth(kSmallestWidth);
  auto* title = new QLabel(tr("Reminders"), this);
  title->setFont(ScaledFont(1, QFont::DemiBold));
  lblNone_->setObjectName(QStringLiteral("lblNoReminders"));
  lblNone_->setText(tr("None Available"));
  list_->setObjectName(QStringLiteral("tvReminders"));
  list_->setAccessibleName(tr("Reminders"));
  list_->setHeaderHidden(true);
  list_->setRootIsDecorated(false);
  list_->setIndentation(0);
  list_->setFrameShape(QFrame::NoFrame);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setItemDelegate(new ReminderDelegate(list_));
  list_->setContextMenuPolicy(Qt::ActionsContextMenu);
  list_->addActions({commands_.open, commands_.post, commands_.skip});
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(kRhythm);
  buttons->addWidget(MakeButton(commands_.post, "cmdPost"));
  buttons->addWidget(MakeButton(commands_.skip, "cmdSkip"));
  buttons->addStretch(1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kRhythm, 2 * kRhythm, kRhythm, kRhythm);
  column->setSpacing(kRhythm);
  title->setContentsMargins(kRhythm, 0, 0, 0);
  lblNone_->setContentsMargins(kRhythm, 0, 0, 0);
  column->addWidget(title);
  column->addWidget(lblNone_);
  column->addWidget(list_, 1);
  column->addLayout(buttons);
  list_->installEventFilter(this);
  setFocusProxy(list_);
  connect(list_, &QTreeWidget::itemSelectionChanged, this, &RemindersPanel::ChoiceChanged);
  connect(list_, &QTreeWidget::itemActivated, commands_.open, [this] {
    if (Chosen() != nullptr) commands_.open->trigger();
  });
}

QPushButton* RemindersPanel::MakeButton(QAction* action, const char* name) {
  auto* button = new QPushButton(action->text(), this);
  button->setObjectName(QLatin1String(name));
  button->setToolTip(action->toolTip());
  const auto take = [button, action] { button->setEnabled(action->isEnabled()); };
  connect(action, &QAction::changed, button, take);
  connect(button, &QPushButton::clicked, action, &QAction::trigger);
  take();
  return button;
}

QString RemindersPanel::Details(const Reminder& reminder) const {
  QStringList parts{ToQt(locale_.FormatShortDate(reminder.date))};
  if (reminder.IsPosted()) {
    parts.append(reminder.uncleared > 1 ? tr("posted, %1 uncleared").arg(reminder.uncleared)
                                        : tr("posted, uncleared"));
  } else if (reminder.waitsForRate) {
    parts.append(tr("waits for an exchange rate"));
  } else if (!reminder.periodName.empty()) {
    parts.append(ToQt(reminder.periodName));
  }
  parts.append(ToQt(reminder.account));
  return parts.join(QStringLiteral("  ·  "));
}

void RemindersPanel::AddGroup(const QString& title, const std::vector<Reminder>& reminders,
                              bool isOverdue) {
  if (reminders.empty()) return;
  groups_.push_back(&reminders);
  auto* group = new QTreeWidgetItem(list_, {title});
  group->setFlags(Qt::ItemIsEnabled);
  for (const Reminder& reminder : reminders) {
    QString amount = ToQt(locale_.FormatNumber(reminder.amount));
    if (!reminder.currency.empty()) amount += u' ' + ToQt(reminder.currency);
    const QString name = reminder.payee.empty() ? ToQt(reminder.description) : ToQt(reminder.payee);
    auto* item = new QTreeWidgetItem(group, {name});
    item->setData(0, ReminderDelegate::kAmountRole, amount);
    item->setData(0, ReminderDelegate::kIsOutRole, reminder.amount < 0);
    item->setData(0, ReminderDelegate::kDetailsRole, Details(reminder));
    item->setData(0, ReminderDelegate::kIsOverdueRole, isOverdue);
    item->setData(0, Qt::AccessibleTextRole, name + u' ' + amount + u' ' + Details(reminder));
    item->setToolTip(0, ToQt(reminder.description));
  }
  group->setExpanded(true);
}

void RemindersPanel::SetReminders(ReminderList reminders) {
  const Reminder* chosen = Chosen();
  const Reminder former = chosen == nullptr ? Reminder() : *chosen;
  const std::pair<int, int> place = Place();
  reminders_ = std::move(reminders);
  groups_.clear();
  list_->clear();
  AddGroup(tr("Overdue Items"), reminders_.overdue, true);
  AddGroup(tr("Future Items"), reminders_.future, false);
  lblNone_->setVisible(reminders_.IsEmpty());
  list_->setVisible(!reminders_.IsEmpty());
  if (place.first >= 0) Choose(former, place);
  Q_EMIT ChoiceChanged();
}

void RemindersPanel::Enter() {
  list_->setFocus();
  if (Chosen() == nullptr && list_->topLevelItemCount() > 0) {
    list_->setCurrentItem(list_->topLevelItem(0)->child(0));
  }
}

// A command's letter must not choose another payment where the command cannot be had.
bool RemindersPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == list_ && event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<const QKeyEvent*>(event);
    const bool isLetter = !key->text().isEmpty() && key->text().front().isLetterOrNumber();
    if (isLetter && (key->modifiers() & ~Qt::ShiftModifier) == 0) return true;
  }
  return QWidget::eventFilter(watched, event);
}

std::pair<int, int> RemindersPanel::Place() const {
  const QList<QTreeWidgetItem*> items = list_->selectedItems();
  if (items.isEmpty() || items.constFirst()->parent() == nullptr) return {-1, -1};
  QTreeWidgetItem* group = items.constFirst()->parent();
  return {list_->indexOfTopLevelItem(group), group->indexOfChild(items.constFirst())};
}

const Reminder* RemindersPanel::Chosen() const {
  const auto [group, row] = Place();
  if (group < 0) return nullptr;
  return &groups_.at(static_cast<std::size_t>(group))->at(static_cast<std::size_t>(row));
}

void RemindersPanel::Choose(const Reminder& former, std::pair<int, int> place) {
  for (std::size_t group = 0; group < groups_.size(); ++group) {
    const auto& rows = *groups_[group];
    const auto same = std::find_if(rows.begin(), rows.end(), [&](const Reminder& row) {
      return row.scheduleId == former.scheduleId && row.due == former.due &&
             row.isReceiving == former.isReceiving;
    });
    if (same == rows.end()) continue;
    return list_->setCurrentItem(
        list_->topLevelItem(static_cast<int>(group))->child(static_cast<int>(same - rows.begin())));
  }
  if (list_->topLevelItemCount() == 0) return;
  QTreeWidgetItem* group =
      list_->topLevelItem(std::min(place.first, list_->topLevelItemCount() - 1));
  list_->setCurrentItem(group->child(std::min(place.second, group->childCount() - 1)));
}

}  // namespace corvanta::inline app
