#include "app/StartUp.h"

#include "app/FrmMain.h"
#include "app/FrmPassword.h"
#include "app/FrmSplash.h"
#include "app/FrmTips.h"
#include "controls/CommandEdge.h"
#include "controls/QtText.h"
#include "ledger/LoginPassword.h"
#include "platform/Settings.h"
#include "store/StoreError.h"

namespace corvanta {
namespace {
constexpr const char* kHolder = "the Corvanta window";
}

StartUp::StartUp(const StartOptions& options)
    : platform_({options.profileFolder, options.today, std::string()}, prompts_, progress_),
      opener_(platform_.Get(), kHolder),
      session_(opener_, platform_.Get(), options.dataPath) {
  prompts_.RememberIn(platform_.Get().registry);
}

StartUp::~StartUp() = default;

bool StartUp::Run() {
  FrmSplash splash;
  splash.show();
  splash.repaint();
  prompts_.SetParent(&splash);
  progress_.SetTextSink([&splash](const QString& text) {
    if (!text.isEmpty()) splash.Say(text);
  });
  const Settings settings(platform_.Get().registry);
  bool ready = false;
  RunCommand(prompts_, [&] {
    if (settings.IsOn(Setting::ShowTips)) FrmTips(platform_.Get(), &splash).exec();
    const bool login = settings.IsOn(Setting::Login);
    const std::optional<bool> passed = login ? LoginBeforeOpening() : true;
    if (passed == false || !session_.Open(false)) return;
    ready = passed.has_value() || LoginAfterOpening();
  });
  // What cannot be posted now must not keep the person from the accounts.
  RunCommand(prompts_, [&] {
    if (ready) session_.PostSchedules();
  });
  progress_.SetTextSink({});
  prompts_.SetParent(nullptr);
  if (!ready) return false;
  window_ = std::make_unique<FrmMain>(session_, platform_.Get(), progress_);
  prompts_.SetParent(window_.get());
  window_->Restore();
  window_->show();
  return true;
}

// The password is kept in the data file, which must not be compacted or repaired for somebody who
// may not open it: so it is looked into first, and let go again.
std::optional<bool> StartUp::LoginBeforeOpening() {
  try {
    const DataFile file = opener_.OpenExisting(false);
    LoginPassword password(*file.connection);
    if (!password.IsSet()) return std::nullopt;
    FrmPassword dialog(
        FrmPassword::Mode::Login, false, platform_.Get(),
        [&password](const std::string& typed) { return password.Matches(typed); },
        QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted;
  } catch (const StoreError&) {
    // Opening will say what is wrong with the file, and find a way out.
    return std::nullopt;
  }
}

bool StartUp::LoginAfterOpening() {
  LoginPassword password(session_.Ledger().Store());
  FrmPassword dialog(
      FrmPassword::Mode::Login, !password.IsSet(), platform_.Get(),
      [&password](const std::string& typed) { return password.Accept(typed); },
      QApplication::activeWindow());
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace corvanta
