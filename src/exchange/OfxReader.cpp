#include "exchange/OfxReader.h"

#include "platform/TextCase.h"

#include <algorithm>
#include <array>

namespace corvanta {
namespace {

constexpr std::size_t kLongestId = 50;
constexpr std::size_t kDayDigits = 8;  // YYYYMMDD

// Elements whose account numbers are not the statement's.
constexpr std::array<std::string_view, 8> kOtherAccounts = {
    "ACCTINFO", "ACCTINFORS",   "SIGNUPMSGSRSV1", "BANKACCTTO",
    "CCACCTTO", "LOANACCTFROM", "INVACCTFROM",    "PRESACCTFROM"};
constexpr std::array<std::string_view, 3> kInvestments = {"INVSTMTMSGSRSV1", "INVSTMTTRNRS",
                                                          "INVSTMTRS"};

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
  EndTransaction(element.offset);
}

void OfxReader::Open(const OfxElement& element) {
  const std::string& name = element.name;
  if (inInvestment_) return;
  if (IsAmong(kInvestments, name)) {
    EndTransaction(element.offset);
    inInvestment_ = true;
    sink_->OnProblem(element.line,
                     "An investment statement is not imported; only those of bank and card "
                     "accounts are.");
  } else if (name == "STMTTRNRS" || name == "STMTRS" || name == "CCSTMTTRNRS" ||
             name == "CCSTMTRS") {
    EndTransaction(element.offset);
    BeginStatement();
    if (name.starts_with("CC")) account_.group = "ccard";
  } else if (name == "STMTTRN") {
    BeginTransaction(element);
  } else if (inTransaction_) {
    TransactionField(element);
  } else {
    StatementField(element);
  }
}

void OfxReader::BeginStatement() {
  account_ = ImportAccount();
  account_.group = "bank";
  accountIsTold_ = false;
  other_.clear();
}

void OfxReader::StatementField(const OfxElement& element) {
  if (!other_.empty()) return;
  if (IsAmong(kOtherAccounts, element.name)) {
    other_ = element.name;
  } else if (element.name == "ACCTID") {
    // A statement has one account; a second one is that of the next statement.
    if (accountIsTold_) BeginStatement();
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
  if (IsAmong(kOtherAccounts, name)) {
    other_ = name;
    return;
  }
  if (name == "PAYEE") {
    inPayee_ = true;
  } else if (name == "NAME") {
    (inPayee_ ? payeeName_ : record_.payee) = value;
  } else if (name == "DTPOSTED") {
    record_.date = {value.substr(0, kDayDigits), element.line};
  } else if (name == "TRNAMT") {
    record_.amount = {value, element.line};
  } else if (name == "MEMO") {
    record_.memo = value;
  } else if (name == "FITID") {
    record_.reference = Cut(value, kLongestId);
    record_.isBankId = !record_.reference.empty();
  } else {
    return;
  }
  hasFields_ = hasFields_ || !value.empty();
}

void OfxReader::Close(const std::string& name, std::size_t offset) {
  if (inInvestment_) {
    inInvestment_ = !IsAmong(kInvestments, name);
    return;
  }
  if (name == other_) other_.clear();
  if (name == "PAYEE") inPayee_ = false;
  if (name == "STMTTRN" || name == "BANKTRANLIST") EndTransaction(offset);
  if (name == "STMTTRNRS" || name == "CCSTMTTRNRS" || name == "STMTRS" || name == "CCSTMTRS") {
    EndTransaction(offset);
    BeginStatement();
  }
}

void OfxReader::EndTransaction(std::size_t offset) {
  if (inTransaction_ && hasFields_ && goesOn_) {
    if (!accountIsTold_) sink_->OnAccount(account_);
    accountIsTold_ = true;
    if (record_.payee.empty()) record_.payee = payeeName_.empty() ? record_.memo : payeeName_;
    record_.offset = offset;
    goesOn_ = sink_->OnRecord(record_);
  }
  inTransaction_ = false;
  inPayee_ = false;
  other_.clear();
  hasFields_ = false;
  record_ = ImportRecord();
  payeeName_.clear();
}

}  // namespace corvanta
