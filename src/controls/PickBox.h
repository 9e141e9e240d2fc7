#pragma once

#include <QComboBox>

#include <vector>

namespace corvanta {

struct PickItem {
  qint64 key = 0;
  QString text;
};

// A list to pick from that completes what is typed, without regard to case and from the middle of
// a name, too. What is typed need not be in the list.
class PickBox : public QComboBox {
  Q_OBJECT

 public:
  explicit PickBox(QWidget* parent);

  // Another list below the text, which stays.
  void SetItems(const std::vector<PickItem>& items);
  // The key of the item whose name is in the field; 0 when there is none.
  [[nodiscard]] qint64 Key() const;
  // Shows the item of that key, or nothing.
  void SetKey(qint64 key);
};

}  // namespace corvanta
