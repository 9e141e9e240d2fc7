#include "exchange/qif/QifRecord.h"

#include "platform/TextCase.h"

#include <utility>

namespace corvanta::inline exchange {
namespace {

constexpr std::size_t kMaxSplits = 100000;

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

void QifRecord::Field(char code, std::string_view value, std::size_t line, ImportSink& sink) {
  if (!hasFields_) record_.line = line;
  const ImportValue here{std::string(value), line};
  if (kind_ == Kind::Bank) {
    BankField(code, here, sink);
  } else {
    InvestmentField(code, here);
  }
}

bool QifRecord::SharedField(char code, const ImportValue& here) {
  switch (code) {
    case 'D':
      record_.date = here;
      return true;
    case 'T':
      record_.amount = here;
      return true;
    case 'P':
      record_.payee = here.text;
      return true;
    case 'M':
      record_.memo = here.text;
      return true;
    case 'L':
      record_.category = ReadQifCategory(here.text);
      return true;
    default:
      return false;
  }
}

void QifRecord::BankField(char code, const ImportValue& here, ImportSink& sink) {
  const std::string& value = here.text;
  switch (code) {
    case 'U':
      otherAmount_ = value;
      break;
    case 'N':
      record_.reference = value;
      break;
    case 'S':
    case 'E':
    case '$':
      SplitField(code, here, sink);
      break;
    default:
      if (!SharedField(code, here)) return;
  }
  hasFields_ = hasFields_ || !value.empty();
}

void QifRecord::SplitField(char code, const ImportValue& here, ImportSink& sink) {
  if (code == 'S') {
    DropOpenSplit(sink);
    split_.category = ReadQifCategory(here.text);
    splitIsOpen_ = true;
  } else if (code == 'E') {
    split_.memo = here.text;
    splitIsOpen_ = true;
  } else {
    split_.amount = here;
    if (record_.splits.size() <= kMaxSplits) record_.splits.push_back(std::move(split_));
    split_ = ImportSplit();
    splitIsOpen_ = false;
  }
}

void QifRecord::DropOpenSplit(ImportSink& sink) {
  if (splitIsOpen_) {
    sink.OnProblem(record_.line, "A split line without an amount was left out.");
  }
  split_ = ImportSplit();
  splitIsOpen_ = false;
}

void QifRecord::InvestmentField(char code, const ImportValue& here) {
  const std::string& value = here.text;
  switch (code) {
    case 'N':
      record_.action = ToLower(value);
      break;
    case 'Y':
      record_.security = value;
      break;
    case 'I':
      record_.price = here;
      break;
    case 'Q':
      record_.quantity = here;
      break;
    case 'U':
    case '$':
      if (otherAmount_.empty()) otherAmount_ = value;
      break;
    case 'O':
      record_.commission = here;
      break;
    default:
      if (!SharedField(code, here)) return;
  }
  hasFields_ = hasFields_ || !value.empty();
}

bool QifRecord::End(std::size_t offset, ImportSink& sink) {
  DropOpenSplit(sink);
  bool goesOn = true;
  if (hasFields_) {
    record_.isInvestment = kind_ == Kind::Investment;
    record_.offset = offset;
    if (record_.amount.text.empty()) record_.amount.text = otherAmount_;
    if (record_.amount.line == 0) record_.amount.line = record_.line;
    if (record_.splits.size() > kMaxSplits) {
      sink.OnProblem(record_.line, "The record has too many split lines; it was left out.");
    } else {
      goesOn = sink.OnRecord(record_);
    }
  }
  *this = QifRecord(kind_);
  return goesOn;
}

}  // namespace corvanta::inline exchange
