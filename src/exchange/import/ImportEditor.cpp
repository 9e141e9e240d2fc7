#include "exchange/import/ImportEditor.h"

#include "exchange/csv/CsvReader.h"
#include "exchange/csv/StyleFinder.h"
#include "exchange/import/FileImport.h"
#include "exchange/text/DateStyle.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/accounts/ClosedAccounts.h"
#include "ledger/accounts/ReservedNames.h"
#include "ledger/clsCorvanta.h"
#include "ledger/register/StatusFilter.h"
#include "ledger/transactions/TransferCompletion.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace corvanta::inline exchange {
namespace {

constexpr int kMaxSkipped = 10000;

Warning Say(const std::string& text, const char* field) {
  return {kFileImport, text, field};
}

std::optional<int> RowsOf(std::string_view text) {
  text = Trim(text);
  if (text.empty()) return 0;
  int rows = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), rows);
  if (error != std::errc() || stop != text.data() + text.size()) return std::nullopt;
  return rows >= 0 && rows <= kMaxSkipped ? std::optional(rows) : std::nullopt;
}

std::optional<CsvMapping> MappingOf(const ImportForm& form) {
  const std::optional<int> skip = RowsOf(form.skip);
  const std::optional<std::string> separator = SeparatorOf(form.separator);
  if (!skip || !separator) return std::nullopt;
  CsvMapping mapping = form.csv;
  mapping.skip = *skip;
  mapping.separator = *separator;
  return mapping;
}

ImportForm With(const CsvMapping& mapping, const std::string& encoding, ImportForm form) {
  form.csv = mapping;
  form.encoding = encoding;
  form.skip = std::to_string(mapping.skip);
  form.separator = mapping.separator == "\t" ? "Tab" : mapping.separator;
  return form;
}

std::string Column(int number) {
  return "col " + std::to_string(number);
}

}  // namespace

ImportEditor::ImportEditor(clsCorvanta& ledger, Platform& platform)
    : ledger_(ledger), platform_(platform), mappings_(platform.registry) {}

std::vector<ImportAccountChoice> ImportEditor::Accounts() {
  std::vector<ImportAccountChoice> choices{{0, std::string(kEveryAccount)}};
  for (const AccountRow& account : ledger_.Accounts().Accounts(StatusFilter{}, false)) {
    choices.push_back({account.accountId, account.account});
  }
  std::sort(choices.begin() + 1, choices.end(),
            [](const auto& a, const auto& b) { return CompareFolded(a.name, b.name) < 0; });
  return choices;
}

std::optional<Warning> ImportEditor::Open(const std::string& path, const std::string& encoding) {
  FileText file = ReadFileText(path, encoding);
  if (file.fault) return Say(*file.fault, "txtFile");
  const ImportKind kind = KindOfImport(path, file.text);
  const std::size_t endless = kind == ImportKind::Csv ? FindEndlessLine(file.text) : 0;
  if (endless != 0) {
    return Say(
        "Line " + std::to_string(endless) + " is longer than any line of a file with transactions.",
        "txtFile");
  }
  FileSurvey survey;
  if (kind != ImportKind::Csv) ReadImport(kind, file.text, {}, platform_.locale, survey);
  accounts_ = survey.Accounts();
  currencies_ = survey.Currencies();
  file_ = std::move(file);
  kind_ = kind;
  return std::nullopt;
}

std::optional<Warning> ImportEditor::Check(const ImportForm& form) {
  if (Trim(form.file).empty()) {
    return Say("Please select a File for the file import", "txtFile");
  }
  if (!FileExists(form.file)) return Say("There is no file " + form.file, "txtFile");
  if (!form.accountId) {
    return Say("Please select an Account for the file import", "cmbAccount");
  }
  // Read anew: it may have been written again since.
  if (auto warning = Open(form.file, form.encoding)) return warning;
  if (kind_ == ImportKind::Csv && *form.accountId == 0) {
    return Say("Please select an Account for the file import", "cmbAccount");
  }
  if (*form.accountId == 0) return CheckCurrency(form);
  const auto account = ledger_.Accounts().ReadAccount(*form.accountId);
  if (!account) return Say("Please select an Account for the file import", "cmbAccount");
  if (account->closed) {
    return Say(kAccountClosed, "cmbAccount");
  }
  const std::optional<AccountQuestion> question = Question(form);
  if (question && !form.chosenTakesAll) return Say(question->text, "cmbOwner");
  return CheckCurrency(form);
}

ImportForm ImportEditor::Propose(const ImportForm& form, std::string& name) const {
  const auto known =
      mappings_.NameOf([&](const SavedCsvMapping& saved) { return Fits(saved, form); });
  name = known.value_or(std::string());
  if (known) return WithMapping(name, form);
  return With(ProposeMapping(file_.text, platform_.locale), form.encoding, form);
}

// Its headings are told by the file as its own encoding reads it.
bool ImportEditor::Fits(const SavedCsvMapping& saved, const ImportForm& form) const {
  if (saved.encoding == form.encoding) {
    return HeaderOf(file_.text, saved.mapping) == saved.header;
  }
  const FileText file = ReadFileText(form.file, saved.encoding);
  return !file.fault && HeaderOf(file.text, saved.mapping) == saved.header;
}

