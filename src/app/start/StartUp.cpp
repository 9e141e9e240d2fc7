#include "app/start/StartUp.h"

#include "app/FrmMain.h"
#include "app/SafetyCommands.h"
#include "app/start/FrmSplash.h"
#include "app/start/FrmTips.h"
#include "controls/CommandEdge.h"
#include "controls/QtText.h"
#include "platform/PlatformError.h"
#include "platform/Settings.h"
#include "store/sql/StoreError.h"

#include <QTimer>

#include <chrono>

namespace corvanta::inline app {
namespace {
constexpr const char* kHolder = "the Corvanta window";
// A command that is writing is soon done; a person at the window is not kept waiting for long.
constexpr std::chrono::milliseconds kPatience{1500};
}  // namespace

StartUp::StartUp(const StartOptions& options)
    : platform_({options.profileFolder, options.today, std::string()}, prompts_, progress_),
      helpKey_(platform_.Get()),
      opener_(platform_.Get(), kHolder),
      session_(opener_, platform_.Get(), options.dataPath),
      importPath_(options.importPath) {
  prompts_.RememberIn(platform_.Get().registry);
  opener_.SetPatience({kPatience, {}});
}

StartUp::~StartUp() = default;

bool StartUp::HandOver() {
  try {
    return QtWindowBell::Ring(opener_.Location().Path(), importPath_);
  } catch (const StoreError&) {
    return false;  // opening will say what is wrong
  } catch (const PlatformError&) {
    return false;
  }
}

void StartUp::WatchBell() {
  QObject::connect(window_.get(), &FrmMain::FileShown, &bell_,
                   [this](const QString& path) { bell_.ListenFor(FromQt(path)); });
  bell_.ListenFor(session_.IsWritable() ? session_.Path() : std::string());
  QObject::connect(&bell_, &QtWindowBell::Rung, window_.get(),
                   [this](const QString& path) { ComeForward(path); });
}

void StartUp::ComeForward(const QString& importPath) {
  window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
  window_->raise();
  window_->activateWindow();
  if (!importPath.isEmpty()) window_->BeginImport(FromQt(importPath));
}

bool StartUp::Run() {
  FrmSplash splash;
  splash.Appear();
  prompts_.SetParent(&splash);
  progress_.SetTextSink([&splash](const QString& text) {
    if (!text.isEmpty()) splash.Say(text);
  });
  const Settings settings(platform_.Get().registry);
  session_.OnDamage(RoadsByDialog(session_, platform_.Get(), &splash));
  bool ready = false;
  RunCommand(prompts_, [&] {
    if (settings.IsOn(Setting::ShowTips)) FrmTips(platform_.Get(), &splash).exec();
    ready = session_.Open(false);
    if (ready) session_.Passwords().OfferFirst(session_.Ledger().Store());
  });
  // What cannot be posted now must not keep the person from the accounts.
  RunCommand(prompts_, [&] {
    if (ready) session_.PostSchedules();
  });
  RunCommand(prompts_, [&] { RemindOfFailedBackup(session_, platform_.Get()); });
  progress_.SetTextSink({});
  session_.OnDamage({});
  prompts_.SetParent(nullptr);
  // The window offers roads to a file that can be opened.
  if (!ready && !session_.HasFailed()) return false;
  window_ = std::make_unique<FrmMain>(session_, platform_.Get(), progress_);
  prompts_.SetParent(window_.get());
  window_->Restore();
  WatchBell();
  window_->show();
  if (!importPath_.empty()) window_->BeginImport(importPath_);
  // A file to be imported is a beginning of its own.
  QTimer::singleShot(0, window_.get(), [window = window_.get(), isFree = importPath_.empty()] {
    if (isFree) window->Greet();
  });
  return true;
}

}  // namespace corvanta::inline app
