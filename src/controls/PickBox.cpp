#include "controls/PickBox.h"

#include <QCompleter>
#include <QLineEdit>

namespace corvanta {
namespace {
constexpr int kShownItems = 14;
constexpr int kShownCharacters = 28;
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

}  // namespace corvanta
