#include "exchange/import/Importer.h"

#include "exchange/import/ImportJob.h"
#include "exchange/import/ImportSummary.h"
#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/investments/InvestmentRecord.h"
#include "ledger/transactions/TransactionBook.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Progress.h"
#include "platform/TextCase.h"

#include <utility>
#include <variant>

namespace corvanta::inline exchange {
namespace {

constexpr std::size_t kLongestReference = 50;
constexpr std::size_t kLongestDescription = 255;

}  // namespace

Importer::Importer(const ImportContext& context, const std::vector<Fate>& fates)
    : context_(context),
      fates_(fates),
      chosen_(context.names.Account(context.job.accountId)),
      current_(chosen_) {}

void Importer::OnAccount(const ImportAccount& account) {
  nameInFile_ = account.name;
  if (!account.IsNamed()) {
    current_ = chosen_;
  } else if (context_.job.chosenTakesAll) {
    current_ = chosen_;
    // The next statement of this number is known to be the account's then.
    if (!account.number.empty()) context_.names.SetNumber(chosen_->accountId, account.number);
  } else {
    current_ = context_.names.FindOrCreateAccount(account);
    if (current_->isNew) InSummary(*current_);
  }
}

void Importer::OnListedAccount(const ImportAccount& account) {
  const ImportTarget* listed = context_.names.FindOrCreateAccount(account);
  if (listed->isNew) InSummary(*listed);
}

void Importer::OnSecurity(const std::string& name, const std::string& symbol) {
  context_.names.SetSymbol(name, symbol);
}

bool Importer::OnRecord(ImportRecord& record) {
  if (next_ == fates_.size()) return false;
  if (fates_[next_++] == Fate::Book) {
    const auto read = ReadValues(record, context_.style, context_.platform.locale);
    RecordValues values = std::get<RecordValues>(read);
    if (FitCurrency(values, current_->currency)) ++context_.summary.rounded;
    if (IsHolding(record)) {
      BookHolding(record, values);
    } else {
      Book(record, values);
    }
    ++InSummary(*current_).transactions;
  }
  context_.platform.progress.SetStep(record.offset, context_.size);
  isCancelled_ = !context_.platform.progress.Yield();
  return !isCancelled_;
}

ImportCategory Importer::CategoryOf(const ImportCategory& category) const {
  if (category.account.empty()) return category;
  const bool isOwn =
      EqualFolded(category.account, current_->name) || EqualFolded(category.account, nameInFile_);
  if (isOwn) return {};
  ImportCategory transfer = category;
  const ImportTarget* known = context_.names.FindAccount({category.account, {}, {}, {}});
  if (known != nullptr) transfer.account = known->name;
  return transfer;
}

void Importer::Book(const ImportRecord& record, const RecordValues& values) {
  ImportNames& names = context_.names;
  TransactionRecord row;
  row.accountId = current_->accountId;
  row.date = values.date;
  row.amount = values.amount;
  row.payeeId = names.Payee(PayeeOf(record));
  row.paymentId = names.Payment();
  row.reference = names.Fit(record.reference, kLongestReference);
  row.description = names.Fit(record.memo, kLongestDescription);
  const ImportCategory category = CategoryOf(record.category);
  row.categoryId = names.Category(category, row.amount);
  std::vector<TransactionRecord> lines(values.lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const ImportCategory part = CategoryOf(record.splits[i].category);
    if (!part.account.empty()) ++context_.summary.splitTransfers;
    lines[i].amount = values.lines[i];
    lines[i].categoryId = names.Category(part, values.lines[i]);
    lines[i].description = names.Fit(record.splits[i].memo, kLongestDescription);
  }
  if (RoundMoney(values.amount - values.total) != 0) ++context_.summary.unequalSplits;
  const std::int64_t key = context_.ledger.Transactions().AddTransaction(row, lines);
  if (!category.account.empty() && lines.empty()) halves_.push_back(key);
  ++context_.summary.imported;
}

void Importer::BookHolding(const ImportRecord& record, const RecordValues& values) {
  ImportNames& names = context_.names;
  InvestmentTransaction row = HoldingOf(record, values);
  row.accountId = current_->accountId;
  row.payeeId = names.Investment(record.security, current_->currencyId);
  row.description =
      names.Fit(record.memo.empty() ? record.payee : record.memo, kLongestDescription);
  context_.ledger.Investments().SaveInvestmentTransaction(row);
  ++context_.summary.investments;
}

ImportedAccount& Importer::InSummary(const ImportTarget& account) {
  std::vector<ImportedAccount>& accounts = context_.summary.accounts;
  const auto [place, isFirst] = places_.try_emplace(account.accountId, accounts.size());
  if (isFirst) accounts.push_back({account.accountId, account.name, 0, account.isNew});
  return accounts[place->second];
}

}  // namespace corvanta::inline exchange
