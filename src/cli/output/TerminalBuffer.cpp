#include "cli/output/TerminalBuffer.h"

#include "platform/ShownText.h"

namespace corvanta::inline cli {
namespace {

constexpr std::size_t kEnough = 16384;

}  // namespace

TerminalBuffer::int_type TerminalBuffer::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof()))
    return traits_type::not_eof(character);
  const char one = traits_type::to_char_type(character);
  return xsputn(&one, 1) == 1 ? character : traits_type::eof();
}

std::streamsize TerminalBuffer::xsputn(const char* text, std::streamsize count) {
  waiting_.append(text, static_cast<std::size_t>(count));
  if (waiting_.size() < kEnough) return count;
  // Whole lines: a character must not be cut.
  const std::size_t end = waiting_.rfind('\n');
  if (end == std::string::npos) return count;
  return Send(end + 1) ? count : 0;
}

int TerminalBuffer::sync() {
  return Send(waiting_.size()) && terminal_.pubsync() == 0 ? 0 : -1;
}

bool TerminalBuffer::Send(std::size_t size) {
  const std::string shown = ShownText(std::string_view(waiting_).substr(0, size));
  waiting_.erase(0, size);
  const auto count = static_cast<std::streamsize>(shown.size());
  return terminal_.sputn(shown.data(), count) == count;
}

}  // namespace corvanta::inline cli
