#include "cli/transactions/MultiEditCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/EntryArguments.h"
#include "entry/MultiEditor.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryPath.h"
#include "ledger/transactions/BulkChange.h"

namespace corvanta::inline cli {
namespace {

TypeChange ChangeOf(const std::string& word) {
  if (word == "income") return TypeChange::Income;
  if (word == "expense") return TypeChange::Expense;
  return word == "reverse" ? TypeChange::Reverse : TypeChange::None;
}

}  // namespace

Parser* MultiEditCommand::Declare(Parser& parser) {
  Parser* command =
      parser.AddCommand("multi-edit", "Change several transactions, as far as options are given");
  transactions_.Declare(*command);
  command->AddOption("--account", account_, "The account they are moved to")->Check(EmptyFault);
  command
      ->AddOption("--type", type_,
                  "income, expense, or reverse for the other one; never of "
                  "transfers and investments")
      ->TypeName("TYPE")
      ->Correct(OneOf({"income", "expense", "reverse"}));
  command->AddOption("--payment", payment_, "The payment type");
  command->AddOption("--payee", payee_, "The payee");
  command->AddOption("--category", category_, "Category or Category:SubCategory");
  DeclareStatus(*command, status_);
  return command;
}

bool MultiEditCommand::Fill(MultiEditForm& form, clsCorvanta& ledger, Session& session) const {
  if (!account_.empty()) {
    const auto account = AccountOf(ledger, account_, session);
    if (!account) return false;
    form.accountId = *account;
  }
  form.type = ChangeOf(type_);
  form.payment = payment_;
  form.payee = payee_;
  const CategoryName name = CategoryOf(ledger, category_);
  form.category = name.category;
  form.subCategory = name.subCategory;
  if (status_) form.status = StatusOf(*status_);
  return true;
}

ExitStatus MultiEditCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const auto rows = transactions_.Find(ledger, session);
  MultiEditForm form;
  if (!rows || !Fill(form, ledger, session)) return ExitStatus::Refused;
  MultiEditor editor(ledger, session.Machine());
  const std::vector<std::int64_t> keys = KeysOf(*rows);
  if (const auto warning = editor.Check(form, keys)) {
    return session.Refuse(warning->title, warning->text);
  }
  const auto changed = editor.Save(form, keys);
  if (!changed) return ExitStatus::Refused;
  session.Tell("Multi-edit", TransactionCount(*changed) + " changed");
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
