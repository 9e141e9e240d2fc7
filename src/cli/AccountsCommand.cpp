#include "cli/AccountsCommand.h"

#include "cli/Arguments.h"
#include "cli/NamedItem.h"
#include "cli/OutputTable.h"
#include "cli/SavedForm.h"
#include "cli/Session.h"
#include "ledger/clsCorvanta.h"
#include "reference/AccountEditor.h"

#include <CLI/CLI.hpp>

namespace corvanta {

CLI::App* AccountsCommand::Declare(CLI::App& parser) {
  CLI::App* command =
      parser.add_subcommand("accounts", "List the accounts with their balances, add one");
  command->require_subcommand(0, 1);
  command->add_subcommand("list", "List them; so does the command alone");
  add_ = command->add_subcommand("add", "Add an account");
  add_->add_option("name", name_, "The new account's name")->required();
  add_->add_option("--group", group_, "Its account group; a new one is made")->required();
  add_->add_option("--currency", currency_, "The code of its currency, such as GBP")->required();
  add_->add_option("--opening", opening_, "Its opening balance")
      ->type_name("N")
      ->check(NumberFault);
  add_->add_option("--number", number_, "Its number at the bank");
  add_->add_option("--bank", bank_, "Its bank; a new one is made");
  add_->add_option("--description", description_, "What it is");
  return command;
}

ExitStatus AccountsCommand::Run(Session& session) {
  return add_->parsed() ? Add(session) : List(session);
}

ExitStatus AccountsCommand::List(Session& session) const {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  OutputTable table({{"ID", OutputKind::Integer},
                     {"Account"},
                     {"Number"},
                     {"Group"},
                     {"Bank"},
                     {"Currency"},
                     {"Opening", OutputKind::Money},
                     {"Balance", OutputKind::Money},
                     {"Closed", OutputKind::Integer},
                     {"Description"}});
  for (const AccountRow& row : ledger.Accounts(StatusFilter{}, true)) {
    table.AddRow({row.accountId, row.account, row.accountNo, row.accountType, row.bank,
                  row.currency, row.openingBalance, row.balance, row.closed ? 1 : 0,
                  row.description});
  }
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus AccountsCommand::Add(Session& session) const {
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  std::vector<NamedItem> currencies;
  for (const CurrencyRecord& row : ledger.Currencies()) {
    currencies.push_back({row.currencyId, row.currency});
  }
  const auto currency = FindItem(currencies, currency_, "Currency", "currency", session);
  if (!currency) return ExitStatus::Refused;

  AccountEditor editor(ledger, session.Machine());
  AccountForm form;
  form.account = name_;
  form.accountNo = number_;
  form.accountGroup = group_;
  form.bank = bank_;
  form.currencyId = currency->key;
  form.openingBalance = NumberOf(opening_);
  form.description = description_;
  const std::optional<std::int64_t> key = SaveChecked(editor, form, session);
  if (!key) return ExitStatus::Refused;
  PrintKey(*key, session);
  return ExitStatus::Done;
}

}  // namespace corvanta
