#include "controls/ChoiceRow.h"

#include "controls/Style.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QRadioButton>

namespace corvanta::inline controls {

ChoiceRow::ChoiceRow(const QString& name, const std::vector<Item>& items, QWidget* parent)
    : QWidget(parent), group_(new QButtonGroup(this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2 * kRhythm);
  for (const Item& item : items) {
    auto* button = new QRadioButton(item.text, this);
    button->setObjectName(name + QString::number(item.code));
    group_->addButton(button, item.code);
    row->addWidget(button);
  }
  row->addStretch(1);
  setFocusProxy(group_->buttons().constFirst());
  connect(group_, &QButtonGroup::idClicked, this, &ChoiceRow::Chosen);
}

std::optional<int> ChoiceRow::Choice() const {
  const int code = group_->checkedId();
  return code < 0 ? std::nullopt : std::optional(code);
}

void ChoiceRow::SetChoice(std::optional<int> code) {
  // While one of the buttons must be down, none can be let go.
  group_->setExclusive(code.has_value());
  for (QAbstractButton* button : group_->buttons()) button->setChecked(group_->id(button) == code);
  group_->setExclusive(true);
}

}  // namespace corvanta::inline controls