CsvPreview ImportEditor::Preview(const ImportForm& form) const {
  const std::optional<CsvMapping> mapping = MappingOf(form);
  return mapping ? ReadPreview(file_.text, *mapping, platform_.locale) : CsvPreview();
}

DateOrder ImportEditor::FindOrder(const ImportForm& form) const {
  const std::optional<CsvMapping> mapping = MappingOf(form);
  return mapping ? FindDateOrder(file_.text, *mapping, platform_.locale) : form.csv.order;
}

std::optional<Warning> ImportEditor::CheckCsv(const ImportForm& form) const {
  const CsvMapping& columns = form.csv;
  if (columns.date == 0) {
    return Say("Please select the column for the Date Column", "cmbColDate");
  }
  if (columns.payee == 0) {
    return Say("Please select the column for the Payee Column", "cmbColPayee");
  }
  if (columns.income == 0) {
    return Say("Please select the column for the Income Column", "cmbColIncome");
  }
  if (columns.expense == 0) {
    return Say("Please select the column for the Expense Column", "cmbColExpense");
  }
  if (!RowsOf(form.skip)) {
    return Say("Please enter the number of rows to skip", "txtSkip");
  }
  if (!SeparatorOf(form.separator)) {
    return Say("Please enter one character, or Tab, as the separator", "txtSeparator");
  }
  return CheckRows(*MappingOf(form));
}

std::optional<Warning> ImportEditor::CheckRows(const CsvMapping& mapping) const {
  const auto isNumber = [&](std::string_view cell) {
    return cell.empty() || ReadFileNumber(cell, DecimalMark::Point) ||
           ReadFileNumber(cell, DecimalMark::Comma);
  };
  const CsvReader::End end = CsvReader(file_.text, mapping, platform_.locale).FindEnd();
  const std::vector<CsvRow> rows = FirstRows(file_.text, mapping.separator, kPreviewRows);
  for (std::size_t i = static_cast<std::size_t>(mapping.skip); i < rows.size(); ++i) {
    const CsvRow& row = rows[i];
    if (row.IsBlank() || row.line >= end.line) continue;
    if (!ReadFileDate(row.Cell(mapping.date), mapping.order, platform_.locale,
                      DateTolerance::OrderOnly)) {
      return Say(Column(mapping.date) + " Is not a Date Column", "cmbColDate");
    }
    if (!isNumber(row.Cell(mapping.income))) {
      return Say(Column(mapping.income) + " Is not a Numeric Column", "cmbColIncome");
    }
    if (!isNumber(row.Cell(mapping.expense))) {
      return Say(Column(mapping.expense) + " Is not a Numeric Column", "cmbColExpense");
    }
    if (mapping.sign != 0 && !SideOf(row.Cell(mapping.sign), mapping)) {
      return Say(Column(mapping.sign) + " Is not a Sign Column", "cmbColSign");
    }
  }
  return std::nullopt;
}

std::optional<Warning> ImportEditor::SaveMapping(const std::string& name, const ImportForm& form) {
  if (Trim(name).empty()) return Say("Please enter a name for the mapping", "cmbMapping");
  const std::optional<CsvMapping> mapping = MappingOf(form);
  if (!mapping) return CheckCsv(form);
  mappings_.Save(std::string(Trim(name)),
                 {*mapping, HeaderOf(file_.text, *mapping), form.encoding});
  return std::nullopt;
}

ImportForm ImportEditor::WithMapping(const std::string& name, const ImportForm& form) const {
  const auto saved = mappings_.Find(name);
  return saved ? With(saved->mapping, saved->encoding, form) : form;
}

std::optional<ImportJob> ImportEditor::JobOf(const ImportForm& form) {
  const std::optional<CsvMapping> mapping = MappingOf(form);
  if (!mapping) return std::nullopt;
  ImportJob job;
  job.path = form.file;
  job.accountId = form.accountId.value_or(0);
  job.chosenTakesAll = form.chosenTakesAll.value_or(false);
  job.dateOrder = form.dateOrder;
  job.decimalMark = form.decimalMark;
  job.csv = *mapping;
  job.encoding = form.encoding;
  return job;
}

ImportSummary ImportEditor::Import(const ImportForm& form, DuplicateAnswer duplicates,
                                   std::optional<bool> keepIncomplete) {
  std::optional<ImportJob> job = JobOf(form);
  if (!job) return {};
  job->duplicates = duplicates;
  job->keepIncomplete = keepIncomplete;
  return FileImport(ledger_, platform_).Run(*job);
}

std::size_t ImportEditor::CompleteTransfers(ImportSummary& summary) {
  const std::size_t made = TransferCompletion(ledger_).Complete(summary.completable);
  summary.completable.clear();
  summary.loneHalves -= made;
  summary.transfers += made;
  return made;
}

void ImportEditor::Finish(const ImportSummary& summary) {
  const bool isComplete = summary.outcome == ImportOutcome::Complete;
  platform_.prompts.Tell(kFileImport, isComplete ? "File Import Complete" : summary.stop,
                         isComplete ? Icon::Information : Icon::Warning);
}

}  // namespace corvanta::inline exchange
