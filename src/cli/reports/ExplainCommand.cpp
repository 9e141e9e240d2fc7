#include "cli/reports/ExplainCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/CloseNames.h"
#include "cli/arguments/TransactionsArgument.h"
#include "cli/output/OutputTable.h"
#include "cli/reports/ShownReport.h"
#include "ledger/Money.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"
#include "reports/query/Explain.h"

#include <charconv>
#include <optional>
#include <string>
#include <vector>

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

// The rows and, behind them, their sum.
void PrintRows(const std::vector<ExplainedRow>& rows, Session& session) {
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
  for (const ExplainedRow& each : rows) {
    sum += each.contribution;
    table.AddRow({each.transactionId == 0 ? Value() : Value(each.transactionId),
                  each.date ? Value(*each.date) : Value(), each.account, each.payee,
                  RoundMoney(each.amount), each.currency, each.rate, each.sign,
                  RoundMoney(each.contribution)});
  }
  table.AddRow(
      {Value(), Value(), Value(), "Total", Value(), Value(), Value(), Value(), RoundMoney(sum)});
  session.Print(table);
}

}  // namespace

Parser* ExplainCommand::Declare(Parser& parser) {
  Parser* command =
      parser.AddCommand("explain", "List the rows that a figure of a report is made of");
  arguments_.DeclareReport(*command, true);
  arguments_.DeclareFilters(*command);
  command->AddOption("--row", row_, "The figure's row as the report shows it, from 1")
      ->Required()
      ->Check(KeyFault);
  command->AddOption("--column", column_, "The header of its column")->Required();
  return command;
}

ExitStatus ExplainCommand::Run(Session& session) {
  const auto shown = ShownReport::Run(session, [&](ReportRequest& request, clsCorvanta& ledger) {
    return arguments_.FillReport(request, session) && arguments_.Apply(request, ledger, session);
  });
  if (!shown) return ExitStatus::Refused;
  const ReportTable& report = shown->Table();
  std::size_t row = 0;
  std::from_chars(row_.data(), row_.data() + row_.size(), row);
  if (row < 1 || row > report.rows.size()) {
    return session.Refuse(kTitle, "The report has no row " + row_ + ": it has " +
                                      std::to_string(report.rows.size()) + ".");
  }
  const std::optional<std::size_t> column = FindColumn(report, column_, session);
  if (!column) return ExitStatus::Refused;
  PrintRows(Explain(shown->Ledger(), shown->Request(), report, row - 1, *column, session.Machine()),
            session);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
