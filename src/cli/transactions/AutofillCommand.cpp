#include "cli/transactions/AutofillCommand.h"

#include "cli/Parser.h"
#include "cli/SavedForm.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/EntryArguments.h"
#include "cli/arguments/NamedItem.h"
#include "entry/AutofillEditor.h"
#include "entry/EntryLists.h"
#include "ledger/clsCorvanta.h"

namespace corvanta::inline cli {
namespace {

std::vector<NamedItem> Items(const std::vector<Choice>& choices) {
  std::vector<NamedItem> items;
  for (const Choice& choice : choices) items.push_back({choice.key, choice.name});
  return items;
}

}  // namespace

Parser* AutofillCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand(
      "autofill", "Enter a transaction like the payee's last one of the category");
  command->AddOption("--account", account_, "The account")->Required();
  command->AddOption("--payee", payee_, "The payee")->Required();
  command->AddOption("--category", category_, "Category or Category:SubCategory")->Required();
  command->AddOption("--amount", amount_, "Without a sign, in the account's currency")
      ->TypeName("N")
      ->Check(NumberFault)
      ->Required();
  command->AddOption("--type", type_, "expense or income")
      ->TypeName("TYPE")
      ->Correct(OneOf({"expense", "income"}))
      ->Required();
  command->AddOption("--date", date_, "The day, today without it (YYYY-MM-DD)")->Check(DateFault);
  return command;
}

bool AutofillCommand::Fill(AutofillForm& form, clsCorvanta& ledger, Session& session) const {
  const auto payee = FindItem(Items(PayeeChoices(ledger)), payee_, "Payee", "payee", session);
  if (!payee) return false;
  const auto category =
      FindItem(Items(CategoryPairs(ledger)), category_, "Category", "category", session);
  if (!category) return false;
  form.payeeId = payee->key;
  form.categoryId = category->key;
  form.amount = NumberOf(amount_);
  form.type = EntryTypeOf(type_);
  form.date = Date::FromIso(date_).value_or(form.date);
  return true;
}

ExitStatus AutofillCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const auto account = AccountOf(ledger, account_, session);
  if (!account) return ExitStatus::Refused;
  AutofillEditor editor(ledger, session.Machine());
  AutofillForm form = editor.New(*account);
  if (!Fill(form, ledger, session)) return ExitStatus::Refused;
  const auto key = SaveChecked(editor, form, session);
  if (!key) return ExitStatus::Refused;
  PrintKey(*key, session);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
