#pragma once

#include <cstddef>
#include <string_view>

namespace corvanta::inline exchange {

// The lines of a text one after another, ended by LF, CR LF or CR.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : text_(text) {}

  // The next line without its end; false when there is none.
  bool Next(std::string_view& line) {
    if (at_ >= text_.size()) return false;
    std::size_t end = text_.find_first_of("\r\n", at_);
    if (end == std::string_view::npos) end = text_.size();
    line = text_.substr(at_, end - at_);
    const bool isPair = end + 1 < text_.size() && text_[end] == '\r' && text_[end + 1] == '\n';
    at_ = end + (isPair ? 2 : 1);
    ++number_;
    return true;
  }

  // Of the line read last, from 1.
  [[nodiscard]] std::size_t Number() const { return number_; }
  // Where the next line begins.
  [[nodiscard]] std::size_t Offset() const { return at_ < text_.size() ? at_ : text_.size(); }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t number_ = 0;
};

}  // namespace corvanta::inline exchange
