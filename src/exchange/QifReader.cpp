#include "exchange/QifReader.h"

#include "platform/TextCase.h"

#include <algorithm>
#include <array>

namespace corvanta::inline exchange {
namespace {

constexpr std::size_t kMaxSplits = 100000;

constexpr std::array<std::string_view, 6> kBankTypes = {"!type:bank", "!type:cash",  "!type:ccard",
                                                        "!type:cc",   "!type:oth a", "!type:oth l"};
constexpr std::array<std::string_view, 9> kListTypes = {
    "!type:cat",       "!type:class",   "!type:tag",    "!type:prices",  "!type:memorized",
    "!type:memorised", "!type:invitem", "!type:budget", "!type:template"};

template <typename Names>
bool IsAmong(const Names& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

// The type of an account begins with a letter, but for "401(k)".
bool IsAmountText(std::string_view value) {
  return !value.empty() && value.find_first_not_of("0123456789.,+- ") == std::string_view::npos;
}

// Brackets name an account, with a class behind them or a category before them.
ImportCategory ReadQifCategory(std::string_view value) {
  const std::size_t open = value.find('[');
  const std::size_t close = value.rfind(']');
  if (open == std::string_view::npos || close == std::string_view::npos || close < open) {
    return ReadImportCategory(value);
  }
  ImportCategory transfer;
  transfer.account = Trim(value.substr(open + 1, close - open - 1));
  return transfer;
}

}  // namespace

void QifReader::Run(ImportSink& sink) {
  sink_ = &sink;
  std::string_view raw;
  while (goesOn_ && lines_.Next(raw)) {
    const std::string_view line = Trim(raw);
    if (line.empty()) continue;
    if (line.front() == '!') {
      Header(line);
    } else {
      const char code = line.front();
      Field(code >= 'a' && code <= 'z' ? static_cast<char>(code - 32) : code, Trim(line.substr(1)));
    }
  }
  if (goesOn_) EndFile();
}

void QifReader::EndFile() {
  const bool isRecord = section_ == Section::Bank || section_ == Section::Investment;
  const bool isAccount = section_ == Section::Accounts && !isRecord_ && !account_.name.empty();
  if ((isRecord && hasFields_) || isAccount) {
    sink_->OnProblem(isAccount ? lines_.Number() : record_.line,
                     "The file ends inside this entry, before its end mark; nothing of it was "
                     "imported. Fetch the whole file once more.");
  } else {
    EndEntry();
  }
  EndSection();
}

void QifReader::Header(std::string_view line) {
  // An entry that ends at a header instead of its mark counts.
  EndEntry();
  const std::string header = ToLower(line);
  if (header == "!clear:autoswitch") {
    isList_ = false;
    listed_.clear();
    return;
  }
  if (header == "!option:autoswitch") {
    isList_ = true;
    if (section_ == Section::Bank || section_ == Section::Investment) return;
    EndSection();
    section_ = Section::Accounts;
    return;
  }
  EndSection();
  TypeHeader(header, line);
}

void QifReader::TypeHeader(const std::string& header, std::string_view line) {
  // A list of accounts chooses none of them; one account alone before transactions is no list.
  const bool hasRecords = IsAmong(kBankTypes, header) || header == "!type:invst";
  if (hasRecords && listed_.size() == 1) sink_->OnAccount(listed_.front());
  listed_.clear();
  if (header == "!account") {
    section_ = Section::Accounts;
  } else if (IsAmong(kBankTypes, header)) {
    section_ = Section::Bank;
  } else if (header == "!type:invst") {
    section_ = Section::Investment;
  } else if (header == "!type:security") {
    section_ = Section::Securities;
  } else if (IsAmong(kListTypes, header)) {
    section_ = Section::OtherList;
  } else {
    unknown_ = line;
    unknownLine_ = lines_.Number();
  }
}

void QifReader::EndSection() {
  if (unknownEntries_ > 0) {
    const std::string what =
        unknown_.empty() ? "There is no type header" : "\"" + unknown_ + "\" is not known";
    sink_->OnProblem(unknownLine_,
                     what + "; " + std::to_string(unknownEntries_) + " entries were left out.");
  }
  unknown_.clear();
  unknownEntries_ = 0;
  unknownLine_ = 0;
  section_ = Section::None;
}

void QifReader::Field(char code, std::string_view value) {
  if (code == '^') return EndEntry();
  switch (section_) {
    case Section::Accounts:
      return AccountField(code, value);
    case Section::Securities:
      return SecurityField(code, value);
    case Section::Bank:
    case Section::Investment:
      if (!hasFields_) record_.line = lines_.Number();
      return section_ == Section::Bank ? BankField(code, value) : InvestmentField(code, value);
    case Section::None:
      // Dates tell entries from the lines of any other file.
      if (code == 'D') ++unknownEntries_;
      if (unknownLine_ == 0) unknownLine_ = lines_.Number();
      return;
    case Section::OtherList:
      return;
  }
}

void QifReader::AccountField(char code, std::string_view value) {
  if (code == 'N') {
    if (!isRecord_) EndAccount();
    account_.name = value;
  } else if (code == 'T') {
    account_.group = ToLower(value);
    isRecord_ = isRecord_ || IsAmountText(value);
  } else if (code == 'P') {
    isRecord_ = true;
  }
  if (isRecord_ && unknownLine_ == 0) unknownLine_ = lines_.Number();
}

void QifReader::SecurityField(char code, std::string_view value) {
  if (code == 'N') securityName_ = value;
  if (code == 'S') securitySymbol_ = value;
}

ImportValue QifReader::ValueHere(std::string_view value) const {
  return {std::string(value), lines_.Number()};
}

void QifReader::BankField(char code, std::string_view value) {
  switch (code) {
    case 'D':
      record_.date = ValueHere(value);
      break;
    case 'T':
      record_.amount = ValueHere(value);
      break;
    case 'U':
      otherAmount_ = value;
      break;
    case 'P':
      record_.payee = value;
      break;
    case 'M':
      record_.memo = value;
      break;
    case 'N':
      record_.reference = value;
      break;
    case 'L':
      record_.category = ReadQifCategory(value);
      break;
    case 'S':
    case 'E':
    case '$':
      SplitField(code, value);
      break;
    default:
      return;
  }
  hasFields_ = hasFields_ || !value.empty();
}

void QifReader::SplitField(char code, std::string_view value) {
  if (code == 'S') {
    DropOpenSplit();
    split_.category = ReadQifCategory(value);
    splitIsOpen_ = true;
  } else if (code == 'E') {
    split_.memo = value;
    splitIsOpen_ = true;
  } else {
    split_.amount = ValueHere(value);
    if (record_.splits.size() <= kMaxSplits) record_.splits.push_back(std::move(split_));
    split_ = ImportSplit();
    splitIsOpen_ = false;
  }
}

void QifReader::DropOpenSplit() {
  if (splitIsOpen_) {
    sink_->OnProblem(record_.line, "A split line without an amount was left out.");
  }
  split_ = ImportSplit();
  splitIsOpen_ = false;
}

void QifReader::InvestmentField(char code, std::string_view value) {
  switch (code) {
    case 'D':
      record_.date = ValueHere(value);
      break;
    case 'N':
      record_.action = ToLower(value);
      break;
    case 'Y':
      record_.security = value;
      break;
    case 'I':
      record_.price = ValueHere(value);
      break;
    case 'Q':
      record_.quantity = ValueHere(value);
      break;
    case 'T':
      record_.amount = ValueHere(value);
      break;
    case 'U':
    case '$':
      if (otherAmount_.empty()) otherAmount_ = value;
      break;
    case 'O':
      record_.commission = ValueHere(value);
      break;
    case 'P':
      record_.payee = value;
      break;
    case 'M':
      record_.memo = value;
      break;
    case 'L':
      record_.category = ReadQifCategory(value);
      break;
    default:
      return;
  }
  hasFields_ = hasFields_ || !value.empty();
}

void QifReader::EndEntry() {
  switch (section_) {
    case Section::Accounts:
      return EndAccount();
    case Section::Securities:
      if (!securityName_.empty()) sink_->OnSecurity(securityName_, securitySymbol_);
      securityName_.clear();
      securitySymbol_.clear();
      return;
    case Section::Bank:
    case Section::Investment:
      return EndRecord();
    case Section::None:
    case Section::OtherList:
      return;
  }
}

void QifReader::EndAccount() {
  if (isRecord_) {
    ++unknownEntries_;
  } else if (!account_.name.empty() && isList_) {
    sink_->OnListedAccount(account_);
    listed_.push_back(account_);
  } else if (!account_.name.empty()) {
    sink_->OnAccount(account_);
  }
  account_ = ImportAccount();
  isRecord_ = false;
}

void QifReader::EndRecord() {
  DropOpenSplit();
  if (hasFields_) {
    record_.isInvestment = section_ == Section::Investment;
    record_.offset = lines_.Offset();
    if (record_.amount.text.empty()) record_.amount.text = otherAmount_;
    if (record_.amount.line == 0) record_.amount.line = record_.line;
    if (record_.splits.size() > kMaxSplits) {
      sink_->OnProblem(record_.line, "The record has too many split lines; it was left out.");
    } else {
      goesOn_ = sink_->OnRecord(record_);
    }
  }
  record_ = ImportRecord();
  otherAmount_.clear();
  hasFields_ = false;
}

}  // namespace corvanta::inline exchange
