#include "cli/SettingsCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/CloseNames.h"
#include "cli/output/OutputTable.h"
#include "platform/Clock.h"
#include "platform/Opener.h"
#include "platform/Platform.h"
#include "platform/Registry.h"
#include "platform/Settings.h"
#include "platform/TextCase.h"
#include "store/datafile/DataFileLocation.h"

#include <filesystem>
#include <ostream>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Settings";
// The request to compact the data file at the next start: no preference, but written like one.
constexpr std::string_view kReindex = "Reindex";

Value PreferenceInForce(Platform& platform, const SettingInfo& info) {
  const Settings settings(platform.registry);
  switch (info.kind) {
    case SettingKind::Check:
      return settings.IsOn(info.setting) ? "1" : "0";
    case SettingKind::Number:
      if (info.defaultText.empty() && !settings.IsStored(info.setting)) return {};
      return std::to_string(settings.Number(info.setting));
    case SettingKind::Colour:
      return std::to_string(settings.Colour(info.setting));
    case SettingKind::Choice:
      return settings.ChoiceText(info.setting);
    case SettingKind::Dates: {
      const DateRange range = settings.Dates(platform.clock.Today());
      return range.start.ToIso() + "#" + range.end.ToIso();
    }
    default:
      break;
  }
  if (info.setting == Setting::DBPath) {
    const std::optional<std::string> path = ReadDataPath(platform.registry);
    return path ? Value(*path) : Value();
  }
  if (info.defaultText.empty() && !settings.IsStored(info.setting)) return {};
  return settings.Text(info.setting);
}

std::string AllowedValues(const SettingInfo& info) {
  switch (info.kind) {
    case SettingKind::Check:
      return "1 or 0";
    case SettingKind::Number:
      return "a whole number, 0 or more";
    case SettingKind::Colour:
      return "a colour number: red + 256 x green + 65536 x blue";
    case SettingKind::Dates:
      return "two days: YYYY-MM-DD#YYYY-MM-DD";
    case SettingKind::Widths:
      return "widths with | between them: 120|80|64";
    default:
      break;
  }
  std::string choices = "one of";
  const char* separator = " ";
  for (const std::string_view choice : info.choices) {
    choices += separator;
    choices += choice;
    separator = ", ";
  }
  return choices;
}

// A data file of an earlier version goes by this setting until it is opened again, and who switches
// it off here need not know the password.
constexpr const char* kLoginStays =
    "Login is switched off with the password of the data file: corvanta-cli password off";

bool IsLoginOn(Session& session) {
  return Settings(session.Machine().registry).IsOn(Setting::Login);
}

// A path is looked up from wherever the program is started next.
std::string Absolute(const std::string& path) {
  return path.empty() ? path : std::filesystem::absolute(path).lexically_normal().string();
}

}  // namespace

Parser* SettingsCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("settings", "List, read and write settings");
  nameOption_ = command->AddOption("name", name_, "The setting; without one, all are listed");
  valueOption_ = command->AddOption("value", value_, "The value to write");
  command->AddOption("--key", keyName_, "Settings, Reports, Stocks or Currency")
      ->TypeName("KEY")
      ->Correct(OneOf({"Settings", "Reports", "Stocks", "Currency"}));
  return command;
}

ExitStatus SettingsCommand::Run(Session& session) {
  if (!nameOption_->IsGiven()) return List(session);
  return !valueOption_->IsGiven() ? Read(session) : Write(session);
}

ExitStatus SettingsCommand::List(Session& session) const {
  OutputTable table({{"Name"}, {"Value"}, {"Meaning"}});
  for (const std::string& name : Names(session)) {
    const SettingInfo* info = IsPreferences() ? FindSetting(name) : nullptr;
    table.AddRow({name, InForce(session, name).value_or(Value()),
                  info != nullptr ? Value(info->meaning) : Value()});
  }
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus SettingsCommand::Read(Session& session) const {
  const std::optional<Value> value = InForce(session, name_);
  if (!value) return RefuseName(session);
  // As text it is the value alone, ready for a script.
  if (session.Options().format == "text") {
    session.Out() << value->Text() << '\n';
    return ExitStatus::Done;
  }
  OutputTable table({{"Name"}, {"Value"}});
  const SettingInfo* info = IsPreferences() ? FindSetting(name_) : nullptr;
  table.AddRow({info != nullptr ? Value(info->name) : Value(name_), *value});
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus SettingsCommand::Write(Session& session) const {
  std::string text = value_;
  const SettingInfo* info = IsPreferences() ? FindSetting(name_) : nullptr;
  if (info != nullptr) {
    const std::optional<std::string> normal = NormalSettingText(*info, value_);
    if (!normal) {
      return session.Refuse(kTitle, std::string(info->name) + " cannot be \"" + value_ +
                                        "\". It is " + AllowedValues(*info) + ".");
    }
    text = info->setting == Setting::DBPath ? Absolute(*normal) : *normal;
    if (info->setting == Setting::Login && text == "0" && IsLoginOn(session)) {
      return session.Refuse(kTitle, kLoginStays);
    }
  } else if (IsPreferences() && !EqualFolded(name_, kReindex) && !InForce(session, name_)) {
    return RefuseName(session);
  }
  const std::string_view name = info != nullptr ? info->name : std::string_view(name_);
  // The first setting of all must not look like settings that lost their DBPath.
  SetUpFirstStart(session.Machine());
  session.Machine().registry.Write(Hive::CurrentUser, Key(), name, text);
  if (info != nullptr && info->setting == Setting::Association) {
    const bool isDone = session.Machine().opener.Associate({kQifType, kOfxType}, text == "1");
    if (!isDone) session.Tell(kTitle, kNotOnDesktop);
  }
  return ExitStatus::Done;
}

ExitStatus SettingsCommand::RefuseName(Session& session) const {
  return session.Refuse(kTitle, "There is no setting \"" + name_ + "\"." +
                                    DidYouMean(CloseNames(name_, Names(session))));
}

std::optional<Value> SettingsCommand::InForce(Session& session, const std::string& name) const {
  const SettingInfo* info = IsPreferences() ? FindSetting(name) : nullptr;
  if (info != nullptr) return PreferenceInForce(session.Machine(), *info);
  const auto stored = session.Machine().registry.Read(Hive::CurrentUser, Key(), name);
  return stored ? std::optional<Value>(*stored) : std::nullopt;
}

std::vector<std::string> SettingsCommand::Names(Session& session) const {
  std::vector<std::string> names;
  if (IsPreferences()) {
    for (const SettingInfo& info : AllSettings()) names.emplace_back(info.name);
  }
  for (std::string& name : session.Machine().registry.ValueNames(Hive::CurrentUser, Key())) {
    const bool isListed = IsPreferences() && FindSetting(name) != nullptr;
    if (!isListed) names.push_back(std::move(name));
  }
  return names;
}

std::string_view SettingsCommand::Key() const {
  if (keyName_ == "Reports") return kReportsKey;
  if (keyName_ == "Stocks") return kStocksKey;
  if (keyName_ == "Currency") return kCurrencyKey;
  return kSettingsKey;
}

bool SettingsCommand::IsPreferences() const {
  return Key() == kSettingsKey;
}

}  // namespace corvanta::inline cli
