#include "cli/files/RestoreCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/output/OutputTable.h"
#include "ledger/secrets/PromptedOpening.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "safety/FileStore.h"
#include "safety/RestoreEditor.h"
#include "store/datafile/OpenDataFile.h"
#include "store/datafile/opening/KeyRecovery.h"

#include <algorithm>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Restore";

// A person on the command line answers with --key.
class KeyByOption : public PromptedOpening {
 public:
  KeyByOption(Platform& platform, Session& session)
      : PromptedOpening(platform), session_(session) {}

  [[nodiscard]] Key KeyOf(const std::string& path) override {
    session_.Tell(kTitle, "The backup " + path +
                              " is protected with the key of another installation. Name a file "
                              "that holds its recovery key, or its transfer file, with --key.");
    return {};
  }

 private:
  Session& session_;
};

Value Day(const std::optional<AccountState>& state, std::optional<Date> AccountState::*day) {
  return state && (*state).*day ? Value(*((*state).*day)) : Value();
}

Value Count(std::size_t count) {
  return static_cast<std::int64_t>(count);
}

std::vector<Value> RowOf(const AccountChange& change) {
  const auto rows = [](const std::optional<AccountState>& state) {
    return state ? Count(state->rows) : Value();
  };
  const auto balance = [](const std::optional<AccountState>& state) {
    return state ? Value(state->balance) : Value();
  };
  return {change.Name(),
          rows(change.now),
          rows(change.then),
          balance(change.now),
          balance(change.then),
          Day(change.then, &AccountState::from),
          Day(change.then, &AccountState::to),
          Count(change.added),
          Count(change.removed),
          Count(change.changed)};
}

std::vector<Value> RowOf(const ListChange& change) {
  return {change.what,
          Count(change.now),
          Count(change.then),
          Value(),
          Value(),
          Value(),
          Value(),
          Count(change.added),
          Count(change.removed),
          Count(change.changed)};
}

}  // namespace

Parser* RestoreCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("restore", "Put a backup into the place of the data file");
  Argument* file =
      command->AddOption("file", file_, "The backup (default: the latest one)")->Check(EmptyFault);
  command
      ->AddFlag("--back", isBack_, "Take the last restore back: what was the data file before it")
      ->Excludes(file);
  command->AddOption("--key", key_, "The transfer file of a backup made elsewhere, or its key")
      ->TypeName("FILE")
      ->Check(EmptyFault);
  command->AddFlag("--dry-run", isDry_, "Show what it would change, and change nothing");
  return command;
}

ExitStatus RestoreCommand::Run(Session& session) {
  // A passphrase is asked for where it is needed: the present file may be damaged.
  if (!session.Opener().WantsPassphrase() && !session.PassLogin()) return ExitStatus::Refused;
  Platform& platform = session.Machine();
  KeyByOption questions(platform, session);
  RestoreEditor editor(
      session.Opener().Location(), session.Opener().Passwords(), questions,
      [&](Connection& backup) { return session.Admits(backup); }, platform);
  const std::optional<std::string> path = Source(editor, session);
  if (!path) return ExitStatus::Refused;
  if (const auto warning = editor.Check(*path)) {
    return session.Refuse(warning->title, warning->text);
  }
  std::optional<std::string> key;
  if (!key_.empty()) {
    key = PasswordFromKey(ReadFile(key_));
    if (!key) return session.Refuse(kTitle, "There is no key in \"" + key_ + "\".");
  }
  const std::optional<RestorePlan> plan = editor.Look(*path, key);
  if (!plan) return ExitStatus::Refused;
  Print(*plan, session);
  if (isDry_) return ExitStatus::Done;
  if (!platform.prompts.Ask(kTitle, editor.QuestionOf(*plan))) return ExitStatus::Refused;
  return Restore(*plan, session);
}

std::optional<std::string> RestoreCommand::Source(const RestoreEditor& editor,
                                                  Session& session) const {
  if (!file_.empty()) return file_;
  const std::vector<RestoreSource> sources = editor.Sources();
  const auto found = std::ranges::find(sources, isBack_, &RestoreSource::isKept);
  if (found != sources.end()) return found->path;
  session.Tell(kTitle, isBack_ ? "Nothing was restored before that could be taken back."
                               : "There is no backup of this data file. Name one.");
  return std::nullopt;
}

void RestoreCommand::Print(const RestorePlan& plan, Session& session) {
  OutputTable table({{"Account"},
                     {"Rows now", OutputKind::Integer},
                     {"Rows then", OutputKind::Integer},
                     {"Balance now", OutputKind::Money},
                     {"Balance then", OutputKind::Money},
                     {"From", OutputKind::Date},
                     {"To", OutputKind::Date},
                     {"Back", OutputKind::Integer},
                     {"Gone", OutputKind::Integer},
                     {"Changed", OutputKind::Integer}});
  for (const AccountChange& change : plan.changes) table.AddRow(RowOf(change));
  for (const ListChange& change : plan.lists) table.AddRow(RowOf(change));
  session.Print(table);
}

ExitStatus RestoreCommand::Restore(const RestorePlan& plan, Session& session) {
  const RestoredFile restored = session.Opener().Restore(plan.path, plan.password);
  session.Tell(kTitle, "The data file is restored from " + plan.path);
  if (!restored.kept.empty()) {
    session.Tell(kTitle, "The data file before it is kept as " + restored.kept);
  }
  const std::string missing =
      RestoreFileStore(plan.path, session.Opener().Location().Path(), session.Machine().files);
  if (!missing.empty()) session.Tell(kTitle, missing);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
