#pragma once

#include <array>
#include <string>
#include <string_view>

struct sqlite3;

namespace corvanta::inline sql {

// The raw key of a data file, made from its password: 256 bits that open it and the 16 bytes with
// which the file begins. Both come from the password alone, so that a file that begins with
// these bytes and does not open is damaged, and one that begins with others belongs to another
// installation. The password holds its full entropy already, so nothing slow is needed. A password
// with a salt mark at its end says itself what the file begins with.
class FileKey {
 public:
  static constexpr std::size_t kSaltSize = 16;
  using SaltBytes = std::array<unsigned char, kSaltSize>;

  // What a password ends with that is to make a file of this beginning.
  [[nodiscard]] static std::string SaltMark(const SaltBytes& salt);
  [[nodiscard]] static bool HasSaltMark(std::string_view password);

  explicit FileKey(std::string_view password);
  ~FileKey();  // wipes the key
  FileKey(const FileKey&) = delete;
  FileKey& operator=(const FileKey&) = delete;

  // In the library's notation, x'...'; to be handed over by key function or bound value only.
  [[nodiscard]] const std::string& Text() const { return text_; }
  [[nodiscard]] const SaltBytes& Salt() const { return salt_; }
  // Whether the salt was named by the password: a file that begins with it tells nothing then.
  [[nodiscard]] bool IsSaltNamed() const { return isSaltNamed_; }

 private:
  std::string text_;
  SaltBytes salt_{};
  bool isSaltNamed_ = false;
};

inline constexpr int kPageSize = 4096;

// Gives an open, untouched handle its key and the page format.
void ApplyKey(sqlite3* database, const FileKey& key, const std::string& file);
// Gives a database of the handle ("main", or the name it was attached as), of which no page has
// been read or written yet, the page format that every version of the library reads alike: an
// attached one has the library's own until then, not that of the main one.
void SetPageFormat(sqlite3* database, const std::string& schema, const std::string& file);

}  // namespace corvanta::inline sql
