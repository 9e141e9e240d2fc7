#pragma once

#include <streambuf>
#include <string>

namespace corvanta::inline cli {

// Stands before a terminal: what is written arrives as ShownText has it, whatever form of output it
// is. The data is exact wherever it does not go to a terminal.
class TerminalBuffer : public std::streambuf {
 public:
  // The terminal's own buffer must outlive this object.
  explicit TerminalBuffer(std::streambuf& terminal) : terminal_(terminal) {}
  ~TerminalBuffer() override { TerminalBuffer::sync(); }
  TerminalBuffer(const TerminalBuffer&) = delete;
  TerminalBuffer& operator=(const TerminalBuffer&) = delete;

 protected:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* text, std::streamsize count) override;
  int sync() override;

 private:
  // Hands on the first `size` bytes of what waits; false when the terminal takes them no more.
  bool Send(std::size_t size);

  std::streambuf& terminal_;
  std::string waiting_;
};

}  // namespace corvanta::inline cli
