#include "cli/reference/EditorCommand.h"

#include "cli/Parser.h"
#include "cli/SavedForm.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceTables.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"
#include "reference/ReferenceEditor.h"
#include "reference/ReferenceWords.h"

namespace corvanta::inline cli {
namespace {

std::string Plural(std::string word) {
  if (!word.ends_with('y')) return word + "s";
  word.pop_back();
  return word + "ies";
}

}  // namespace

template <typename Record>
EditorCommand<Record>::EditorCommand(const char* command, const char* column)
    : ReferenceCommand({command, kReferenceTable<Record>.what,
                        ToLower(kReferenceTable<Record>.what),
                        Plural(ToLower(kReferenceTable<Record>.what))}),
      column_(column) {}

template <typename Record>
void EditorCommand<Record>::DeclareAdd(Parser& add) {
  for (const auto& text : kReferenceTable<Record>.texts) {
    add.AddOption("--" + ToLower(text.column), details_.*text.member, WordsOf(text.column).help);
  }
}

template <typename Record>
OutputTable EditorCommand<Record>::List(clsCorvanta& ledger) {
  return TableOf(ledger.References().Of<Record>().All());
}

template <typename Record>
OutputTable EditorCommand<Record>::TableOf(const std::vector<Record>& rows) const {
  constexpr const auto& kept = kReferenceTable<Record>;
  std::vector<OutputColumn> columns{{"ID", OutputKind::Integer}, {column_}};
  for (const auto& text : kept.texts) columns.push_back({text.column});
  OutputTable table(std::move(columns));
  for (const Record& row : rows) {
    std::vector<Value> values{row.*kept.key, row.*kept.name.member};
    for (const auto& text : kept.texts) values.emplace_back(row.*text.member);
    table.AddRow(std::move(values));
  }
  return table;
}

template <typename Record>
std::vector<NamedItem> EditorCommand<Record>::Items(clsCorvanta& ledger) {
  constexpr const auto& table = kReferenceTable<Record>;
  std::vector<NamedItem> items;
  for (const Record& row : ledger.References().Of<Record>().All()) {
    items.push_back({row.*table.key, row.*table.name.member});
  }
  return items;
}

template <typename Record>
std::optional<std::int64_t> EditorCommand<Record>::Add(clsCorvanta& ledger, Session& session,
                                                       const std::string& name) {
  ReferenceEditor<Record> editor(ledger, session.Machine().prompts);
  Record form = details_;
  form.*kReferenceTable<Record>.name.member = name;
  return SaveChecked(editor, form, session);
}

template <typename Record>
std::optional<std::int64_t> EditorCommand<Record>::Rename(clsCorvanta& ledger, Session& session,
                                                          std::int64_t key,
                                                          const std::string& name) {
  ReferenceEditor<Record> editor(ledger, session.Machine().prompts);
  std::optional<Record> form = editor.Load(key);
  if (!form) return std::nullopt;
  (*form).*kReferenceTable<Record>.name.member = name;
  return SaveChecked(editor, *form, session);
}

template <typename Record>
Deletion EditorCommand<Record>::Delete(clsCorvanta& ledger, Prompts& prompts, std::int64_t key) {
  return ReferenceEditor<Record>(ledger, prompts).Delete(key);
}

template class EditorCommand<AccountGroupRecord>;
template class EditorCommand<BankRecord>;
template class EditorCommand<PayeeRecord>;
template class EditorCommand<PaymentRecord>;
template class EditorCommand<CurrencyRecord>;
template class EditorCommand<KeywordRecord>;

}  // namespace corvanta::inline cli
