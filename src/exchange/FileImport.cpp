#include "exchange/FileImport.h"

#include "exchange/FileText.h"
#include "exchange/Importer.h"
#include "exchange/StyleFinder.h"
#include "ledger/clsCorvanta.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "platform/Progress.h"
#include "platform/Prompts.h"
#include "store/StoreError.h"

namespace corvanta {
namespace {

constexpr const char* kCancelled = "The import was cancelled.";

// Puts the former status text back, whatever happens.
class ShownStatus {
 public:
  ShownStatus(Progress& progress, const std::string& text)
      : progress_(progress), former_(progress.SetStatus(text)) {}
  ~ShownStatus() {
    progress_.SetStep(0, 0);
    progress_.SetStatus(former_);
  }
  ShownStatus(const ShownStatus&) = delete;
  ShownStatus& operator=(const ShownStatus&) = delete;

 private:
  Progress& progress_;
  std::string former_;
};

void Refuse(ImportSummary& summary, const std::string& why) {
  summary.outcome = ImportOutcome::Refused;
  summary.stop = why;
}

}  // namespace

ImportSummary FileImport::Run(const ImportJob& job) {
  ImportSummary summary;
  const ShownStatus status(platform_.progress, "Please wait processing file...");
  bool goesOn = true;
  const FileText file =
      ReadFileText(job.path, [&] { return goesOn = goesOn && platform_.progress.Yield(); });
  if (!goesOn) {
    Refuse(summary, kCancelled);
  } else if (file.fault) {
    Refuse(summary, *file.fault);
  } else {
    ImportText(file, job, summary);
  }
  return summary;
}

void FileImport::ImportText(const FileText& file, const ImportJob& job, ImportSummary& summary) {
  const ImportKind kind = KindOfImport(job.path, file.text);
  const std::size_t endless = kind == ImportKind::Ofx ? 0 : FindEndlessLine(file.text);
  if (endless != 0) {
    return Refuse(summary, "Line " + std::to_string(endless) +
                               " is longer than any line of a file with transactions.");
  }
  StyleFinder styles([&] { return platform_.progress.Yield(); });
  ReadImport(kind, file.text, job, platform_.locale, styles);
  if (styles.WasStopped()) return Refuse(summary, kCancelled);

  ledger_.Undo().Start();
  std::optional<UndoLog::Step> step(ledger_.Undo().Begin(kFileImport));
  Importer importer(ledger_, platform_, job, styles.Find(kind, job, platform_.locale),
                    file.text.size(), summary);
  const auto takeBack = [&] {
    step.reset();
    if (importer.HasWritten()) ledger_.Undo().Undo();
    summary.outcome = ImportOutcome::TakenBack;
  };
  platform_.progress.SetStatus("Please wait importing records...");
  try {
    Book(kind, file, job, importer, summary);
    const bool isWhole = summary.stop.empty();
    if (!isWhole && importer.HasWritten() && !AskToKeep(job, summary)) return takeBack();
    PairTransfers(summary);
    summary.outcome = summary.stop.empty() ? ImportOutcome::Complete : ImportOutcome::Kept;
  } catch (const PlatformError&) {  // a question without an answer
    takeBack();
    throw;
  }
}

// What the data file refuses stops the import as a person does: the records so far are whole.
void FileImport::Book(ImportKind kind, const FileText& file, const ImportJob& job,
                      Importer& importer, ImportSummary& summary) {
  try {
    ReadImport(kind, file.text, job, platform_.locale, importer);
    importer.Commit();
  } catch (const StoreError& error) {
    summary.stop = error.what();
    importer.CommitWhatGoes();
  }
}

bool FileImport::AskToKeep(const ImportJob& job, const ImportSummary& summary) {
  if (job.keepIncomplete) return *job.keepIncomplete;
  const std::size_t count = summary.imported + summary.investments;
  const std::optional<std::size_t> answer = platform_.prompts.Choose(
      kFileImport,
      summary.stop + "\r\nTransactions imported so far: " + std::to_string(count) + "\r\n" +
          "Do you want to keep them?",
      {"Keep them", "Take everything back"});
  return answer != std::optional<std::size_t>(1);
}

void FileImport::PairTransfers(ImportSummary& summary) {
  try {
    summary.transfers = static_cast<std::size_t>(ledger_.LinkImportedTransfers());
  } catch (const StoreError& error) {
    if (summary.stop.empty()) summary.stop = error.what();
  }
}

}  // namespace corvanta
