#include "cli/exchange/ImportCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "exchange/import/ImportEditor.h"
#include "exchange/text/Encoding.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <algorithm>

namespace corvanta::inline cli {
namespace {

std::string MapFault(const std::string& text) {
  CsvMapping mapping;
  return mapping.SetColumns(text) ? "" : "'" + text + "' is no mapping such as DATE:1,PAYEE:2";
}

std::string SeparatorFault(const std::string& text) {
  return SeparatorOf(text) ? "" : "'" + text + "' is neither one character nor Tab";
}

std::string RowsFault(const std::string& text) {
  return IsWholeNumber(text, 4) ? "" : "'" + text + "' is no number of rows";
}

std::string EncodingFault(const std::string& text) {
  return IsEncoding(text) ? "" : "'" + text + "' is no encoding such as windows-1250";
}

DuplicateAnswer AnswerOf(const std::string& text) {
  if (text == "skip") return DuplicateAnswer::Skip;
  return text == "import" ? DuplicateAnswer::Import : DuplicateAnswer::Ask;
}

}  // namespace

Parser* ImportCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("import", "Import a QIF, OFX or CSV file");
  command->AddOption("file", file_, "The file to import")->Required()->Check(EmptyFault);
  command
      ->AddOption("--account", account_.name,
                  "Takes the records of a file that names no account (default: only accounts "
                  "that the file names)")
      ->TypeName("A")
      ->Check(EmptyFault);
  command
      ->AddOption("--named-accounts", namedAccounts_,
                  "Where the file names another account than --account: use it, or ignore it, so "
                  "that --account takes all")
      ->TypeName("ANSWER")
      ->Correct(OneOf({"use", "ignore"}));
  command->AddFlag("--complete-transfers", completesTransfers_,
                   "Make the other half of transfers of which the file holds one half only");
  DeclareAnswers(*command);
  DeclareStyle(*command);
  DeclareCsv(*command);
  return command;
}

void ImportCommand::DeclareAnswers(Parser& command) {
  command.AddOption("--duplicates", duplicates_, "What to do with duplicates: skip or import")
      ->TypeName("ANSWER")
      ->Correct(OneOf({"skip", "import"}));
  command
      .AddOption("--incomplete", incomplete_,
                 "What to do with the records before a fault that stops the import: keep or drop")
      ->TypeName("ANSWER")
      ->Correct(OneOf({"keep", "drop"}));
}

// How dates, amounts and texts stand in the file.
void ImportCommand::DeclareStyle(Parser& command) {
  command
      .AddOption("--order", order_,
                 "Order of the dates: Day/Month/Year, Month/Day/Year or Year/Month/Day (default: "
                 "as the file shows)")
      ->TypeName("ORDER")
      ->Correct(OneOf({"Day/Month/Year", "Month/Day/Year", "Year/Month/Day"}));
  command
      .AddOption("--decimal", decimal_,
                 "Mark before decimals: point or comma (default: as the file shows)")
      ->TypeName("MARK")
      ->Correct(OneOf({"point", "comma"}));
  command
      .AddOption("--encoding", encoding_,
                 "Encoding of the file's text, such as UTF-8, windows-1250 or shift_jis (default: "
                 "as the file shows)")
      ->TypeName("NAME")
      ->Check(EncodingFault);
}

void ImportCommand::DeclareCsv(Parser& command) {
  command
      .AddOption("--map", map_,
                 "Columns of a CSV file: DATE:1,PAYEE:2,CATEGORY:3,INCOME:4,EXPENSE:5, and SIGN:6 "
                 "for one that says debit or credit, DESCRIPTION:7, REFERENCE:8, NUMBER:9")
      ->TypeName("COLUMNS")
      ->Check(MapFault);
  command.AddOption("--skip", skip_, "Rows of a CSV file before the first transaction")
      ->TypeName("N")
      ->Check(RowsFault);
  command.AddOption("--separator", separator_, "Between the columns of a CSV file (default: ,)")
      ->TypeName("S")
      ->Check(SeparatorFault);
  command.AddFlag("--zero-is-empty", zeroIsEmpty_,
                  "A zero in one of two amount columns of a CSV file stands for nothing");
  command
      .AddOption("--debit", debit_,
                 "What the sign column says of money out, with commas between several words")
      ->TypeName("WORDS")
      ->Check(EmptyFault);
  command.AddOption("--credit", credit_, "The same of money in")
      ->TypeName("WORDS")
      ->Check(EmptyFault);
  command.AddOption("--mapping", mapping_, "The saved mapping of a CSV file")
      ->TypeName("NAME")
      ->Check(EmptyFault);
  command.AddOption("--save-mapping", saveMapping_, "Saves the mapping under this name")
      ->TypeName("NAME")
      ->Check(EmptyFault);
}

