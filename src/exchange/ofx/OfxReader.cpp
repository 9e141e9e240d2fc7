#include "exchange/ofx/OfxReader.h"

#include "platform/TextCase.h"

#include <algorithm>
#include <array>

namespace corvanta::inline exchange {
namespace {

constexpr std::size_t kLongestId = 50;
constexpr std::size_t kDayDigits = 8;  // YYYYMMDD

// Elements whose account numbers are not the statement's.
constexpr std::array<std::string_view, 9> kOtherAccounts = {
    "ACCTINFO",     "ACCTINFORS",  "SIGNUPMSGSRSV1", "BANKACCTTO",  "CCACCTTO",
    "LOANACCTFROM", "INVACCTFROM", "INVACCTTO",      "PRESACCTFROM"};
constexpr std::array<std::string_view, 6> kStatements = {"STMTTRNRS", "STMTRS",       "CCSTMTTRNRS",
                                                         "CCSTMTRS",  "INVSTMTTRNRS", "INVSTMTRS"};
constexpr std::array<std::string_view, 2> kLists = {"BANKTRANLIST", "INVTRANLIST"};

template <typename Names>
bool IsAmong(const Names& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

std::string GroupOf(const std::string& accountType) {
  return EqualFolded(accountType, "CREDITLINE") ? "ccard" : "bank";
}

// Characters, not bytes.
std::string Cut(std::string_view text, std::size_t length) {
  std::size_t end = 0;
  std::size_t count = 0;
  while (end < text.size()) {
    const bool begins = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (begins && count == length) break;
    if (begins) ++count;
    ++end;
  }
  return std::string(Trim(text.substr(0, end)));
}

}  // namespace

void OfxReader::Run(ImportSink& sink) {
  sink_ = &sink;
  OfxElement element;
  while (goesOn_ && elements_.Next(element)) {
    if (element.name.starts_with("/")) {
      Close(element.name.substr(1), element.offset);
    } else {
      Open(element);
    }
  }
  if (goesOn_) EndFile();
}

void OfxReader::EndFile() {
  if (inTransaction_) {
    sink_->OnProblem(record_.line,
                     "The file ends inside this transaction; nothing of it was imported. Ask the "
                     "bank for the whole file.");
  } else if (inList_) {
    sink_->OnProblem(0,
                     "The file ends before the list of its transactions does. Ask the bank for the "
                     "whole file.");
  }
  trades_.Tell(*sink_);
}

void OfxReader::Open(const OfxElement& element) {
  const std::string& name = element.name;
  if (IsAmong(kStatements, name)) {
    EndTransaction(element.offset);
    BeginStatement(name);
  } else if (name == "STMTTRN" && !trades_.IsInTrade()) {
    BeginTransaction(element);
  } else if (inTransaction_) {
    TransactionField(element);
  } else {
    inList_ = inList_ || IsAmong(kLists, name);
    inInvestment_&& inList_ ? trades_.Open(element) : trades_.Look(element);
    if (!trades_.IsInTrade()) StatementField(element);
  }
}

void OfxReader::BeginStatement(const std::string& name) {
  account_ = ImportAccount();
  inInvestment_ = name.starts_with("INV");
  account_.group = inInvestment_ ? "invst" : name.starts_with("CC") ? "ccard" : "bank";
  accountIsTold_ = false;
  inList_ = false;
  other_.clear();
}

bool OfxReader::IsOtherAccount(const std::string& name) const {
  return IsAmong(kOtherAccounts, name) && !(inInvestment_ && name == "INVACCTFROM");
}

void OfxReader::StatementField(const OfxElement& element) {
  if (!other_.empty()) return;
  if (IsOtherAccount(element.name)) {
    other_ = element.name;
  } else if (element.name == "ACCTID") {
    // A statement has one account; a second one is that of the next statement.
    if (accountIsTold_) account_ = ImportAccount{{}, {}, account_.group, {}};
    accountIsTold_ = false;
    account_.number = Cut(element.value, kLongestId);
  } else if (element.name == "ACCTTYPE") {
    account_.group = GroupOf(element.value);
  } else if (element.name == "CURDEF") {
    account_.currency = element.value;
  }
}

void OfxReader::BeginTransaction(const OfxElement& element) {
  EndTransaction(element.offset);
  inTransaction_ = true;
  record_.line = element.line;
}

void OfxReader::TransactionField(const OfxElement& element) {
  const std::string& name = element.name;
  const std::string& value = element.value;
  if (!other_.empty()) return;
  if (IsOtherAccount(name)) {
    other_ = name;
    return;
  }
  if (name == "PAYEE") {
    inPayee_ = true;
  } else if (name == "NAME") {
    (inPayee_ ? payeeName_ : record_.payee) = value;
  } else if (name == "DTPOSTED") {
    const bool isCompact = value.find_first_not_of("0123456789") >= kDayDigits;
    record_.date = {isCompact ? value.substr(0, kDayDigits) : value, element.line};
  } else if (name == "TRNAMT") {
    record_.amount = {value, element.line};
  } else if (name == "MEMO") {
    record_.memo = value;
  } else if (name == "CHECKNUM") {
    // Zeros alone are a bank's way of saying none.
    if (value.find_first_not_of("0 ") != std::string::npos) cheque_ = Cut(value, kLongestId);
  } else if (name == "FITID") {
    record_.reference = Cut(value, kLongestId);
    record_.isBankId = !record_.reference.empty();
  } else {
    return;
  }
  hasFields_ = hasFields_ || !value.empty();
}

void OfxReader::Close(const std::string& name, std::size_t offset) {
  trades_.Close(name);
  if (name == other_) other_.clear();
  if (name == "PAYEE") inPayee_ = false;
  if (IsAmong(kLists, name)) inList_ = false;
  if (name == "STMTTRN" || IsAmong(kLists, name)) EndTransaction(offset);
  if (!IsAmong(kStatements, name)) return;
  EndTransaction(offset);
  BeginStatement({});
}

void OfxReader::EndTransaction(std::size_t offset) {
  if (inTransaction_ && hasFields_ && goesOn_) {
    if (!accountIsTold_) sink_->OnAccount(account_);
    accountIsTold_ = true;
    if (record_.payee.empty()) record_.payee = payeeName_.empty() ? record_.memo : payeeName_;
    KeepCheque();
    record_.offset = offset;
    goesOn_ = sink_->OnRecord(record_);
  }
  inTransaction_ = false;
  inPayee_ = false;
  other_.clear();
  hasFields_ = false;
  record_ = ImportRecord();
  payeeName_.clear();
  cheque_.clear();
}

// The bank's own mark stays the reference, by which the entry is known again.
void OfxReader::KeepCheque() {
  if (cheque_.empty() || record_.reference.find(cheque_) != std::string::npos) return;
  if (record_.reference.empty()) {
    record_.reference = cheque_;
  } else if (record_.memo.find(cheque_) == std::string::npos) {
    record_.memo += (record_.memo.empty() ? "Cheque " : ", cheque ") + cheque_;
  }
}

}  // namespace corvanta::inline exchange
