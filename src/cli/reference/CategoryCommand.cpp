#include "cli/reference/CategoryCommand.h"

#include "cli/Parser.h"
#include "cli/SavedForm.h"
#include "cli/arguments/Arguments.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/Platform.h"
#include "reference/CategoryEditor.h"
#include "reference/RowOf.h"

namespace corvanta::inline cli {
namespace {

constexpr const char* kIncome = "income";
constexpr const char* kExpense = "expense";

void SetName(CategoryForm& form, const std::string& name) {
  const std::size_t colon = name.find(':');
  form.category = name.substr(0, colon);
  form.subCategory = colon == std::string::npos ? "" : name.substr(colon + 1);
}

std::vector<NamedItem> PeriodItems(clsCorvanta& ledger) {
  std::vector<NamedItem> items;
  for (const PeriodRecord& row : ledger.References().Periods())
    items.push_back({row.periodId, row.description});
  return items;
}

}  // namespace

void CategoryCommand::DeclareAdd(Parser& add) {
  add.AddOption("--type", type_, "income or expense")
      ->TypeName("TYPE")
      ->Correct(OneOf({kIncome, kExpense}));
  add.AddOption("--budget", budget_, "Its budget for each period")
      ->TypeName("N")
      ->Check(NumberFault);
  add.AddOption("--period", period_, "The period of the budget, such as Monthly");
  add.AddOption("--description", description_, "What it is");
}

OutputTable CategoryCommand::List(clsCorvanta& ledger) {
  OutputTable table({{"ID", OutputKind::Integer},
                     {"Category"},
                     {"SubCategory"},
                     {"Type"},
                     {"Budget", OutputKind::Money},
                     {"Period"},
                     {"Description"}});
  const std::vector<PeriodRecord> periods = ledger.References().Periods();
  for (const CategoryRecord& row : ledger.Categories().Categories()) {
    const auto period = RowOf(periods, &PeriodRecord::periodId, row.periodId);
    table.AddRow({row.categoryId, row.category, row.subCategory, row.type > 0 ? kIncome : kExpense,
                  row.budget, period ? Value(period->description) : Value(), row.description});
  }
  return table;
}

std::vector<NamedItem> CategoryCommand::Items(clsCorvanta& ledger) {
  std::vector<NamedItem> items;
  for (const CategoryRecord& row : ledger.Categories().Categories()) {
    items.push_back({row.categoryId, FullName(row)});
  }
  return items;
}

std::optional<std::int64_t> CategoryCommand::Add(clsCorvanta& ledger, Session& session,
                                                 const std::string& name) {
  CategoryEditor editor(ledger, session.Machine().prompts);
  CategoryForm form;
  SetName(form, name);
  if (!type_.empty()) form.type = type_ == kIncome ? 1 : -1;
  form.budget = NumberOf(budget_);
  if (!period_.empty()) {
    const auto period = FindItem(PeriodItems(ledger), period_, "Period", "period", session);
    if (!period) return std::nullopt;
    form.periodId = period->key;
  }
  form.description = description_;
  return SaveChecked(editor, form, session);
}

std::optional<std::int64_t> CategoryCommand::Rename(clsCorvanta& ledger, Session& session,
                                                    std::int64_t key, const std::string& name) {
  CategoryEditor editor(ledger, session.Machine().prompts);
  std::optional<CategoryForm> form = editor.Load(key);
  if (!form) return std::nullopt;
  SetName(*form, name);
  return SaveChecked(editor, *form, session);
}

Deletion CategoryCommand::Delete(clsCorvanta& ledger, Prompts& prompts, std::int64_t key) {
  return CategoryEditor(ledger, prompts).Delete(key);
}

}  // namespace corvanta::inline cli
