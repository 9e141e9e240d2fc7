#include "cli/ExplainCommand.h"

#include "cli/CloseNames.h"
#include "cli/OutputTable.h"
#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/TransactionsArgument.h"
#include "invest/WebRates.h"
#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"
#include "reports/query/Explain.h"
#include "reports/query/ReportRunner.h"

#include <charconv>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Explain";

// The place of the column of that header, in whatever case; nullopt, told, when it has no figures.
std::optional<std::size_t> FindColumn(const ReportTable& report, const std::string& header,
                                      Session& session) {
  std::vector<std::string> headers;
  for (std::size_t i = 0; i < report.columns.size(); ++i) {
    if (!report.columns[i].HoldsNumbers()) continue;
    if (EqualFolded(report.columns[i].header, header)) return i;
    headers.push_back(report.columns[i].header);
  }
  session.Tell(kTitle, "There is no column of figures \"" + header + "\" in that report." +
                           DidYouMean(CloseNames(header, headers)));
  return std::nullopt;
}

}  // namespace

Parser* ExplainCommand::Declare(Parser& parser) {
  Parser* command =
      parser.AddCommand("explain", "List the rows that a figure of a report is made of");
  arguments_.Declare(*command, true);
  command->AddOption("--row", row_, "The figure's row as the report shows it, from 1")
      ->Required()
      ->Check(KeyFault);
  command->AddOption("--column", column_, "The header of its column")->Required();
  return command;
}

ExitStatus ExplainCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  ReportRequest request;
  if (!arguments_.Fill(request, ledger, session)) return ExitStatus::Refused;
  WebRates rates(ledger, session.Machine());
  const ReportTable report = RunReport(ledger, request, rates, session.Machine());
  std::size_t row = 0;
  std::from_chars(row_.data(), row_.data() + row_.size(), row);
  if (row < 1 || row > report.rows.size()) {
    return session.Refuse(kTitle, "The report has no row " + row_ + ": it has " +
                                      std::to_string(report.rows.size()) + ".");
  }
  const std::optional<std::size_t> column = FindColumn(report, column_, session);
  if (!column) return ExitStatus::Refused;

  OutputTable table({{"ID", OutputKind::Integer},
                     {"Date", OutputKind::Date},
                     {"Account"},
                     {"Payee"},
                     {"Amount", OutputKind::Number},
                     {"Currency"},
                     {"Rate", OutputKind::Number},
                     {"Sign", OutputKind::Integer},
                     {"Contribution", OutputKind::Number}});
  double sum = 0;
  for (const ExplainedRow& each :
       Explain(ledger, request, report, row - 1, *column, session.Machine())) {
    sum += each.contribution;
    table.AddRow({each.transactionId == 0 ? Value() : Value(each.transactionId),
                  each.date ? Value(*each.date) : Value(), each.account, each.payee,
                  RoundMoney(each.amount), each.currency, each.rate, each.sign,
                  RoundMoney(each.contribution)});
  }
  table.AddRow(
      {Value(), Value(), Value(), "Total", Value(), Value(), Value(), Value(), RoundMoney(sum)});
  session.Print(table);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
