#include "cli/SourceCommand.h"

#include "cli/Arguments.h"
#include "cli/OutputTable.h"
#include "cli/SavedForm.h"
#include "cli/Session.h"
#include "invest/SourcePresets.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/ShownText.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Data Source";

struct KindWord {
  const char* word;
  AnswerKind kind;
};
constexpr KindWord kKinds[] = {{"line", AnswerKind::Line},
                               {"page", AnswerKind::Page},
                               {"column", AnswerKind::Column},
                               {"json", AnswerKind::Pointer}};

AnswerKind KindOf(const std::string& word) {
  for (const KindWord& kind : kKinds) {
    if (word == kind.word) return kind.kind;
  }
  return AnswerKind::Line;
}

}  // namespace

CLI::App* SourceCommand::Declare(CLI::App& parser) {
  CLI::App* command = parser.add_subcommand(
      "source", "List, add, change and test where prices and exchange rates come from");
  command->require_subcommand(0, 1);
  command->add_subcommand("list", "List them; so does the command alone");
  presets_ = command->add_subcommand("presets", "List the services that are described already");
  add_ = command->add_subcommand("add", "Add one, by the rules of its editor");
  edit_ = command->add_subcommand("edit", "Change one, as far as options are given");
  test_ = command->add_subcommand("test", "Show what one answers, and the value found in it");
  first_ = command->add_subcommand("first", "Ask this one for exchange rates from now on");
  delete_ = command->add_subcommand("delete", "Delete one");
  add_->add_option("name", name_, "Its name")->required();
  add_->add_option("--preset", preset_, "The name of a service that is described already");
  for (CLI::App* form : {edit_, test_, first_, delete_}) {
    form->add_option("source", name_, "Its name, or # and its key")->required();
  }
  edit_->add_option("--name", newName_, "Another name");
  test_->add_option("symbol", question_, "A symbol, or two currencies: EURUSD")->required();
  for (CLI::App* form : {add_, edit_}) DeclareFields(*form);
  return command;
}

void SourceCommand::DeclareFields(CLI::App& form) {
  form.add_option("--for", type_, "prices or rates")
      ->transform(CLI::Validator(OneOf({"prices", "rates"}), ""));
  form.add_option("--address", address_, "Where it is asked");
  form.add_option("--placeholder", placeholder_,
                  "The word in the address that the symbol takes the place of");
  form.add_option("--answer", answer_, "line, page, column or json")
      ->transform(CLI::Validator(OneOf({"line", "page", "column", "json"}), ""));
  form.add_option("--marker", marker_, "In a page, the text before the value");
  form.add_option("--occurrence", occurrence_, "In a page, which of several such texts")
      ->check(CLI::Range(1, 99));
  form.add_option("--field", field_, "The name of the column, or the pointer into a JSON text");
  form.add_option("--lookup", lookUp_, "The page on which symbols are looked up");
  form.add_flag("--ask-key", asksKey_, "Ask for the key that the service has given you");
}

