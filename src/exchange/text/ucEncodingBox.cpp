#include "exchange/text/ucEncodingBox.h"

#include "controls/QtText.h"
#include "exchange/text/Encoding.h"

namespace corvanta::inline exchange {

ucEncodingBox::ucEncodingBox(QWidget* parent) : QComboBox(parent) {
  addItem(tr("As the file shows"), QString());
  for (const corvanta::Encoding& encoding : Encodings()) {
    addItem(tr(encoding.label), QLatin1String(encoding.name));
  }
  // The longest name would push the fields beside it away; the open list shows it whole.
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setIconSize({1, 1});  // room for none, which would make it higher than its neighbours
  setMinimumContentsLength(static_cast<int>(itemText(0).size()));
  setToolTip(tr("How the file writes letters beyond English ones, if they look wrong"));
}

std::string ucEncodingBox::Encoding() const {
  return FromQt(currentData().toString());
}

void ucEncodingBox::SetEncoding(const std::string& name) {
  int index = findData(ToQt(name), Qt::UserRole, Qt::MatchFixedString);
  if (index < 0) {
    addItem(ToQt(name), ToQt(name));
    index = count() - 1;
  }
  setCurrentIndex(index);
}

}  // namespace corvanta::inline exchange
