#include "exchange/qif/QifReader.h"

#include "platform/TextCase.h"

#include <algorithm>
#include <array>

namespace corvanta::inline exchange {
namespace {

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
  if ((isRecord && record_.HasFields()) || isAccount) {
    sink_->OnProblem(isAccount ? lines_.Number() : record_.Line(),
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
    record_ = QifRecord(QifRecord::Kind::Bank);
  } else if (header == "!type:invst") {
    section_ = Section::Investment;
    record_ = QifRecord(QifRecord::Kind::Investment);
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
      return record_.Field(code, value, lines_.Number(), *sink_);
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
      goesOn_ = record_.End(lines_.Offset(), *sink_);
      return;
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

}  // namespace corvanta::inline exchange
