#pragma once

#include <QComboBox>

#include <vector>

namespace corvanta::inline controls {

struct PickItem {
  qint64 key = 0;
  QString text;
};

// A list to pick from that completes what is typed, without regard to case: the first name that
// begins so stands in the field at once, its rest chosen, so that Tab takes it and Delete does not;
// names that have the letters in their middle are offered below. What is typed need not be in the
// list.
class PickBox : public QComboBox {
  Q_OBJECT

 public:
  explicit PickBox(QWidget* parent);
  [[nodiscard]] QSize minimumSizeHint() const override;

  // Another list below the text, which stays.
  void SetItems(const std::vector<PickItem>& items);
  // The key of the item whose name is in the field; 0 when there is none.
  [[nodiscard]] qint64 Key() const;
  // Shows the item of that key, or nothing.
  void SetKey(qint64 key);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void ApplyTyped(const QString& text);
  void Complete();
  void Leave();
  // Whether a key that came to the open list has been dealt with.
  bool HandleListKey(const QKeyEvent& event);

  QString typed_;              // what stood in the field after the last key
  bool isToComplete_ = false;  // a letter was added at its end
};

}  // namespace corvanta::inline controls
