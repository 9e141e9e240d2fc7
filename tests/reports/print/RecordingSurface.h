#pragma once

#include "reports/print/PrintSurface.h"

#include <string>
#include <vector>

namespace corvanta {

// A surface on which every byte of ASCII is one millimetre wide and every other character two, and
// lines of text are five millimetres high. It keeps what was drawn on each page.
class RecordingSurface : public PrintSurface {
 public:
  struct Text {
    double x = 0;
    double y = 0;
    double width = 0;
    std::string text;
    bool isBold = false;
  };
  struct Rule {
    double y = 0;
    double length = 0;
    double thickness = 0;
  };
  struct Page {
    std::vector<Text> texts;
    std::vector<Rule> rules;
    std::vector<std::vector<PrintPoint>> paths;  // of more than two points
    std::vector<std::vector<PrintPoint>> shapes;
  };

  RecordingSurface(double width, double height) : width_(width), height_(height) {}

  [[nodiscard]] const std::vector<Page>& Pages() const { return pages_; }
  // How many texts were measured: most of what printing costs.
  [[nodiscard]] std::size_t Measured() const { return measured_; }
  [[nodiscard]] int Ends() const { return ends_; }
  [[nodiscard]] double FontSize() const { return font_.size; }

  // The text of that wording on a page; nullptr when it is not there.
  [[nodiscard]] const Text* Find(std::size_t page, const std::string& text) const {
    for (const Text& drawn : pages_.at(page).texts) {
      if (drawn.text == text) return &drawn;
    }
    return nullptr;
  }

  [[nodiscard]] double ScaleWidth() const override { return width_; }
  [[nodiscard]] double ScaleHeight() const override { return height_; }
  void SetFont(const PrintFont& font) override { font_ = font; }
  void SetForeColor(std::uint32_t) override {}
  [[nodiscard]] double TextWidth(std::string_view text) override {
    ++measured_;
    double width = 0;
    for (const char byte : text) {
      const auto code = static_cast<unsigned char>(byte);
      width += code < 0x80 ? 1 : code >= 0xC0 ? 2 : 0;
    }
    return width;
  }
  [[nodiscard]] double TextHeight(std::string_view) override { return 5; }
  void Print(double x, double y, std::string_view text) override {
    pages_.back().texts.push_back({x, y, TextWidth(text), std::string(text), font_.isBold});
  }
  void Path(std::span<const PrintPoint> points, double thickness, PrintStroke) override {
    const PrintPoint& first = points.front();
    if (points.size() == 2) {
      pages_.back().rules.push_back({first.y, points.back().x - first.x, thickness});
    } else {
      pages_.back().paths.emplace_back(points.begin(), points.end());
    }
  }
  void Shape(std::span<const PrintPoint> corners) override {
    pages_.back().shapes.emplace_back(corners.begin(), corners.end());
  }
  void NewPage() override { pages_.emplace_back(); }
  void EndDoc() override { ++ends_; }

 private:
  double width_;
  double height_;
  PrintFont font_;
  std::vector<Page> pages_{Page{}};
  int ends_ = 0;
  std::size_t measured_ = 0;
};

}  // namespace corvanta
