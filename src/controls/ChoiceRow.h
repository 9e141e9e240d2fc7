#pragma once

#include <QWidget>

#include <optional>

class QButtonGroup;
class QHBoxLayout;

namespace corvanta::inline controls {

// A few choices side by side, of which one is taken. Each is a button of its own, named after the
// row and its code: "opPayment0".
class ChoiceRow : public QWidget {
  Q_OBJECT

 public:
  struct Item {
    int code;  // 0 or above
    QString text;
  };
  ChoiceRow(const QString& name, const std::vector<Item>& items, QWidget* parent);

  // The code of the choice; nullopt while none is taken.
  [[nodiscard]] std::optional<int> Choice() const;
  void SetChoice(std::optional<int> code);

 Q_SIGNALS:
  void Chosen();  // by the person

 private:
  QButtonGroup* group_;
};

}  // namespace corvanta::inline controls
