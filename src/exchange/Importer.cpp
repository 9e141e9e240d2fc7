#include "exchange/Importer.h"

#include "exchange/InvestActions.h"
#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Progress.h"
#include "platform/TextCase.h"
#include "store/StoreError.h"

#include <cmath>

namespace corvanta {
namespace {

using Time = std::chrono::steady_clock;

constexpr auto kCommitEvery = std::chrono::milliseconds(250);
constexpr std::size_t kLongestReference = 50;
constexpr std::size_t kLongestDescription = 255;
constexpr const char* kTransfer = "Transfer";
constexpr const char* kNoAccounts =
    "File import can not continue, there are no accounts in this file. Create an Account before "
    "importing";

std::string Quoted(const std::string& text) {
  constexpr std::size_t kMost = 60;
  return "\"" + (text.size() <= kMost ? text : text.substr(0, kMost) + "...") + "\"";
}
std::string NoNumber(const ImportValue& value) {
  return value.text.empty() ? "There is no amount." : Quoted(value.text) + " is no number.";
}

}  // namespace

Importer::Importer(clsCorvanta& ledger, Platform& platform, const ImportJob& job,
                   const ImportStyle& style, std::size_t size, ImportSummary& summary)
    : ledger_(ledger),
      platform_(platform),
      style_(style),
      size_(size),
      summary_(summary),
      names_(ledger, platform.locale),
      duplicates_(job.duplicates) {
  chosen_ = current_ = names_.Account(job.accountId);
}

void Importer::BeginWrite() {
  if (batch_) return;
  batch_.emplace(ledger_.Store().Begin());
  batchBegan_ = Time::now();
}

void Importer::Commit() {
  summary_.shortened = names_.Shortened();
  if (!batch_) return;
  batch_->Commit();
  batch_.reset();
  committed_ = {summary_.imported, summary_.investments};
  hasWritten_ = hasWritten_ || !summary_.BookedNothing() || names_.HasMade();
}

void Importer::CommitWhatGoes() {
  try {
    Commit();
  } catch (const StoreError&) {
    batch_.reset();
    summary_.imported = committed_.transactions;
    summary_.investments = committed_.investments;
  }
}

void Importer::OnAccount(const ImportAccount& account) {
  if (account.name.empty() && account.number.empty()) {
    current_ = chosen_;
    return;
  }
  BeginWrite();
  current_ = names_.FindOrCreateAccount(account);
}

void Importer::OnSecurity(const std::string& name, const std::string& symbol) {
  names_.SetSymbol(name, symbol);
}

void Importer::OnProblem(std::size_t line, const std::string& text) {
  summary_.AddProblem(line, text);
}

bool Importer::Stop(const std::string& why) {
  summary_.stop = why;
  return false;
}

bool Importer::Fault(const ImportRecord& record, const ImportValue& value,
                     const std::string& text) {
  const std::size_t line = value.line == 0 ? record.line : value.line;
  if (style_.stopsAtFault) {
    return Stop("The import stopped at line " + std::to_string(line) + ": " + text);
  }
  summary_.AddProblem(line, text);
  return true;
}

bool Importer::GoOn(const ImportRecord& record) {
  if (batch_ && Time::now() - batchBegan_ >= kCommitEvery) Commit();
  platform_.progress.SetStep(record.offset, size_);
  return platform_.progress.Yield() || Stop("The import was cancelled.");
}

bool Importer::OnRecord(ImportRecord& record) {
  if (current_ == nullptr) {
    return Stop(record.isInvestment ? kNoAccounts : std::string(kNoAccounts) + ".");
  }
  if (current_->isClosed) {
    summary_.AddProblem(record.line, "The account \"" + current_->name + "\" is closed.");
    return GoOn(record);
  }
  if (!record.fault.empty()) return Fault(record, record.date, record.fault) && GoOn(record);
  const std::optional<Date> date =
      ReadFileDate(record.date.text, style_.order, platform_.locale, style_.tolerance);
  const bool booked =
      !date                                             ? Fault(record, record.date,
                    record.date.text.empty() ? "There is no date."
                                                                                         : Quoted(record.date.text) + " is no date.")
      : record.isInvestment && !record.security.empty() ? BookInvestment(record, *date)
                                                        : Book(record, *date);
  return booked && GoOn(record);
}

std::optional<double> Importer::Number(const ImportValue& value) const {
  if (value.text.empty()) return style_.emptyIsZero ? std::optional(0.0) : std::nullopt;
  return ReadFileNumber(value.text, style_.mark);
}

std::optional<double> Importer::AmountOf(const ImportRecord& record) const {
  const std::optional<double> amount = Number(record.amount);
  if (!amount) return std::nullopt;
  const bool isCash = record.isInvestment && *amount > 0 && TakesCashOut(record.action);
  return isCash ? -*amount : OnSide(*amount, record.side);
}

std::optional<std::vector<TransactionRecord>> Importer::LinesOf(const ImportRecord& record,
                                                                const ImportValue*& bad) {
  std::vector<TransactionRecord> lines;
  for (const ImportSplit& split : record.splits) {
    const std::optional<double> amount = Number(split.amount);
    if (!amount) {
      bad = &split.amount;
      return std::nullopt;
    }
    TransactionRecord line;
    line.amount = *amount;
    lines.push_back(std::move(line));
  }
  return lines;
}

// The other account as the ledger spells it. The own one is no transfer but an opening balance.
void Importer::SetAccountName(ImportCategory& category) const {
  if (category.account.empty()) return;
  if (EqualFolded(category.account, current_->name)) {
    category.account.clear();
    category.category.clear();
  } else if (const ImportTarget* known = names_.FindAccount({category.account, {}, {}, {}})) {
    category.account = known->name;
  }
}

bool Importer::Book(ImportRecord& record, Date date) {
  if (Trim(record.payee).empty()) record.payee = kTransfer;
  TransactionRecord row;
  const std::optional<double> total = AmountOf(record);
  if (!total) return Fault(record, record.amount, NoNumber(record.amount));
  const ImportValue* bad = nullptr;
  std::optional<std::vector<TransactionRecord>> lines = LinesOf(record, bad);
  if (!lines) return Fault(record, *bad, NoNumber(*bad));
  row.amount = *total;
  if (!lines->empty()) {
    row.amount = 0;
    for (const TransactionRecord& line : *lines) row.amount = RoundMoney(row.amount + line.amount);
  }
  row.date = date;
  row.reference = names_.Fit(record.reference, kLongestReference);
  switch (ChoiceFor(record, date, row.amount, row.reference)) {
    case Choice::Skip:
      ++summary_.duplicates;
      return true;
    case Choice::Stop:
      return Stop("The import was cancelled.");
    case Choice::Import:
      break;
  }
  if (RoundMoney(row.amount - *total) != 0) ++summary_.unequalSplits;
  WriteRecord(record, std::move(row), *lines);
  return true;
}

void Importer::WriteRecord(const ImportRecord& record, TransactionRecord row,
                           std::vector<TransactionRecord>& lines) {
  BeginWrite();
  row.accountId = current_->accountId;
  row.payeeId = names_.Payee(record.payee);
  row.paymentId = names_.Payment();
  row.description = names_.Fit(record.memo, kLongestDescription);
  ImportCategory category = record.category;
  SetAccountName(category);
  row.categoryId = names_.Category(category, row.amount);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    ImportCategory part = record.splits[i].category;
    SetAccountName(part);
    if (!part.account.empty()) ++summary_.splitTransfers;
    lines[i].categoryId = names_.Category(part, lines[i].amount);
    lines[i].description = names_.Fit(record.splits[i].memo, kLongestDescription);
  }
  ledger_.AddTransaction(row, lines);
  ++summary_.imported;
}

