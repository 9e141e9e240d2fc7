#pragma once

#include <string>
#include <string_view>

namespace corvanta {

class Connection;

// The login password of a data file, kept as a salted hash in its housekeeping row. Operations
// throw StoreError.
class LoginPassword {
 public:
  explicit LoginPassword(Connection& connection) : connection_(connection) {}

  // True when the data file holds a password.
  [[nodiscard]] bool IsSet();
  // True when the typed text, without the blanks around it, is the password. Reads only.
  [[nodiscard]] bool Matches(std::string_view typed);
  // The same, and where none is set yet the typed text becomes the password. One that an older
  // program left readable is replaced by its hash.
  [[nodiscard]] bool Accept(std::string_view typed);
  // Sets the password, without the blanks around it; an empty text takes it away.
  void Set(std::string_view password);

 private:
  [[nodiscard]] std::string Stored();
  void Store(const std::string& text);

  Connection& connection_;
};

}  // namespace corvanta
