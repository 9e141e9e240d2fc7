#include "cli/ImportCommand.h"

#include "cli/Arguments.h"
#include "cli/Session.h"
#include "exchange/Encoding.h"
#include "exchange/ImportEditor.h"
#include "ledger/AccountRow.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"

#include <CLI/CLI.hpp>

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
  const bool isNumber = !text.empty() && text.size() <= 4 &&
                        text.find_first_not_of("0123456789") == std::string::npos;
  return isNumber ? "" : "'" + text + "' is no number of rows";
}

std::string EncodingFault(const std::string& text) {
  return IsEncoding(text) ? "" : "'" + text + "' is no encoding such as windows-1250";
}

DuplicateAnswer AnswerOf(const std::string& text) {
  if (text == "skip") return DuplicateAnswer::Skip;
  return text == "import" ? DuplicateAnswer::Import : DuplicateAnswer::Ask;
}

}  // namespace

CLI::App* ImportCommand::Declare(CLI::App& parser) {
  CLI::App* command = parser.add_subcommand("import", "Import a QIF, OFX or CSV file");
  command->add_option("file", file_, "The file to import")->required()->check(EmptyFault);
  command
      ->add_option("--account", account_.name,
                   "Takes the records of a file that names no account (default: only accounts "
                   "that the file names)")
      ->type_name("A")
      ->check(EmptyFault);
  command
      ->add_option("--named-accounts", namedAccounts_,
                   "Where the file names another account than --account: use it, or ignore it, so "
                   "that --account takes all")
      ->type_name("ANSWER")
      ->transform(CLI::Validator(OneOf({"use", "ignore"}), ""));
  command->add_flag("--complete-transfers", completesTransfers_,
                    "Make the other half of transfers of which the file holds one half only");
  command->add_option("--duplicates", duplicates_, "What to do with duplicates: skip or import")
      ->type_name("ANSWER")
      ->transform(CLI::Validator(OneOf({"skip", "import"}), ""));
  command
      ->add_option("--incomplete", incomplete_,
                   "What to do with the records before a fault that stops the import: keep or drop")
      ->type_name("ANSWER")
      ->transform(CLI::Validator(OneOf({"keep", "drop"}), ""));
  command
      ->add_option("--order", order_,
                   "Order of the dates: Day/Month/Year, Month/Day/Year or Year/Month/Day (default: "
                   "as the file shows)")
      ->type_name("ORDER")
      ->transform(
          CLI::Validator(OneOf({"Day/Month/Year", "Month/Day/Year", "Year/Month/Day"}), ""));
  command
      ->add_option("--decimal", decimal_,
                   "Mark before decimals: point or comma (default: as the file shows)")
      ->type_name("MARK")
      ->transform(CLI::Validator(OneOf({"point", "comma"}), ""));
  command
      ->add_option(
          "--encoding", encoding_,
          "Encoding of the file's text, such as UTF-8, windows-1250 or shift_jis (default: "
          "as the file shows)")
      ->type_name("NAME")
      ->check(EncodingFault);
  DeclareCsv(*command);
  return command;
}

void ImportCommand::DeclareCsv(CLI::App& command) {
  command
      .add_option("--map", map_,
                  "Columns of a CSV file: DATE:1,PAYEE:2,CATEGORY:3,INCOME:4,EXPENSE:5, and SIGN:6 "
                  "for one that says debit or credit, DESCRIPTION:7, REFERENCE:8, NUMBER:9")
      ->type_name("COLUMNS")
      ->check(MapFault);
  command.add_option("--skip", skip_, "Rows of a CSV file before the first transaction")
      ->type_name("N")
      ->check(RowsFault);
  command.add_option("--separator", separator_, "Between the columns of a CSV file (default: ,)")
      ->type_name("S")
      ->check(SeparatorFault);
  command.add_flag("--zero-is-empty", zeroIsEmpty_,
                   "A zero in one of two amount columns of a CSV file stands for nothing");
  command
      .add_option("--debit", debit_,
                  "What the sign column says of money out, with commas between several words")
      ->type_name("WORDS")
      ->check(EmptyFault);
  command.add_option("--credit", credit_, "The same of money in")
      ->type_name("WORDS")
      ->check(EmptyFault);
  command.add_option("--mapping", mapping_, "The saved mapping of a CSV file")
      ->type_name("NAME")
      ->check(EmptyFault);
  command.add_option("--save-mapping", saveMapping_, "Saves the mapping under this name")
      ->type_name("NAME")
      ->check(EmptyFault);
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
                      (!summary.BookedNothing() || summary.duplicates > 0);
  return isDone ? ExitStatus::Done : ExitStatus::Refused;
}

}  // namespace corvanta::inline cli
