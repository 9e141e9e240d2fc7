#include "cli/invest/InvestCommand.h"

#include "cli/Parser.h"
#include "cli/SavedForm.h"
#include "cli/Session.h"
#include "cli/arguments/InvestmentArgument.h"
#include "cli/output/OutputTable.h"
#include "invest/InvestEditor.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/investments/PriceBook.h"
#include "reference/RowOf.h"

namespace corvanta::inline cli {
namespace {
constexpr const char* kTitle = "Investment";
}

Parser* InvestCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand(
      "invest", "Investments, and the transactions of them: list, add, edit and delete");
  command->AllowCommand();
  command->AddCommand("list", "List the investments; so does the command alone");
  add_ = command->AddCommand("add", "Add an investment and print its key");
  add_->AddOption("name", name_, "The new investment's name")->Required();
  added_.Declare(*add_, true);
  edit_ = command->AddCommand("edit", "Change an investment, as far as options are given");
  delete_ = command->AddCommand("delete", "Delete an investment with its stored prices");
  for (Parser* form : {edit_, delete_}) {
    form->AddOption("item", name_, "Its name or symbol, or # and its key")->Required();
  }
  edit_->AddOption("--name", newName_, "Another name");
  edited_.Declare(*edit_, false);
  transactions_.Declare(*command);
  return command;
}

ExitStatus InvestCommand::Run(Session& session) {
  const bool writes =
      add_->Parsed() || edit_->Parsed() || delete_->Parsed() || transactions_.Writes();
  const std::optional<DataFile> file = session.Open(writes ? Access::Write : Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  if (transactions_.IsParsed()) return transactions_.Run(ledger, session);
  if (add_->Parsed()) return Add(ledger, session);
  if (edit_->Parsed()) return Edit(ledger, session);
  return delete_->Parsed() ? Delete(ledger, session) : List(ledger, session);
}

ExitStatus InvestCommand::List(clsCorvanta& ledger, Session& session) {
  OutputTable table({{"ID", OutputKind::Integer},
                     {"Investment"},
                     {"Symbol"},
                     {"Currency"},
                     {"Quoted In"},
                     {"Source"},
                     {"Conversion", OutputKind::Number},
                     {"Last Price", OutputKind::Number},
                     {"Price Date", OutputKind::Date},
                     {"Description"}});
  InvestmentBook& investments = ledger.Investments();
  const std::vector<StockSource> sources = investments.StockSources();
  for (const InvestmentDetails& row : investments.ListInvestments()) {
    const auto source = RowOf(sources, &StockSource::dataId, row.dataId);
    const auto last = ledger.Prices().LatestPrice(row.investmentId);
    table.AddRow({row.investmentId, row.investment, row.symbol, row.currency, row.investCurrency,
                  source ? source->name : std::string(), row.conversion,
                  last ? Value(last->price) : Value(), last ? Value(last->date) : Value(),
                  row.description});
  }
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus InvestCommand::Add(clsCorvanta& ledger, Session& session) const {
  InvestEditor editor(ledger, session.Machine());
  InvestmentRecord form = editor.New();
  form.investment = name_;
  if (!added_.Fill(form, ledger, session)) return ExitStatus::Refused;
  const auto key = SaveChecked(editor, form, session);
  if (!key) return ExitStatus::Refused;
  PrintKey(*key, session);
  return ExitStatus::Done;
}

ExitStatus InvestCommand::Edit(clsCorvanta& ledger, Session& session) const {
  const auto item = InvestmentArgument{name_}.Find(ledger, session);
  if (!item) return ExitStatus::Refused;
  InvestEditor editor(ledger, session.Machine());
  std::optional<InvestmentRecord> form = editor.Load(item->key);
  const InvestmentRecord loaded = *form;
  form->investment = newName_.value_or(form->investment);
  if (!edited_.Fill(*form, ledger, session)) return ExitStatus::Refused;
  return SaveChanges(editor, loaded, *form, kTitle, '"' + item->name + '"', session);
}

ExitStatus InvestCommand::Delete(clsCorvanta& ledger, Session& session) const {
  const auto item = InvestmentArgument{name_}.Find(ledger, session);
  if (!item) return ExitStatus::Refused;
  const Deletion deletion = InvestEditor(ledger, session.Machine()).Delete(item->key);
  if (deletion.isGone) session.Tell(kTitle, "\"" + item->name + "\" deleted");
  if (!deletion.kept.empty()) session.Tell(kTitle, deletion.Notice());
  return deletion.isGone ? ExitStatus::Done : ExitStatus::Refused;
}

}  // namespace corvanta::inline cli