bool Importer::BookInvestment(const ImportRecord& record, Date date) {
  for (const ImportValue* value :
       {&record.amount, &record.price, &record.quantity, &record.commission}) {
    if (!Number(*value)) return Fault(record, *value, NoNumber(*value));
  }
  const double amount = *Number(record.amount);
  InvestmentTransaction row;
  row.accountId = current_->accountId;
  row.action = InvestActionOf(record.action);
  row.date = date;
  row.shares = std::fabs(*Number(record.quantity));
  row.price = *Number(record.price);
  row.commission = *Number(record.commission);
  row.total = amount;
  switch (row.action) {
    case InvestAction::Buy:
    case InvestAction::Sell:
      row.total = std::fabs(amount);  // some programs write the sign of the cash, some none
      break;
    case InvestAction::Dividend:
      row.dividend = amount;
      row.shares = 0;
      break;
    case InvestAction::AddShares:
    case InvestAction::RemoveShares:
      row.total = 0;
      break;
    case InvestAction::ReinvestDividend:
      break;
  }
  BeginWrite();
  row.payeeId = names_.Investment(record.security, current_->currencyId);
  const bool out = row.action == InvestAction::Buy || row.action == InvestAction::RemoveShares;
  const std::int64_t category = names_.Category({}, out ? -1 : 1);
  if (Former().Has(row, out ? 0 - row.total : row.total, category)) {
    ++summary_.duplicates;
    return true;
  }
  row.description =
      names_.Fit(record.memo.empty() ? record.payee : record.memo, kLongestDescription);
  ledger_.SaveInvestmentTransaction(row);
  ++summary_.investments;
  return true;
}

}  // namespace corvanta
