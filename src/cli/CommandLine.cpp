#include "cli/CommandLine.h"

#include "cli/CompletionCommand.h"
#include "cli/LoanCommand.h"
#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/SettingsCommand.h"
#include "cli/accounts/AccountsCommand.h"
#include "cli/accounts/BalanceCommand.h"
#include "cli/accounts/ReconcileCommand.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/CloseNames.h"
#include "cli/exchange/ExportCommand.h"
#include "cli/exchange/ImportCommand.h"
#include "cli/files/ArchiveCommand.h"
#include "cli/files/BackupCommand.h"
#include "cli/files/KeyCommand.h"
#include "cli/files/NewCommand.h"
#include "cli/files/PassphraseCommand.h"
#include "cli/files/PasswordCommand.h"
#include "cli/files/RestoreCommand.h"
#include "cli/files/SalvageCommand.h"
#include "cli/files/SqlCommand.h"
#include "cli/files/TransferCommand.h"
#include "cli/files/ValidateCommand.h"
#include "cli/invest/DownloadCommand.h"
#include "cli/invest/HoldingsCommand.h"
#include "cli/invest/InvestCommand.h"
#include "cli/invest/PriceCommand.h"
#include "cli/invest/RateCommand.h"
#include "cli/invest/SourceCommand.h"
#include "cli/invest/WatchCommand.h"
#include "cli/reference/CategoryCommand.h"
#include "cli/reference/EditorCommand.h"
#include "cli/reference/KeywordCommand.h"
#include "cli/reference/MergeCommand.h"
#include "cli/reports/BudgetCommand.h"
#include "cli/reports/ExplainCommand.h"
#include "cli/reports/ForecastCommand.h"
#include "cli/reports/ReportCommand.h"
#include "cli/schedules/PostCommand.h"
#include "cli/schedules/RemindersCommand.h"
#include "cli/schedules/ScheduleCommand.h"
#include "cli/transactions/AddCommand.h"
#include "cli/transactions/AttachCommand.h"
#include "cli/transactions/AutofillCommand.h"
#include "cli/transactions/DeleteCommand.h"
#include "cli/transactions/EditCommand.h"
#include "cli/transactions/FindCommand.h"
#include "cli/transactions/MultiEditCommand.h"
#include "cli/transactions/RegisterCommand.h"
#include "cli/transactions/SetStatusCommand.h"
#include "cli/transactions/SplitCommand.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/ConsolePrompts.h"
#include "platform/PlatformError.h"
#include "platform/Progress.h"
#include "platform/ShownText.h"
#include "platform/SystemPlatform.h"
#include "store/sql/FailureText.h"

#include <fcntl.h>

#include <algorithm>
#include <ostream>

