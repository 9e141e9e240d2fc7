#pragma once

#include <string>
#include <string_view>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline platform {
class Registry;
}

namespace corvanta::inline ledger {

// Decides whether a person has to give a password before an open data file may be used, and
// remembers who gave it, so that a file that is opened again is not asked for twice. The file
// decides. A password of an earlier version counts where the setting "Login" is on, and from then
// on the file asks for it whatever becomes of the setting. Operations throw StoreError.
class LoginGate {
 public:
  // The registry must outlive this object.
  explicit LoginGate(Registry& registry) : registry_(registry) {}

  // True when the file may not be used before Admit has let the person in.
  [[nodiscard]] bool Asks(Connection& file);
  // True when the typed text is the file's password.
  [[nodiscard]] bool Admit(Connection& file, std::string_view typed);
  // The person knows the password that the file has now, for they have just set it.
  void Remember(Connection& file);

 private:
  Registry& registry_;
  std::string admitted_;  // what the file keeps of the password that was given
};

}  // namespace corvanta::inline ledger
