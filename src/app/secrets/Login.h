#pragma once

#include "app/secrets/FrmPassword.h"
#include "ledger/secrets/LoginGate.h"
#include "ledger/secrets/PasswordTries.h"

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline datafile {
class DataFileOpener;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline app {

// Asks the person at the window for the passwords of data files, each once.
class Login {
 public:
  // The platform must outlive this object.
  explicit Login(Platform& platform);

  // Before a data file is opened, which may compact and repair it: looks into it and asks. False
  // when the person turned back. A file that cannot be looked into yet passes; Pass sees it then.
  [[nodiscard]] bool PassBefore(DataFileOpener& opener);
  // Asks for the open file. False when the person turned back: it may not be used then.
  [[nodiscard]] bool Pass(Connection& file);
  // Where a password is wanted at start and the file has none yet, has one set. Whoever turns back
  // goes on without.
  void OfferFirst(Connection& file);
  // Once more, before a secret is shown; true at once for a file that asks for none.
  [[nodiscard]] bool Confirm(Connection& file);
  // Has the password set, changed or switched off; true when it was.
  bool Change(Connection& file);

 private:
  // How the dialog ended.
  int Ask(FrmPassword::Mode mode, Connection& file);
  bool Show(FrmPassword::Mode mode, Connection& file);

  Platform& platform_;
  LoginGate gate_;
  PasswordTries tries_;
};

}  // namespace corvanta::inline app