ExitStatus ImportCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  ImportForm form;
  form.file = file_;
  form.accountId = 0;
  if (!account_.name.empty()) {
    const std::optional<AccountRow> account = account_.Find(ledger, session);
    if (!account) return ExitStatus::Refused;
    form.accountId = account->accountId;
  }
  if (!order_.empty()) form.dateOrder = DateOrderOf(order_);
  if (!decimal_.empty()) {
    form.decimalMark = decimal_ == "point" ? DecimalMark::Point : DecimalMark::Comma;
  }
  form.encoding = encoding_;
  ImportEditor editor(ledger, session.Machine());
  std::optional<Warning> warning = Check(editor, form);
  if (warning && warning->field == kCurrencyField) {
    form.takesFigures = session.Machine().prompts.Ask("Import Currency?", warning->text);
    if (!form.takesFigures) return ExitStatus::Refused;
    warning = Check(editor, form);
  }
  if (!warning && editor.Kind() == ImportKind::Csv) warning = SetCsv(editor, form);
  if (warning) return session.Refuse(warning->title, warning->text);
  return Import(editor, form, session);
}

std::optional<Warning> ImportCommand::Check(ImportEditor& editor, ImportForm& form) const {
  if (!namedAccounts_.empty()) form.chosenTakesAll = namedAccounts_ == "ignore";
  std::optional<Warning> warning = editor.Check(form);
  if (warning && warning->field == "cmbOwner") {
    warning->text += "\nAnswer with --named-accounts use or --named-accounts ignore.";
  }
  return warning;
}

std::optional<Warning> ImportCommand::SetCsv(ImportEditor& editor, ImportForm& form) const {
  if (!mapping_.empty()) {
    const std::vector<std::string> names = editor.MappingNames();
    if (std::ranges::find(names, mapping_) == names.end()) {
      return Warning{kFileImport, "There is no mapping \"" + mapping_ + "\".", ""};
    }
    form = editor.WithMapping(mapping_, form);
    if (!encoding_.empty()) form.encoding = encoding_;
    if (auto warning = editor.Open(form.file, form.encoding)) return warning;
  }
  if (!map_.empty() && !form.csv.SetColumns(map_)) return Warning{kFileImport, map_, ""};
  if (!skip_.empty()) form.skip = skip_;
  if (!separator_.empty()) form.separator = separator_;
  if (zeroIsEmpty_) form.csv.zeroIsEmpty = true;
  if (!debit_.empty()) form.csv.debitWords = debit_;
  if (!credit_.empty()) form.csv.creditWords = credit_;
  if (form.decimalMark) form.csv.decimalMark = form.decimalMark;
  if (form.dateOrder) {
    form.csv.order = *form.dateOrder;
  } else if (mapping_.empty()) {
    form.csv.order = editor.FindOrder(form);
  }
  if (auto warning = editor.CheckCsv(form)) return warning;
  return saveMapping_.empty() ? std::nullopt : editor.SaveMapping(saveMapping_, form);
}

ExitStatus ImportCommand::Import(ImportEditor& editor, const ImportForm& form,
                                 Session& session) const {
  ImportSummary summary = editor.Import(form, AnswerOf(duplicates_), incomplete_ == "keep");
  if (completesTransfers_ && !summary.completable.empty()) editor.CompleteTransfers(summary);
  if (summary.outcome != ImportOutcome::Refused) session.Tell(kFileImport, summary.Text());
  if (summary.outcome != ImportOutcome::Kept && summary.outcome != ImportOutcome::Dropped) {
    editor.Finish(summary);
  }
  const bool isDone = summary.outcome == ImportOutcome::Complete &&
                      (!summary.BroughtNothing() || summary.duplicates > 0);
  return isDone ? ExitStatus::Done : ExitStatus::Refused;
}

}  // namespace corvanta::inline cli
