#include "exchange/import/ImportRecord.h"

#include "ledger/accounts/ReservedNames.h"
#include "platform/TextCase.h"

#include <unicode/brkiter.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace corvanta::inline exchange {
namespace {

constexpr std::size_t kLongestName = 100;  // characters

std::string WithoutRuns(std::string_view text) {
  std::string folded;
  for (const char c : Trim(text)) {
    const bool isBlank = c == ' ' || c == '\t' || c == '\r' || c == '\n';
    if (!isBlank) folded += c;
    if (isBlank && !folded.ends_with(' ')) folded += ' ';
  }
  return folded;
}

void CutInto(std::string& name, std::string& memo) {
  if (name.size() <= kLongestName) return;
  const std::string whole = WithoutRuns(name);
  name = CutName(whole);
  if (name == whole) return;
  // Where a file has one text for both, it stands there once.
  if (WithoutRuns(memo).find(whole) != std::string::npos) return;
  memo = memo.empty() ? whole : whole + " " + memo;
}

void CutInto(ImportCategory& category, std::string& memo) {
  for (std::string* name : {&category.category, &category.subCategory, &category.account}) {
    CutInto(*name, memo);
  }
}

}  // namespace

std::string CutName(std::string_view name) {
  if (name.size() <= kLongestName || TextLength(name) <= kLongestName) return std::string(name);
  std::string folded = WithoutRuns(name);
  if (TextLength(folded) <= kLongestName) return folded;
  const icu::UnicodeString text = icu::UnicodeString::fromUTF8(folded);
  std::int32_t end = text.moveIndex32(0, static_cast<std::int32_t>(kLongestName));
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::BreakIterator> characters(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  if (U_SUCCESS(status)) {
    characters->setText(text);
    if (const std::int32_t before = characters->preceding(end + 1); before > 0) end = before;
  }
  std::string cut;
  text.tempSubString(0, end).toUTF8String(cut);
  return std::string(Trim(cut));
}

void CutNames(ImportRecord& record) {
  CutInto(record.category, record.memo);
  for (std::string* name : {&record.security, &record.payee}) CutInto(*name, record.memo);
  for (ImportSplit& split : record.splits) CutInto(split.category, split.memo);
}

ImportCategory ReadImportCategory(std::string_view text) {
  ImportCategory result;
  // The category of a transfer that has not found its other half, as an export carries it.
  if (EqualFolded(text.substr(0, kTransferMark.size()), kTransferMark)) {
    result.account = Trim(text.substr(kTransferMark.size()));
    return result;
  }
  const std::size_t colon = text.find(':');
  result.category = Trim(text.substr(0, colon));
  if (colon == std::string_view::npos) return result;
  std::string rest(text.substr(colon + 1));
  std::ranges::replace(rest, ':', ' ');
  result.subCategory = Trim(rest);
  return result;
}

double OnSide(double amount, AmountSide side) {
  switch (side) {
    case AmountSide::AsItStands:
      return amount;
    case AmountSide::Expense:
      return amount > 0 ? -amount : amount;
    case AmountSide::Debit:
      return 0 - std::fabs(amount);
    case AmountSide::Credit:
      return std::fabs(amount);
  }
  return amount;
}

std::string PayeeOf(const ImportRecord& record) {
  return Trim(record.payee).empty() ? "Transfer" : record.payee;
}

}  // namespace corvanta::inline exchange
