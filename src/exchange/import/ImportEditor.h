#pragma once

#include "exchange/csv/CsvPreview.h"
#include "exchange/csv/SavedMappings.h"
#include "exchange/import/FileSurvey.h"
#include "exchange/import/ImportJob.h"
#include "exchange/import/ImportKind.h"
#include "exchange/import/ImportSummary.h"
#include "exchange/text/FileText.h"
#include "ledger/Warning.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline exchange {

// An entry of the account list.
struct ImportAccountChoice {
  std::int64_t accountId = 0;  // 0: the accounts that the file names
  std::string name;
};

// The file names another account than the chosen one: which of them takes the records?
struct AccountQuestion {
  std::string text;
  std::string named;   // the answer for the file's own accounts
  std::string chosen;  // the answer for the chosen account
};

// The file is in another currency than an account that takes its records: may they be booked?
struct CurrencyQuestion {
  std::string text;
  std::string agreed;  // the answer that books the figures as they are
};

// The field of the warning that asks it.
inline constexpr const char* kCurrencyField = "chkCurrency";

// What is chosen in the dialog. The columns of `csv` are the positions in their lists, whose first
// entry stands for none; its skip and separator are taken from the two texts.
struct ImportForm {
  std::string file;
  std::optional<std::int64_t> accountId;  // nullopt: nothing selected
  // Where the file names another account: that the chosen one takes all; nullopt: not answered.
  std::optional<bool> chosenTakesAll;
  // Where the file is in another currency than the account: that its figures are booked as they
  // are.
  bool takesFigures = false;
  std::optional<DateOrder> dateOrder;      // of a QIF file; nullopt: found from the file
  std::optional<DecimalMark> decimalMark;  // of a QIF or OFX file; nullopt: found from the file
  CsvMapping csv;
  std::string skip = "0";
  std::string separator = ",";
  std::string encoding = {};  // of the file's text; empty: as the file shows
};

// The rules behind the import dialog: a file and an account are chosen (Open, Check); a CSV file's
// columns are mapped (Propose, Preview, CheckCsv); then Import does it.
class ImportEditor {
 public:
  ImportEditor(clsCorvanta& ledger, Platform& platform);

  // The entry for the accounts of the file, then the open accounts by name.
  [[nodiscard]] std::vector<ImportAccountChoice> Accounts();

  // Reads the file for its kind and preview. A warning where it is none that can be imported, which
  // leaves the file before. Throws PlatformError where it cannot be read.
  [[nodiscard]] std::optional<Warning> Open(const std::string& path,
                                            const std::string& encoding = {});
  [[nodiscard]] ImportKind Kind() const { return kind_; }

  // Where the opened file is of another account than the one in the form.
  [[nodiscard]] std::optional<AccountQuestion> Question(const ImportForm& form);
  // Where an account that takes records has another currency than the file says, by the answer to
  // Question.
  [[nodiscard]] std::optional<CurrencyQuestion> AskCurrency(const ImportForm& form);
  // Of the first page: file, account and the answers.
  [[nodiscard]] std::optional<Warning> Check(const ImportForm& form);

  // The columns as the file looks, or the saved mapping that was made for the same headings, whose
  // name is put into `name` (otherwise emptied).
  [[nodiscard]] ImportForm Propose(const ImportForm& form, std::string& name) const;
  // The first rows as they are and as they will be read. Empty while the texts make no sense.
  [[nodiscard]] CsvPreview Preview(const ImportForm& form) const;
  // The order of the dates in the chosen column, as the whole file shows it.
  [[nodiscard]] DateOrder FindOrder(const ImportForm& form) const;
  // Of the CSV page, in their order; the field is the control that it is about.
  [[nodiscard]] std::optional<Warning> CheckCsv(const ImportForm& form) const;

  // Saved mappings. Saving one takes the place of one of that name; a warning for a name of blanks
  // or texts that make no sense.
  [[nodiscard]] std::vector<std::string> MappingNames() const { return mappings_.Names(); }
  [[nodiscard]] SavedMappings& Mappings() { return mappings_; }
  [[nodiscard]] std::optional<Warning> SaveMapping(const std::string& name, const ImportForm& form);
  // The form with the mapping of that name; unchanged when there is none.
  [[nodiscard]] ImportForm WithMapping(const std::string& name, const ImportForm& form) const;
  void DeleteMapping(const std::string& name) { mappings_.Remove(name); }

  // Imports what the checks accept (see FileImport). The summary is to be shown, and Finish called
  // after it.
  [[nodiscard]] ImportSummary Import(const ImportForm& form,
                                     DuplicateAnswer duplicates = DuplicateAnswer::Ask,
                                     std::optional<bool> keepIncomplete = std::nullopt);
  // Makes the other halves of the summary's transfers that have none, as a step of its own that can
  // be undone, and notes that in the summary. Returns how many were made.
  std::size_t CompleteTransfers(ImportSummary& summary);
  // "File Import Complete", or why it was refused.
  void Finish(const ImportSummary& summary);

  // The form as a job; nullopt while its texts make no sense.
  [[nodiscard]] static std::optional<ImportJob> JobOf(const ImportForm& form);

 private:
  [[nodiscard]] std::optional<Warning> CheckCurrency(const ImportForm& form);
  [[nodiscard]] std::optional<Warning> CheckRows(const CsvMapping& mapping) const;
  [[nodiscard]] bool Fits(const SavedCsvMapping& saved, const ImportForm& form) const;

  clsCorvanta& ledger_;
  Platform& platform_;
  SavedMappings mappings_;
  FileText file_;
  std::vector<FileSurvey::Account> accounts_;  // of the file
  std::vector<ImportAccount> currencies_;      // the same
  ImportKind kind_ = ImportKind::Qif;
};

}  // namespace corvanta::inline exchange
