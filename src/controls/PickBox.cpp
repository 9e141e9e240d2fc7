#include "controls/PickBox.h"

#include "controls/TypedKey.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMetaObject>

namespace corvanta::inline controls {
namespace {
constexpr int kShownItems = 14;
constexpr int kShownCharacters = 28;
constexpr int kNeededCharacters = 12;  // where there is little room
}  // namespace

PickBox::PickBox(QWidget* parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(NoInsert);
  setMaxVisibleItems(kShownItems);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(kShownCharacters);
  completer()->setCompletionMode(QCompleter::PopupCompletion);
  completer()->setCaseSensitivity(Qt::CaseInsensitive);
  completer()->setFilterMode(Qt::MatchContains);
  completer()->setMaxVisibleItems(kShownItems);
  connect(lineEdit(), &QLineEdit::textEdited, this, &PickBox::ApplyTyped);
  lineEdit()->installEventFilter(this);
  completer()->popup()->installEventFilter(this);
}

QSize PickBox::minimumSizeHint() const {
  const int more = (kShownCharacters - kNeededCharacters) * fontMetrics().horizontalAdvance(u'X');
  return QComboBox::minimumSizeHint() - QSize(more, 0);
}

void PickBox::ApplyTyped(const QString& text) {
  const bool isAppended = text.size() == typed_.size() + 1 && text.startsWith(typed_);
  // The first letter over a chosen text, and not the last one that is left of it.
  const bool isBegun = text.size() == 1 && !typed_.startsWith(text);
  typed_ = text;
  isToComplete_ = (isAppended || isBegun) && lineEdit()->cursorPosition() == text.size();
  // The list below shows what fits the typed letters: it must have been filled before.
  if (isToComplete_) QMetaObject::invokeMethod(this, &PickBox::Complete, Qt::QueuedConnection);
}

void PickBox::Complete() {
  if (!isToComplete_ || lineEdit()->text() != typed_) return;
  isToComplete_ = false;
  if (typed_.isEmpty() || findText(typed_, Qt::MatchFixedString) >= 0) return;
  int found = -1;
  for (int item = 0; item < count() && found < 0; ++item) {
    if (itemText(item).startsWith(typed_, Qt::CaseInsensitive)) found = item;
  }
  if (found < 0) return;
  // The letters stay as they were typed: they may be those of a new name.
  const QString name = typed_ + itemText(found).mid(typed_.size());
  lineEdit()->setText(name);
  lineEdit()->setSelection(static_cast<int>(name.size()),
                           static_cast<int>(typed_.size() - name.size()));
  if (completer()->completionCount() == 1) completer()->popup()->hide();
}

void PickBox::Leave() {
  // Whoever types fast leaves before the event loop has come round.
  Complete();
  const int item = findText(lineEdit()->text(), Qt::MatchFixedString);
  if (item >= 0 && lineEdit()->text() != itemText(item)) lineEdit()->setText(itemText(item));
}

bool PickBox::HandleListKey(const QKeyEvent& event) {
  QAbstractItemView& list = *completer()->popup();
  if (event.key() == Qt::Key_Alt || event.key() == Qt::Key_Meta) {
    // While the list is open, every key is its own and no mnemonic is heard.
    list.hide();
    return false;
  }
  if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter) return false;
  // A name that was moved to is taken first.
  if (list.currentIndex().isValid()) return false;
  Leave();
  if (findText(lineEdit()->text(), Qt::MatchFixedString) < 0) return false;
  list.hide();
  QKeyEvent enter(event.type(), event.key(), event.modifiers(), event.text());
  QCoreApplication::sendEvent(lineEdit(), &enter);
  return true;
}

bool PickBox::eventFilter(QObject* watched, QEvent* event) {
  if (watched == lineEdit() && event->type() == QEvent::FocusIn) typed_ = lineEdit()->text();
  if (watched == lineEdit() && event->type() == QEvent::FocusOut &&
      static_cast<const QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
    Leave();
  }
  if (event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<const QKeyEvent*>(event);
    if (watched == completer()->popup() && HandleListKey(key)) return true;
    if (IsCommandLetter(key)) {
      event->ignore();
      return true;
    }
  }
  return QComboBox::eventFilter(watched, event);
}

void PickBox::keyPressEvent(QKeyEvent* event) {
  // What its text refuses comes here next, and would be handed to the text again.
  if (IsCommandLetter(*event)) return event->ignore();
  QComboBox::keyPressEvent(event);
}

void PickBox::SetItems(const std::vector<PickItem>& items) {
  const QString text = currentText();
  clear();
  for (const PickItem& item : items) addItem(item.text, item.key);
  setCurrentIndex(findText(text, Qt::MatchFixedString));
  setEditText(text);
}

qint64 PickBox::Key() const {
  const QString text = currentText().trimmed();
  // Of two items with one name, the one that was picked.
  int index = currentIndex();
  if (index < 0 || itemText(index).trimmed().compare(text, Qt::CaseInsensitive) != 0) {
    index = text.isEmpty() ? -1 : findText(text, Qt::MatchFixedString);
  }
  return index < 0 ? 0 : itemData(index).toLongLong();
}

void PickBox::SetKey(qint64 key) {
  setCurrentIndex(findData(key));
  if (currentIndex() < 0) clearEditText();
}

}  // namespace corvanta::inline controls
