#include "exchange/import/FileImport.h"

#include "exchange/csv/StyleFinder.h"
#include "exchange/import/FileSurvey.h"
#include "exchange/import/ImportContext.h"
#include "exchange/import/ImportNames.h"
#include "exchange/import/ImportPlanner.h"
#include "exchange/import/Importer.h"
#include "exchange/text/FileText.h"
#include "ledger/clsCorvanta.h"
#include "ledger/transactions/TransferCompletion.h"
#include "ledger/transactions/TransferLinking.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Progress.h"
#include "platform/Prompts.h"
#include "platform/StatusWords.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"

#include <cstdint>
#include <vector>

namespace corvanta::inline exchange {
namespace {

void Refuse(ImportSummary& summary, const std::string& why) {
  summary.outcome = ImportOutcome::Refused;
  summary.stop = why;
}

ImportOutcome OutcomeOf(const ImportSummary& summary) {
  return summary.stop.empty() ? ImportOutcome::Complete : ImportOutcome::Kept;
}

}  // namespace

ImportSummary FileImport::Run(const ImportJob& job) {
  ImportSummary summary;
  const StatusWords status(platform_.progress, "Please wait processing file...");
  bool goesOn = true;
  const FileText file = ReadFileText(job.path, job.encoding,
                                     [&] { return goesOn = goesOn && platform_.progress.Yield(); });
  if (!goesOn) {
    Refuse(summary, kImportCancelled);
  } else if (file.fault) {
    Refuse(summary, *file.fault);
  } else {
    ImportText(file, job, summary);
  }
  return summary;
}

void FileImport::ImportText(const FileText& file, const ImportJob& job, ImportSummary& summary) {
  if (file.replaced > 0) {
    summary.AddProblem(0, "Places that make no sense in the encoding of the text: " +
                              std::to_string(file.replaced) + ". Choose another encoding.");
  }
  const ImportKind kind = KindOfImport(job.path, file.text);
  const std::size_t endless = kind == ImportKind::Ofx ? 0 : FindEndlessLine(file.text);
  if (endless != 0) {
    return Refuse(summary, "Line " + std::to_string(endless) +
                               " is longer than any line of a file with transactions.");
  }
  const auto goesOn = [&] { return platform_.progress.Yield(); };
  FileSurvey survey(goesOn);
  ReadImport(kind, file.text, job, platform_.locale, survey);
  if (survey.WasStopped()) return Refuse(summary, kImportCancelled);
  const ImportStyle style = survey.Styles().Find(kind, job, platform_.locale);
  ImportNames names(ledger_, platform_.locale);
  const ImportContext context{ledger_, platform_, job,     style,
                              survey,  names,     summary, file.text.size()};
  ImportPlanner planner(context);
  ReadImport(kind, file.text, job, platform_.locale, planner);
  const bool keeps = summary.stop.empty() || (!planner.IsCancelled() && planner.Booked() > 0 &&
                                              AskToKeep(job, summary, planner.Booked()));
  summary.outcome = keeps && Book(kind, file.text, context, planner) ? OutcomeOf(summary)
                                                                     : ImportOutcome::Dropped;
}

// The whole file is one transaction, so that it is imported as a whole or not at all.
bool FileImport::Book(ImportKind kind, std::string_view text, const ImportContext& context,
                      const ImportPlanner& plan) {
  const ImportSummary before = context.summary;
  platform_.progress.SetStatus("Please wait importing records...");
  ledger_.Undo().Start();
  const UndoLog::Step step = ledger_.Undo().Begin(kFileImport);
  Transaction all = ledger_.Store().Begin();
  Importer importer(context, plan.Fates());
  ReadImport(kind, text, context.job, platform_.locale, importer);
  if (importer.IsCancelled()) {
    context.summary = before;
    context.summary.stop = kImportCancelled;
    return false;
  }
  context.summary.shortened = context.names.Shortened();
  context.summary.transfers = static_cast<std::size_t>(ledger_.Transfers().LinkImportedTransfers());
  // A half that an earlier import has left alone can be completed by this one.
  std::vector<std::int64_t> halves = importer.Halves();
  halves.insert(halves.end(), plan.KnownHalves().begin(), plan.KnownHalves().end());
  TransferCompletion completion(ledger_);
  const std::vector<std::int64_t> lone = completion.LoneHalves(halves);
  context.summary.loneHalves = lone.size();
  context.summary.completable = completion.Completable(lone);
  all.Commit();
  return true;
}

// Nothing is written yet; who turns away keeps nothing.
bool FileImport::AskToKeep(const ImportJob& job, const ImportSummary& summary, std::size_t count) {
  if (job.keepIncomplete) return *job.keepIncomplete;
  const std::optional<std::size_t> answer = platform_.prompts.Choose(
      kFileImport,
      summary.stop + "\r\nTransactions before that: " + std::to_string(count) + "\r\n" +
          "Do you want to keep them?",
      {"Keep them", "Import nothing"});
  return answer == std::optional<std::size_t>(0);
}

}  // namespace corvanta::inline exchange
