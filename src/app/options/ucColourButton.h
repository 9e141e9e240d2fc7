#pragma once

#include <QPushButton>

#include <cstdint>

namespace corvanta::inline app {

// A button that shows a colour of the settings and has another one picked. The colour is a number,
// red + 256 * green + 65536 * blue, or the number of a system colour.
class ucColourButton : public QPushButton {
  Q_OBJECT

 public:
  // `usual` stands in where black is picked.
  ucColourButton(std::uint32_t usual, QWidget* parent);

  // Never 0.
  [[nodiscard]] std::uint32_t Number() const { return number_; }
  void SetNumber(std::uint32_t number);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Pick();
  void ShowColour();

  std::uint32_t usual_;
  std::uint32_t number_;
};

}  // namespace corvanta::inline app
