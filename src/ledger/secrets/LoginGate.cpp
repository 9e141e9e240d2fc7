#include "ledger/secrets/LoginGate.h"

#include "ledger/secrets/LoginPassword.h"
#include "platform/Settings.h"
#include "store/sql/StoreError.h"

namespace corvanta::inline ledger {
namespace {

void TakeOver(LoginPassword& password) {
  try {
    password.AskFromNowOn();
  } catch (const StoreError&) {
    // On a full disk, or beside another writer, the next opening does it; it is asked for now.
  }
}

}  // namespace

bool LoginGate::Asks(Connection& file) {
  LoginPassword password(file);
  if (!password.IsSet()) return false;
  if (!password.IsAsked()) {
    if (!Settings(registry_).IsOn(Setting::Login)) return false;
    TakeOver(password);
  }
  return password.Stored() != admitted_;
}

bool LoginGate::Admit(Connection& file, std::string_view typed) {
  if (!LoginPassword(file).Matches(typed)) return false;
  Remember(file);
  return true;
}

void LoginGate::Remember(Connection& file) {
  admitted_ = LoginPassword(file).Stored();
}

}  // namespace corvanta::inline ledger