namespace corvanta::inline cli {
namespace {

ExitStatus StatusOf(StoreErrorCode code) {
  switch (code) {
    case StoreErrorCode::Sql:
    case StoreErrorCode::Constraint:
      return ExitStatus::Refused;
    case StoreErrorCode::DiskFull:
    case StoreErrorCode::Io:
      return ExitStatus::MachineFailed;
    default:
      return ExitStatus::DataFileUnusable;
  }
}

// A descriptor that is not open now could become the data file's before the password is read.
std::string DescriptorFault(const std::string& text) {
  if (!IsWholeNumber(text, 9)) return "'" + text + "' is no file descriptor";
  return ::fcntl(std::stoi(text), F_GETFD) < 0 ? "descriptor " + text + " is not open" : "";
}

std::string WaitFault(const std::string& text) {
  return IsWholeNumber(text, 5) ? "" : "'" + text + "' is no number of seconds";
}

std::string AnswerFault(const std::string& text) {
  const bool isAnswer = text.ends_with("=yes") || text.ends_with("=no");
  return isAnswer ? "" : "'" + text + "' is no answer such as \"Add Category=yes\"";
}

ConsoleAnswers AnswersOf(const GlobalOptions& options) {
  ConsoleAnswers answers;
  if (options.yes || options.no) answers.all = options.yes;
  for (const std::string& text : options.answers) {
    const std::size_t mark = text.rfind('=');
    answers.named.push_back({text.substr(0, mark), text.substr(mark) == "=yes"});
  }
  answers.secretDescriptor = options.passwordFd.value_or(-1);
  return answers;
}

}  // namespace

CommandLine::CommandLine(std::ostream& out, std::ostream& messages)
    : out_(out), messages_(messages) {}

ExitStatus CommandLine::Run(std::vector<std::string> arguments) {
  try {
    const ExitStatus status = Parse(std::move(arguments));
    if (!out_.flush())
      throw PlatformError(
          "The output could not be written. What the command has changed is kept. Check where the "
          "output goes, and the space that is left there.");
    return status;
  } catch (const PromptRefused& refusal) {
    return Report("Refused", refusal.what(), ExitStatus::Refused);
  } catch (const StoreError& error) {
    return Report("Data File", FailureText(error), StatusOf(error.Code()));
  } catch (const FileRefused& error) {
    return Report("File", error.what(), ExitStatus::Refused);
  } catch (const PlatformError& error) {
    return Report("System", error.what(), ExitStatus::MachineFailed);
  } catch (const std::exception& error) {
    return Report("Unexpected Error", FailureText(error), ExitStatus::MachineFailed);
  }
}

ExitStatus CommandLine::Parse(std::vector<std::string> arguments) {
  Parser parser("Corvanta on the command line", "corvanta-cli");
  DeclareOptions(parser);
  DeclareCommands(parser);
  try {
    const bool isTold = parser.Parse(std::move(arguments), out_) == Parser::Outcome::Told;
    return isTold ? ExitStatus::Done : RunChosen();
  } catch (const UsageError& error) {
    return Report("Usage",
                  UsageFault(parser, error) + "\nRun corvanta-cli --help for the commands.",
                  ExitStatus::WrongUsage);
  }
}

std::string CommandLine::UsageFault(const Parser& parser, const UsageError& error) const {
  const std::vector<std::string> rest = parser.Remaining();
  const bool isChosen =
      std::ranges::any_of(commands_, [](const auto& entry) { return entry.first->Parsed(); });
  if (isChosen || rest.empty()) return error.what();
  std::vector<std::string> names;
  for (const auto& [command, unused] : commands_) names.push_back(command->Name());
  return "There is no command \"" + rest.front() + "\"." +
         DidYouMean(CloseNames(rest.front(), names));
}

void CommandLine::DeclareOptions(Parser& parser) {
  parser.AddVersion("--version", "corvanta-cli " CORVANTA_VERSION, "Print the version and exit");
  parser.RequireCommand();
  parser.AddOption("--profile", options_.profile, "Folder of settings (default: the user's)")
      ->TypeName("DIR")
      ->Check(EmptyFault);
  parser.AddOption("--data", options_.data, "Data file or its folder, for this run only")
      ->TypeName("PATH")
      ->Check(EmptyFault);
  parser.AddOption("--today", options_.today, "The day that counts as today")
      ->TypeName("YYYY-MM-DD")
      ->Check(DateFault);
  parser.AddOption("--format", options_.format, "Form of the output: text, csv or json")
      ->TypeName("FORM")
      ->Correct(OneOf({"text", "csv", "json"}));
  Argument* yes = parser.AddFlag("--yes", options_.yes, "Answer every question with yes");
  parser.AddFlag("--no", options_.no, "Answer every question with no")->Excludes(yes);
  parser
      .AddOption("--answer", options_.answers,
                 "Answer the question of that title, whatever --yes and --no say")
      ->TypeName("TITLE=yes|no")
      ->Repeated()
      ->Check(AnswerFault);
  parser
      .AddOption("--password-fd", options_.passwordFd, "File descriptor to read the password from")
      ->TypeName("N")
      ->Check(DescriptorFault);
  parser
      .AddOption("--wait", options_.wait,
                 "Seconds to wait for another program that is writing the data file (default: 5)")
      ->TypeName("SECONDS")
      ->Check(WaitFault);
}

template <typename Declared, typename... Arguments>
void CommandLine::Declare(Parser& parser, Arguments... arguments) {
  auto command = std::make_unique<Declared>(arguments...);
  Parser* declared = command->Declare(parser);
  commands_.emplace_back(declared, std::move(command));
}

// In the order in which the help lists them.
void CommandLine::DeclareCommands(Parser& parser) {
  commands_.clear();
  DeclareFiles(parser);
  DeclareEntries(parser);
  DeclareLists(parser);
  DeclareExchange(parser);
  DeclareReports(parser);
}

void CommandLine::DeclareFiles(Parser& parser) {
  Declare<NewCommand>(parser);
  Declare<ValidateCommand>(parser);
  Declare<SqlCommand>(parser);
  Declare<SettingsCommand>(parser);
  Declare<KeyCommand>(parser);
  Declare<PasswordCommand>(parser);
  Declare<PassphraseCommand>(parser);
  Declare<BackupCommand>(parser);
  Declare<RestoreCommand>(parser);
  Declare<TransferCommand>(parser);
  Declare<ArchiveCommand>(parser);
  Declare<SalvageCommand>(parser);
}

void CommandLine::DeclareEntries(Parser& parser) {
  Declare<AccountsCommand>(parser);
  Declare<BalanceCommand>(parser);
  Declare<RegisterCommand>(parser);
  Declare<FindCommand>(parser);
  Declare<AddCommand>(parser);
  Declare<EditCommand>(parser);
  Declare<SplitCommand>(parser);
  Declare<MultiEditCommand>(parser);
  Declare<AutofillCommand>(parser);
  Declare<ScheduleCommand>(parser);
  Declare<PostCommand>(parser);
  Declare<RemindersCommand>(parser);
  Declare<WatchCommand>(parser);
  Declare<ReconcileCommand>(parser);
  Declare<SetStatusCommand>(parser);
  Declare<DeleteCommand>(parser);
  Declare<AttachCommand>(parser);
}

void CommandLine::DeclareLists(Parser& parser) {
  Declare<CategoryCommand>(parser);
  Declare<EditorCommand<PayeeRecord>>(parser, "payee", "Payee");
  Declare<EditorCommand<PaymentRecord>>(parser, "payment", "Payment");
  Declare<EditorCommand<BankRecord>>(parser, "bank", "Bank");
  Declare<EditorCommand<AccountGroupRecord>>(parser, "group", "Group");
  Declare<EditorCommand<CurrencyRecord>>(parser, "currency", "Currency");
  Declare<KeywordCommand>(parser);
  Declare<InvestCommand>(parser);
  Declare<MergeCommand>(parser);
}

void CommandLine::DeclareExchange(Parser& parser) {
  Declare<ImportCommand>(parser);
  Declare<ExportCommand>(parser);
  Declare<PriceCommand>(parser);
  Declare<DownloadCommand>(parser);
  Declare<RateCommand>(parser);
  Declare<SourceCommand>(parser);
}

void CommandLine::DeclareReports(Parser& parser) {
  Declare<HoldingsCommand>(parser);
  Declare<ReportCommand>(parser);
  Declare<ExplainCommand>(parser);
  Declare<BudgetCommand>(parser);
  Declare<ForecastCommand>(parser);
  Declare<LoanCommand>(parser, LoanMode::Loan);
  Declare<LoanCommand>(parser, LoanMode::Mortgage);
  Declare<CompletionCommand>(parser);
}

ExitStatus CommandLine::RunChosen() {
  const auto chosen =
      std::ranges::find_if(commands_, [](const auto& entry) { return entry.first->Parsed(); });
  ConsolePrompts prompts(AnswersOf(options_), messages_);
  SilentProgress progress;
  SystemPlatform machine({options_.profile.value_or(""), Date::FromIso(options_.today), ""},
                         prompts, progress);
  Session session(machine.Get(), options_, chosen->first->Name(), out_, messages_);
  return chosen->second->Run(session);
}

ExitStatus CommandLine::Report(const std::string& title, const std::string& text,
                               ExitStatus status) {
  out_.flush();
  messages_ << ShownText(title + ": " + text) << std::endl;
  return status;
}

}  // namespace corvanta::inline cli
