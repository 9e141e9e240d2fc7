#include "exchange/text/FileText.h"

#include "exchange/text/Encoding.h"
#include "exchange/text/Lines.h"
#include "platform/FileHandle.h"
#include "platform/PlatformError.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

namespace corvanta::inline exchange {
namespace {

constexpr std::size_t kPiece = 1U << 20U;
constexpr std::size_t kLongestLine = 1U << 20U;

struct stat StateOf(const FileHandle& file, const std::string& path) {
  struct stat state {};
  if (::fstat(file.Get(), &state) != 0) throw SystemError("Cannot read", path, errno);
  return state;
}

bool IsSame(const struct stat& a, const struct stat& b) {
  return a.st_size == b.st_size && a.st_mtim.tv_sec == b.st_mtim.tv_sec &&
         a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

// A byte more than `most` where the file has grown. False when it was asked to stop.
bool ReadBytes(const FileHandle& file, const std::string& path, std::size_t most,
               const std::function<bool()>& whileReading, std::string& bytes) {
  std::size_t size = 0;
  while (size <= most) {
    bytes.resize(std::min(size + kPiece, most + 1));
    const ssize_t count = ::read(file.Get(), bytes.data() + size, bytes.size() - size);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw SystemError("Cannot read", path, errno);
    size += static_cast<std::size_t>(count);
    if (count == 0) break;
    if (whileReading && !whileReading()) return false;
  }
  bytes.resize(size);
  return true;
}

// Text has no zero bytes, and hardly any other control characters.
bool IsBinary(std::string_view text) {
  if (text.find('\0') != std::string_view::npos) return true;
  const std::string_view head = text.substr(0, 65536);
  const auto controls = static_cast<std::size_t>(std::ranges::count_if(head, [](char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\r' && c != '\n' &&
           c != '\f' && c != '\x1A';
  }));
  return controls * 100 > head.size();
}

FileText Fault(std::string why) {
  FileText file;
  file.fault = std::move(why);
  return file;
}

std::string TooLarge(std::size_t limit) {
  return "The file is too large to be imported: more than " + std::to_string(limit >> 20U) +
         " megabytes. Ask for a shorter period, or divide the file.";
}

}  // namespace

FileText ReadFileText(const std::string& path, const std::string& encoding,
                      const std::function<bool()>& whileReading, std::size_t limit) {
  // Without waiting: a pipe that nobody writes to would never open.
  const FileHandle file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.IsOpen()) throw SystemError("Cannot read", path, errno);
  const struct stat before = StateOf(file, path);
  if (!S_ISREG(before.st_mode)) return Fault("This is no file that can be imported.");
  if (static_cast<std::size_t>(before.st_size) > limit) return Fault(TooLarge(limit));
  const auto size = static_cast<std::size_t>(before.st_size);
  std::string bytes;
  if (!ReadBytes(file, path, size, whileReading, bytes)) return {};
  if (bytes.size() != size || !IsSame(before, StateOf(file, path))) {
    return Fault(
        "The file changed while it was read. Import it again when the program that writes it has "
        "finished.");
  }
  DecodedText decoded = DecodeText(std::move(bytes), encoding);
  if (IsBinary(decoded.text)) {
    return Fault("This is no text file, so it holds no transactions that could be imported.");
  }
  FileText result{std::move(decoded.text), decoded.replaced, {}};
  while (result.text.ends_with('\x1A')) result.text.pop_back();  // the end mark of old systems
  return result;
}

std::size_t FindEndlessLine(std::string_view text) {
  LineReader lines(text);
  std::string_view line;
  while (lines.Next(line)) {
    if (line.size() > kLongestLine) return lines.Number();
  }
  return 0;
}

}  // namespace corvanta::inline exchange
