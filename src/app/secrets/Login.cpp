#include "app/secrets/Login.h"

#include "ledger/secrets/LoginPassword.h"
#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "platform/Settings.h"
#include "store/datafile/OpenDataFile.h"
#include "store/sql/StoreError.h"

#include <QApplication>

namespace corvanta::inline app {

Login::Login(Platform& platform)
    : platform_(platform), gate_(platform.registry), tries_(platform.clock) {}

bool Login::PassBefore(DataFileOpener& opener) {
  try {
    // What wants a passphrase shows nothing to anybody before it was typed.
    if (opener.WantsPassphrase()) return true;
    const DataFile file = opener.OpenExisting(false);
    return Pass(*file.connection);
  } catch (const StoreError&) {
    return true;  // opening will say what is wrong with the file, and find a way out
  } catch (const PlatformError&) {
    return true;
  }
}

bool Login::Pass(Connection& file) {
  return !gate_.Asks(file) || Show(FrmPassword::Mode::Login, file);
}

void Login::OfferFirst(Connection& file) {
  const bool isWanted = Settings(platform_.registry).IsOn(Setting::Login);
  if (isWanted && !LoginPassword(file).IsSet()) (void)Show(FrmPassword::Mode::Login, file);
}

bool Login::Confirm(Connection& file) {
  return !LoginPassword(file).IsAsked() || Show(FrmPassword::Mode::Reveal, file);
}

bool Login::Change(Connection& file) {
  const int end = Ask(FrmPassword::Mode::Change, file);
  if (end == FrmPassword::kSwitchOff) return Show(FrmPassword::Mode::Delete, file);
  return end == QDialog::Accepted;
}

bool Login::Show(FrmPassword::Mode mode, Connection& file) {
  return Ask(mode, file) == QDialog::Accepted;
}

int Login::Ask(FrmPassword::Mode mode, Connection& file) {
  LoginPassword password(file);
  // One that nobody is asked for is set like a first one: its owner need not know it any more.
  const bool isNew = mode == FrmPassword::Mode::Change ? !password.IsAsked() : !password.IsSet();
  const PasswordActions actions{[&](const std::string& typed) {
                                  if (tries_.Wait() > 0) return false;
                                  const bool isRight = gate_.Admit(file, typed);
                                  if (isRight) {
                                    tries_.Forget();
                                  } else {
                                    tries_.CountWrong();
                                  }
                                  return isRight;
                                },
                                [&](const std::string& text) {
                                  password.Set(text);
                                  gate_.Remember(file);
                                },
                                [&] { return tries_.Wait(); }};
  return FrmPassword(mode, isNew, platform_, actions, QApplication::activeWindow()).exec();
}

}  // namespace corvanta::inline app
