#pragma once

#include "ledger/Warning.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

inline constexpr const char* kPasswordWarning = "Password warning";
inline constexpr const char* kWrongPassword = "Incorrect password entered";

// What is wrong with a password that is to be set, typed twice, about the control of that name.
[[nodiscard]] std::optional<Warning> CheckNewPassword(std::string_view typed,
                                                      std::string_view again);

// The login password of a data file, kept as a salted hash in its housekeeping row, and with it
// whether the file is to be asked for. Operations throw StoreError.
class LoginPassword {
 public:
  explicit LoginPassword(Connection& connection) : connection_(connection) {}

  // True when the data file holds a password.
  [[nodiscard]] bool IsSet();
  // True when the file itself says that nobody may see it without the password. A password of an
  // earlier version does not say so yet: there a setting decided.
  [[nodiscard]] bool IsAsked();
  // Makes a password of an earlier version one that the file asks for.
  void AskFromNowOn();
  // True when the typed text, without the blanks around it, is the password. Reads only.
  [[nodiscard]] bool Matches(std::string_view typed);
  // The same, and where none is set yet the typed text becomes the password. One that an older
  // program left readable is replaced by its hash.
  [[nodiscard]] bool Accept(std::string_view typed);
  // Sets the password, without the blanks around it, and the file asks for it from now on; an empty
  // text takes it away.
  void Set(std::string_view password);
  // What is kept of the password: another text after each change, empty without one. It tells
  // nothing about the password that its owner would want to hide.
  [[nodiscard]] std::string Stored();

 private:
  void Store(const std::string& text);

  Connection& connection_;
};

}  // namespace corvanta::inline ledger
