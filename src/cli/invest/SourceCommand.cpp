#include "cli/invest/SourceCommand.h"

#include "cli/Parser.h"
#include "cli/SavedForm.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/output/OutputTable.h"
#include "invest/prices/SourcePresets.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/ShownText.h"

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

Parser* SourceCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand(
      "source", "List, add, change and test where prices and exchange rates come from");
  command->AllowCommand();
  command->AddCommand("list", "List them; so does the command alone");
  presets_ = command->AddCommand("presets", "List the services that are described already");
  add_ = command->AddCommand("add", "Add one, by the rules of its editor");
  edit_ = command->AddCommand("edit", "Change one, as far as options are given");
  test_ = command->AddCommand("test", "Show what one answers, and the value found in it");
  first_ = command->AddCommand("first", "Ask this one for exchange rates from now on");
  delete_ = command->AddCommand("delete", "Delete one");
  add_->AddOption("name", name_, "Its name")->Required();
  add_->AddOption("--preset", preset_, "The name of a service that is described already");
  for (Parser* form : {edit_, test_, first_, delete_}) {
    form->AddOption("source", name_, "Its name, or # and its key")->Required();
  }
  edit_->AddOption("--name", newName_, "Another name");
  test_->AddOption("symbol", question_, "A symbol, or two currencies: EURUSD")->Required();
  for (Parser* form : {add_, edit_}) DeclareFields(*form);
  return command;
}

void SourceCommand::DeclareFields(Parser& form) {
  form.AddOption("--for", type_, "prices or rates")->Correct(OneOf({"prices", "rates"}));
  form.AddOption("--address", address_, "Where it is asked");
  form.AddOption("--placeholder", placeholder_,
                 "The word in the address that the symbol takes the place of");
  form.AddOption("--answer", answer_, "line, page, column or json")
      ->Correct(OneOf({"line", "page", "column", "json"}));
  form.AddOption("--marker", marker_, "In a page, the text before the value");
  form.AddOption("--occurrence", occurrence_, "In a page, which of several such texts")
      ->Range(1, 99);
  form.AddOption("--field", field_, "The name of the column, or the pointer into a JSON text");
  form.AddOption("--lookup", lookUp_, "The page on which symbols are looked up");
  form.AddFlag("--ask-key", asksKey_, "Ask for the key that the service has given you");
}

ExitStatus SourceCommand::Run(Session& session) {
  if (presets_->Parsed()) return ListPresets(session);
  const bool writes = add_->Parsed() || edit_->Parsed() || first_->Parsed() || delete_->Parsed();
  const std::optional<DataFile> file = session.Open(writes ? Access::Write : Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  SourceEditor editor(ledger, session.Machine());
  if (!writes && !test_->Parsed()) return List(editor, session);
  const std::optional<SourceRow> row = add_->Parsed() ? NewRow(session) : Find(editor, session);
  if (!row) return ExitStatus::Refused;
  if (test_->Parsed()) return Test(editor, *row, session);
  if (add_->Parsed() || edit_->Parsed()) return Save(editor, *row, session);
  if (delete_->Parsed()) {
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
  const SourceRow loaded = row;
  if (newName_) row.name = *newName_;
  if (type_ && !add_->Parsed()) row.type = *type_ == "rates" ? kCurrencySource : kStockSource;
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
  if (!add_->Parsed()) {
    return SaveChanges(editor, loaded, row, kTitle, '"' + row.name + '"', session);
  }
  const auto saved = SaveChecked(editor, row, session);
  if (!saved) return ExitStatus::Refused;
  PrintKey(*saved, session);
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
