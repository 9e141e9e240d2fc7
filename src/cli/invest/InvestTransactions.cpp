#include "cli/invest/InvestTransactions.h"

#include "cli/Parser.h"
#include "cli/SavedForm.h"
#include "cli/Session.h"
#include "cli/arguments/AccountArgument.h"
#include "cli/arguments/EntryArguments.h"
#include "cli/arguments/InvestmentArgument.h"
#include "cli/output/OutputTable.h"
#include "invest/InvestTransEditor.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/transactions/TransactionBook.h"

#include <algorithm>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Investment Transaction";

OutputTable EmptyList() {
  return OutputTable({{"ID", OutputKind::Integer},
                      {"Date", OutputKind::Date},
                      {"Account"},
                      {"Investment"},
                      {"Symbol"},
                      {"Action"},
                      {"Dividend", OutputKind::Number},
                      {"Shares", OutputKind::Number},
                      {"Price", OutputKind::Number},
                      {"Commission", OutputKind::Number},
                      {"Amount", OutputKind::Money},
                      {"Currency"},
                      {"Status"},
                      {"Description"}});
}

// True, told, when one of the rows is an ordinary transaction.
bool RefuseOrdinary(const std::vector<TransactionDetails>& rows, Session& session) {
  const auto other =
      std::ranges::find_if(rows, [](const TransactionDetails& row) { return row.action == 0; });
  if (other == rows.end()) return false;
  session.Tell(kTitle, "Transaction " + std::to_string(other->transactionId) +
                           " is none of an investment. It is changed with edit and delete.");
  return true;
}

}  // namespace

void InvestTransactions::Declare(Parser& invest) {
  command_ = invest.AddCommand("transaction", "What was bought, sold and paid out");
  command_->AllowCommand();
  Parser* list = command_->AddCommand("list", "List them, the newest first");
  list->AddOption("--account", account_, "Those of one account");
  list->AddOption("--investment", investment_, "Those of one investment");
  period_.Declare(*list);
  status_.Declare(*list);
  add_ = command_->AddCommand("add", "Enter one and print its key");
  added_.Declare(*add_, true);
  edit_ = command_->AddCommand("edit", "Change one, as far as options are given");
  one_.DeclareOne(*edit_);
  edited_.Declare(*edit_, false);
  delete_ = command_->AddCommand("delete", "Delete investment transactions");
  several_.Declare(*delete_);
}

bool InvestTransactions::IsParsed() const {
  return command_->Parsed();
}

bool InvestTransactions::Writes() const {
  return add_->Parsed() || edit_->Parsed() || delete_->Parsed();
}

ExitStatus InvestTransactions::Run(clsCorvanta& ledger, Session& session) const {
  if (add_->Parsed()) return Add(ledger, session);
  if (edit_->Parsed()) return Edit(ledger, session);
  return delete_->Parsed() ? Delete(ledger, session) : List(ledger, session);
}

ExitStatus InvestTransactions::List(clsCorvanta& ledger, Session& session) const {
  std::int64_t account = 0;
  if (!account_.empty()) {
    const auto found = AccountOf(ledger, account_, session);
    if (!found) return ExitStatus::Refused;
    account = *found;
  }
  std::int64_t investment = 0;
  if (!investment_.empty()) {
    const auto found = InvestmentArgument{investment_}.Find(ledger, session);
    if (!found) return ExitStatus::Refused;
    investment = found->key;
  }
  const std::optional<Period> period = period_.Get();
  OutputTable table = EmptyList();
  for (const InvestmentTransactionRow& row : ledger.Investments().ListTransactions(status_.Get())) {
    if (account != 0 && row.accountId != account) continue;
    if (investment != 0 && row.payeeId != investment) continue;
    if (period && (row.date < period->from || period->to < row.date)) continue;
    table.AddRow({row.transactionId, row.date, row.account, row.investment, row.symbol,
                  ActionName(static_cast<std::int64_t>(row.action)), row.dividend, row.shares,
                  row.price, row.commission, row.amount, row.currency, row.letter,
                  row.description});
  }
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus InvestTransactions::Add(clsCorvanta& ledger, Session& session) const {
  InvestTransEditor editor(ledger, session.Machine());
  if (const auto warning = editor.CheckOpen(0)) {
    return session.Refuse(warning->title, warning->text);
  }
  InvestTransForm form = editor.New(0, 0);
  if (!added_.Fill(form, editor, ledger, session)) return ExitStatus::Refused;
  const auto key = SaveChecked(editor, form, session);
  if (!key) return ExitStatus::Refused;
  PrintKey(*key, session);
  return ExitStatus::Done;
}

ExitStatus InvestTransactions::Edit(clsCorvanta& ledger, Session& session) const {
  const auto rows = one_.Find(ledger, session);
  if (!rows || RefuseOrdinary(*rows, session)) return ExitStatus::Refused;
  const std::int64_t key = rows->front().transactionId;
  InvestTransEditor editor(ledger, session.Machine());
  if (const auto warning = editor.CheckOpen(key)) {
    return session.Refuse(warning->title, warning->text);
  }
  std::optional<InvestTransForm> form = editor.Load(key);
  const InvestTransForm loaded = *form;
  if (!edited_.Fill(*form, editor, ledger, session)) return ExitStatus::Refused;
  return SaveChanges(editor, loaded, *form, kTitle, "Transaction " + std::to_string(key), session);
}

ExitStatus InvestTransactions::Delete(clsCorvanta& ledger, Session& session) const {
  const auto rows = several_.Find(ledger, session);
  if (!rows || RefuseOrdinary(*rows, session)) return ExitStatus::Refused;
  return DeleteRows(*rows, ledger, session);
}

}  // namespace corvanta::inline cli
