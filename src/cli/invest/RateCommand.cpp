#include "cli/invest/RateCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/output/OutputTable.h"
#include "invest/rates/CurrencyConverter.h"
#include "invest/rates/RateEditor.h"
#include "invest/rates/WebRates.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/Clock.h"
#include "platform/Platform.h"

#include <ostream>

namespace corvanta::inline cli {
namespace {
constexpr const char* kTitle = "Download Currency";
}  // namespace

Parser* RateCommand::Declare(Parser& parser) {
  Parser* command =
      parser.AddCommand("rate", "Fetch an exchange rate; list and enter those that are known");
  const char* fromHelp = "The code of the currency that is given: EUR";
  const char* toHelp = "The code of the currency that is got for one of it";
  command->AddOption("from", from_, fromHelp);
  command->AddOption("to", to_, toHelp);
  command->AllowCommand();
  list_ = command->AddCommand("list", "List the rates that were fetched or entered");
  set_ = command->AddCommand("set", "Enter the rate of a day");
  set_->AddOption("from", from_, fromHelp)->Required();
  set_->AddOption("to", to_, toHelp)->Required();
  set_->AddOption("rate", rate_, "Units of the second currency for one of the first")
      ->Required()
      ->Check(NumberFault);
  set_->AddOption("--date", date_, "The day (default: today)")
      ->TypeName("YYYY-MM-DD")
      ->Check(DateFault);
  command->Finally([this] {
    if (list_->Parsed() || set_->Parsed()) return;
    if (from_.empty()) throw UsageError("from is required");
    if (to_.empty()) throw UsageError("to is required");
  });
  return command;
}

ExitStatus RateCommand::Run(Session& session) {
  // What is fetched is kept.
  const std::optional<DataFile> file = session.Open(list_->Parsed() ? Access::Read : Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  if (list_->Parsed()) return List(ledger, session);
  return set_->Parsed() ? Set(ledger, session) : Fetch(ledger, session);
}

std::optional<NamedItem> RateCommand::Find(clsCorvanta& ledger, const std::string& code,
                                           Session& session) {
  std::vector<NamedItem> codes;
  for (const CurrencyRecord& row : ledger.References().Currencies()) {
    codes.push_back({row.currencyId, row.currency});
  }
  return FindItem(codes, code, kTitle, "currency", session);
}

ExitStatus RateCommand::Fetch(clsCorvanta& ledger, Session& session) const {
  const auto from = Find(ledger, from_, session);
  if (!from) return ExitStatus::Refused;
  const auto to = Find(ledger, to_, session);
  if (!to) return ExitStatus::Refused;
  WebRates rates(ledger, session.Machine());
  const auto answer = rates.Rate(from->name, to->name);
  if (!answer) {
    session.Tell(kTitle, "Could not connect to website");
    return ExitStatus::MachineFailed;
  }
  if (!answer->notice.empty()) session.Tell(kTitle, answer->notice);
  if (session.Options().format == "text") {
    const CurrencyConverter converter(rates, session.Machine().locale);
    session.Out() << "1 " << from->name << " = " << converter.PlainNumber(answer->rate) << ' '
                  << to->name << '\n';
    return ExitStatus::Done;
  }
  OutputTable table({{"From"}, {"To"}, {"Rate", OutputKind::Number}});
  table.AddRow({from->name, to->name, answer->rate});
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus RateCommand::List(clsCorvanta& ledger, Session& session) const {
  OutputTable table({{"ID", OutputKind::Integer},
                     {"From"},
                     {"To"},
                     {"Date", OutputKind::Date},
                     {"Rate", OutputKind::Number},
                     {"Source"}});
  RateEditor editor(ledger, session.Machine());
  for (const RateRecord& row : editor.Rows()) {
    table.AddRow({row.rateId, row.from, row.to, row.date, row.rate, row.source});
  }
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus RateCommand::Set(clsCorvanta& ledger, Session& session) const {
  const auto from = Find(ledger, from_, session);
  if (!from) return ExitStatus::Refused;
  const auto to = Find(ledger, to_, session);
  if (!to) return ExitStatus::Refused;
  RateEditor editor(ledger, session.Machine());
  const Date day = date_.empty() ? session.Machine().clock.Today() : *Date::FromIso(date_);
  const RateForm form{from->name, to->name, day, NumberOf(rate_)};
  if (const auto warning = RateEditor::Check(form)) {
    return session.Refuse(warning->title, warning->text);
  }
  editor.Save(form);
  session.Tell("Rate", from->name + " to " + to->name + " has a rate of " + day.ToIso());
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
