#include "exchange/import/ImportPlanner.h"

#include "exchange/import/FileSurvey.h"
#include "exchange/import/ImportSummary.h"
#include "ledger/accounts/ReservedNames.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentRecord.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Progress.h"
#include "platform/Prompts.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"

#include <algorithm>

namespace corvanta::inline exchange {
namespace {

constexpr const char* kNoAccounts =
    "File import can not continue, there are no accounts in this file. Create an Account before "
    "importing";

}  // namespace

ImportPlanner::ImportPlanner(const ImportContext& context)
    : context_(context),
      duplicates_(context.job.duplicates),
      chosen_(context.names.Account(context.job.accountId)),
      current_(chosen_) {}

void ImportPlanner::OnAccount(const ImportAccount& account) {
  const bool isNamed = account.IsNamed() && !context_.job.chosenTakesAll;
  current_ = isNamed ? context_.names.FindAccount(account) : chosen_;
  isNew_ = isNamed && current_ == nullptr;
}

void ImportPlanner::OnProblem(std::size_t line, const std::string& text) {
  context_.summary.AddProblem(line, text);
}

bool ImportPlanner::Stop(const std::string& why) {
  context_.summary.stop = why;
  return false;
}

bool ImportPlanner::Cancel() {
  isCancelled_ = true;
  return Stop(kImportCancelled);
}

bool ImportPlanner::Settle(Fate fate) {
  fates_.push_back(fate);
  if (fate == Fate::Book) ++booked_;
  if (fate == Fate::Skip) ++context_.summary.duplicates;
  return context_.platform.progress.Yield() || Cancel();
}

bool ImportPlanner::OnRecord(ImportRecord& record) {
  if (current_ == nullptr && !isNew_) {
    return Stop(record.isInvestment ? kNoAccounts : std::string(kNoAccounts) + ".");
  }
  if (!isNew_ && current_->isClosed) {
    OnProblem(record.line, "The account \"" + current_->name + "\" is closed.");
    return Settle(Fate::LeaveOut);
  }
  auto read = ReadValues(record, context_.style, context_.platform.locale);
  if (const auto* fault = std::get_if<RecordFault>(&read)) {
    if (context_.style.stopsAtFault) {
      return Stop("The import stopped at line " + std::to_string(fault->line) + ": " + fault->text);
    }
    OnProblem(fault->line, fault->text);
    return Settle(Fate::LeaveOut);
  }
  auto& values = std::get<RecordValues>(read);
  if (!isNew_) FitCurrency(values, current_->currency);
  const std::optional<Fate> fate = FateOf(record, values);
  return fate ? Settle(*fate) : Cancel();
}

std::optional<Fate> ImportPlanner::FateOf(const ImportRecord& record, const RecordValues& values) {
  if (isNew_) return Fate::Book;
  return IsHolding(record) ? FateOfHolding(record, values) : FateOfCash(record, values);
}

Fate ImportPlanner::FateOfHolding(const ImportRecord& record, const RecordValues& values) {
  InvestmentTransaction row = HoldingOf(record, values);
  row.payeeId = context_.names.FindInvestment(record.security);
  if (row.payeeId == 0) return Fate::Book;
  const std::int64_t category = context_.names.FindCategoryOf(TakesCash(row.action) ? -1 : 1);
  const bool isKnown = Former().Claim(row, SignedAmount(row.action, row.total), category);
  return isKnown ? Fate::Skip : Fate::Book;
}

// The rows that the record may be. A row of another mark is another transaction, and one whose own
// mark stands elsewhere in the file answers for that entry.
std::vector<DuplicateIndex::Candidate*> ImportPlanner::CandidatesOf(const ImportRecord& record,
                                                                    const RecordValues& values) {
  DuplicateIndex& former = Former();
  auto candidates = former.Find(values.date, values.amount);
  if (!record.isBankId) return candidates;
  const FileSurvey& survey = context_.survey;
  std::erase_if(candidates, [&](const DuplicateIndex::Candidate* row) {
    return survey.HasBankId(row->reference) || (survey.BankIdsIdentify() && former.HasBankId(*row));
  });
  return candidates;
}

std::optional<Fate> ImportPlanner::FateOfCash(const ImportRecord& record,
                                              const RecordValues& values) {
  if (record.isBankId) {
    for (DuplicateIndex::Candidate* row : Former().Find(values.date, values.amount)) {
      if (row->reference == record.reference) return SkipFor(record, *row);
    }
  }
  const std::vector<DuplicateIndex::Candidate*> candidates = CandidatesOf(record, values);
  if (candidates.empty() || duplicates_ == DuplicateAnswer::Import) return Fate::Book;
  const auto fitting = std::ranges::find_if(
      candidates, [&](const auto* row) { return IsSameTransfer(record, *row); });
  DuplicateIndex::Candidate& candidate =
      fitting == candidates.end() ? *candidates.front() : **fitting;
  if (duplicates_ == DuplicateAnswer::Ask) {
    const std::optional<bool> books = AskWhetherToBook(record, candidate);
    if (!books) return std::nullopt;
    if (*books) return Fate::Book;
  }
  return SkipFor(record, candidate);
}

Fate ImportPlanner::SkipFor(const ImportRecord& record, DuplicateIndex::Candidate& row) {
  row.isTaken = true;
  if (IsSameTransfer(record, row)) knownHalves_.push_back(row.transactionId);
  return Fate::Skip;
}

// A row that names another account than the record would have its other half made there, of which
// this file says nothing.
bool ImportPlanner::IsSameTransfer(const ImportRecord& record,
                                   const DuplicateIndex::Candidate& row) const {
  const std::string& named = record.category.account;
  if (named.empty() || !record.splits.empty()) return false;
  TransactionBook& book = context_.ledger.Transactions();
  const auto known = book.ReadTransaction(row.transactionId);
  if (!known) return false;
  const ImportTarget* other = context_.names.FindAccount({named, {}, {}, {}});
  if (known->transferId != 0) {
    const auto half = book.ReadTransaction(known->transferId);
    return half && other != nullptr && half->accountId == other->accountId;
  }
  const std::string& account = other != nullptr ? other->name : named;
  return NameKey(known->category) == NameKey(std::string(kTransferMark) + account);
}

std::optional<bool> ImportPlanner::AskWhetherToBook(const ImportRecord& record,
                                                    const DuplicateIndex::Candidate& candidate) {
  const Locale& locale = context_.platform.locale;
  const std::string payee =
      context_.ledger.Store()
          .QueryValue(
              "Select P.Payee From tblTransactions T INNER JOIN tblPayees P ON T.PayeeId = "
              "P.PayeeID Where T.TransactionID = " +
              SqlNumber(candidate.transactionId))
          .Text();
  const std::string rest = " On " + locale.FormatShortDate(candidate.date) + " for " +
                           locale.FormatNumber(candidate.amount);
  const std::optional<std::size_t> answer = context_.platform.prompts.Choose(
      kFileImport,
      "Duplicate record found for " + PayeeOf(record) + rest + "\r\nMatching on " + payee + rest +
          "\r\nDo you want to import duplicate record?",
      {"Yes", "No", "Import all that follow", "Skip all that follow"});
  if (!answer) return std::nullopt;
  if (*answer == 2) duplicates_ = DuplicateAnswer::Import;
  if (*answer == 3) duplicates_ = DuplicateAnswer::Skip;
  return *answer % 2 == 0;
}

DuplicateIndex& ImportPlanner::Former() {
  const std::int64_t account = current_->accountId;
  return former_.try_emplace(account, context_.ledger.Store(), account, current_->currency)
      .first->second;
}

}  // namespace corvanta::inline exchange