ExitStatus SourceCommand::Run(Session& session) {
  if (presets_->parsed()) return ListPresets(session);
  const bool writes = add_->parsed() || edit_->parsed() || first_->parsed() || delete_->parsed();
  const std::optional<DataFile> file = session.Open(writes ? Access::Write : Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  SourceEditor editor(ledger, session.Machine());
  if (!writes && !test_->parsed()) return List(editor, session);
  const std::optional<SourceRow> row = add_->parsed() ? NewRow(session) : Find(editor, session);
  if (!row) return ExitStatus::Refused;
  if (test_->parsed()) return Test(editor, *row, session);
  if (add_->parsed() || edit_->parsed()) return Save(editor, *row, session);
  if (delete_->parsed()) {
    if (!editor.Delete(row->dataId)) return ExitStatus::Refused;
    session.Tell(kTitle, "\"" + row->name + "\" deleted");
    return ExitStatus::Done;
  }
  if (TypeWords(row->type) != TypeWords(kCurrencySource)) {
    return session.Refuse(kTitle, "\"" + row->name + "\" has no exchange rates.");
  }
  session.Tell(kTitle, "\"" + editor.PutFirst(row->dataId) + "\" is asked for exchange rates now");
  return ExitStatus::Done;
}

ExitStatus SourceCommand::List(SourceEditor& editor, Session& session) const {
  OutputTable table({{"ID", OutputKind::Integer},
                     {"Name"},
                     {"For"},
                     {"Answer"},
                     {"Address"},
                     {"Found by"},
                     {"Note"}});
  for (const SourceRow& row : editor.Sources()) {
    const std::string& foundBy = row.field.empty() ? row.start : row.field;
    table.AddRow({row.dataId, row.name, TypeWords(row.type), KindWords(row.kind), row.url, foundBy,
                  editor.Remark(row)});
  }
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus SourceCommand::ListPresets(Session& session) const {
  OutputTable table({{"Name"}, {"For"}, {"Address"}, {"Wants a key"}});
  for (const SourcePreset& preset : SourcePresets()) {
    table.AddRow(
        {preset.name, TypeWords(preset.type), preset.url, preset.WantsKey() ? "yes" : "no"});
  }
  session.Print(table);
  session.Tell(kTitle, kPresetsUntried);
  return ExitStatus::Done;
}

std::optional<SourceRow> SourceCommand::NewRow(Session& session) const {
  SourceRow row = SourceEditor::New(type_ == "rates" ? kCurrencySource : kStockSource);
  if (!preset_.empty()) {
    std::vector<NamedItem> names;
    for (const SourcePreset& preset : SourcePresets()) {
      names.push_back({static_cast<std::int64_t>(names.size()), std::string(preset.name)});
    }
    const auto found = FindItem(names, preset_, kTitle, "preset", session);
    if (!found) return std::nullopt;
    row = SourcePresets()[static_cast<std::size_t>(found->key)].Row();
  }
  row.name = name_;
  return row;
}

std::optional<SourceRow> SourceCommand::Find(SourceEditor& editor, Session& session) const {
  std::vector<NamedItem> names;
  for (const SourceRow& row : editor.Sources()) names.push_back({row.dataId, row.name});
  const auto found = FindItem(names, name_, kTitle, "source", session);
  return found ? editor.Load(found->key) : std::nullopt;
}

ExitStatus SourceCommand::Save(SourceEditor& editor, SourceRow row, Session& session) const {
  if (newName_) row.name = *newName_;
  if (type_ && !add_->parsed()) row.type = *type_ == "rates" ? kCurrencySource : kStockSource;
  if (address_) row.url = *address_;
  if (placeholder_) row.key = *placeholder_;
  if (answer_) row.kind = KindOf(*answer_);
  if (marker_) row.start = *marker_;
  if (occurrence_) row.occur = *occurrence_;
  if (field_) row.field = *field_;
  if (lookUp_) row.lookUpUrl = *lookUp_;
  if (asksKey_) {
    const auto key = session.Machine().prompts.AskText(kTitle, "Your key with the service:", true);
    if (!key) return ExitStatus::Refused;
    row.ownKey = *key;
  }
  const auto saved = SaveChecked(editor, row, session);
  if (!saved) return ExitStatus::Refused;
  if (add_->parsed()) {
    PrintKey(*saved, session);
  } else {
    session.Tell(kTitle, "\"" + row.name + "\" changed");
  }
  return ExitStatus::Done;
}

ExitStatus SourceCommand::Test(SourceEditor& editor, const SourceRow& row, Session& session) const {
  const auto question = SourceEditor::QuestionOf(row.type, question_);
  if (!question) {
    return session.Refuse(kTitle, "Give the codes of two currencies to test with: EURUSD");
  }
  const MarketData::Trial trial = editor.Test(row, *question);
  session.Out() << ShownText(trial.answer);
  if (!trial.answer.empty() && !trial.answer.ends_with('\n')) session.Out() << '\n';
  session.Tell(kTitle, editor.Result(trial));
  return trial.value ? ExitStatus::Done : ExitStatus::MachineFailed;
}

}  // namespace corvanta::inline cli
