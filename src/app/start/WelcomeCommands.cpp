#include "app/start/WelcomeCommands.h"

#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/ViewCommand.h"
#include "app/options/OptionsEditor.h"
#include "app/start/FrmWelcome.h"
#include "controls/QtText.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Registry.h"
#include "platform/Settings.h"
#include "store/datafile/OpenDataFile.h"
#include "store/datafile/schema/SampleData.h"
#include "store/sql/StoreError.h"

#include <QAction>
#include <QCoreApplication>

#include <filesystem>
#include <utility>

namespace corvanta::inline app {
namespace {

constexpr std::string_view kGreeted = "Greeted";
constexpr const char* kTitle = "Welcome";

}  // namespace

WelcomeCommands::WelcomeCommands(const ViewPlace& place, std::function<bool()> reopen,
                                 std::function<bool(const std::string&)> switchTo)
    : place_(place), reopen_(std::move(reopen)), switchTo_(std::move(switchTo)) {}

void WelcomeCommands::OpenFirst() {
  Registry& registry = place_.platform.registry;
  const bool isGreeted = registry.Read(Hive::CurrentUser, kSettingsKey, kGreeted).has_value();
  const bool isUsed = Settings(registry).IsStored(Setting::Height);
  if (isGreeted || isUsed || !place_.session.IsOpen()) return;
  registry.Write(Hive::CurrentUser, kSettingsKey, kGreeted, "1");
  Open();
}

void WelcomeCommands::Open() {
  const auto guarded = [this](const std::function<void()>& act) {
    return [this, act] { place_.host.Guard(act); };
  };
  WelcomeActions actions;
  actions.addAccount = guarded([this] {
    if (IsReadyForOwn()) place_.actions.mnuAccountAdd->trigger();
  });
  actions.importFile = guarded([this] {
    if (IsReadyForOwn()) place_.actions.mnuFileImport->trigger();
  });
  actions.showSample = guarded([this] { ShowSample(); });
  actions.showKey = [this] { place_.actions.mnuFileKey->trigger(); };
  actions.chooseBackup = [this] { return ChooseBackup(); };
  const QString backup = ToQt(Settings(place_.platform.registry).Text(Setting::Backup));
  FrmWelcome(std::move(actions), backup, &place_.window).exec();
}

bool WelcomeCommands::IsSample() const {
  return place_.session.IsOpen() && HoldsSampleAlone(place_.session.Ledger().Store());
}

bool WelcomeCommands::IsReadyForOwn() {
  if (!IsSample()) return true;
  const auto choice = place_.platform.prompts.Choose(
      kTitle,
      "The sample is open. Your own accounts are better off in an empty data file; the sample is "
      "kept beside it.",
      {"Begin an Empty Data File", "Go On in the Sample"});
  if (!choice) return false;
  return *choice == 1 || BeginOwnFile();
}

bool WelcomeCommands::BeginOwnFile() {
  const std::string path = place_.session.Path();
  const std::string aside = SamplePath([](const std::string&) { return true; });
  Files& files = place_.platform.files;
  place_.session.Close();
  try {
    files.Replace(path, aside);
    (void)place_.session.Opener().CreateNew(true);
  } catch (...) {
    // What was there comes back as it was.
    place_.host.Guard([&] {
      if (!FileExists(path) && FileExists(aside)) files.Replace(aside, path);
    });
    reopen_();
    throw;
  }
  return reopen_();
}

void WelcomeCommands::ShowSample() {
  if (!IsSample()) {
    // A file of that name may be anybody's: what cannot be opened here is left alone.
    const std::string path = SamplePath([this](const std::string& file) { return !Opens(file); });
    if (!FileExists(path)) {
      DataFileOpener maker(place_.platform, place_.session.Opener().AsWriter().name);
      maker.SetDataPath(path);
      (void)maker.CreateNew(false);
    }
    if (!switchTo_(path)) return;
    place_.host.Notice(QCoreApplication::translate(
        "WelcomeCommands", "This is the sample. File, Open goes back to your own data file."));
  }
  place_.host.ShowView(kTransactionShow);
  place_.host.FocusView();
}

bool WelcomeCommands::Opens(const std::string& path) const {
  if (path == place_.session.Path()) return false;
  DataFileOpener opener(place_.platform, place_.session.Opener().AsWriter().name);
  opener.SetDataPath(path);
  try {
    (void)opener.OpenExisting(false);
    return true;
  } catch (const StoreError&) {
    return false;
  }
}

std::string WelcomeCommands::SamplePath(
    const std::function<bool(const std::string&)>& isOther) const {
  const std::filesystem::path folder = std::filesystem::path(place_.session.Path()).parent_path();
  std::string path = (folder / "Sample.dat").string();
  for (int number = 2; FileExists(path) && isOther(path); ++number) {
    path = (folder / ("Sample " + std::to_string(number) + ".dat")).string();
  }
  return path;
}

QString WelcomeCommands::ChooseBackup() {
  place_.host.Guard(
      [this] { (void)OptionsEditor(place_.platform, place_.session.Path()).BrowseBackup(); });
  return ToQt(Settings(place_.platform.registry).Text(Setting::Backup));
}

}  // namespace corvanta::inline app
