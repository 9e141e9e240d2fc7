// Whether a record is booked that the ledger may have already.
#include "exchange/Importer.h"
#include "ledger/clsCorvanta.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "store/SqlText.h"

namespace corvanta {

const DuplicateIndex& Importer::Former() {
  const std::int64_t account = current_->accountId;
  return former_.try_emplace(account, ledger_.Store(), account).first->second;
}

Importer::Choice Importer::ChoiceFor(const ImportRecord& record, Date date, double amount,
                                     const std::string& reference) {
  const std::vector<const DuplicateIndex::Candidate*> candidates = Former().Find(date, amount);
  if (candidates.empty()) return Choice::Import;
  if (record.isBankId) {
    for (const DuplicateIndex::Candidate* candidate : candidates) {
      if (candidate->reference == reference) return Choice::Skip;
    }
  }
  switch (duplicates_) {
    case DuplicateAnswer::Skip:
      return Choice::Skip;
    case DuplicateAnswer::Import:
      return Choice::Import;
    case DuplicateAnswer::Ask:
      break;
  }
  return AskAbout(record, *candidates.front());
}

Importer::Choice Importer::AskAbout(const ImportRecord& record,
                                    const DuplicateIndex::Candidate& candidate) {
  Commit();
  const std::string payee =
      ledger_.Store()
          .QueryValue(
              "Select P.Payee From tblTransactions T INNER JOIN tblPayees P ON T.PayeeId = "
              "P.PayeeID Where T.TransactionID = " +
              SqlNumber(candidate.transactionId))
          .Text();
  const std::string rest = " On " + platform_.locale.FormatShortDate(candidate.date) + " for " +
                           platform_.locale.FormatNumber(candidate.amount);
  const std::optional<std::size_t> answer = platform_.prompts.Choose(
      kFileImport,
      "Duplicate record found for " + record.payee + rest + "\r\nMatching on " + payee + rest +
          "\r\nDo you want to import duplicate record?",
      {"Yes", "No", "Import all that follow", "Skip all that follow"});
  if (!answer) return Choice::Stop;
  if (*answer == 2) duplicates_ = DuplicateAnswer::Import;
  if (*answer == 3) duplicates_ = DuplicateAnswer::Skip;
  return *answer % 2 == 0 ? Choice::Import : Choice::Skip;
}

}  // namespace corvanta
