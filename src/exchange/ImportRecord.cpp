#include "exchange/ImportRecord.h"

#include "platform/TextCase.h"

#include <algorithm>
#include <cmath>

namespace corvanta {

ImportCategory ReadImportCategory(std::string_view text) {
  constexpr std::string_view kTransferMark = "Account:";
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

}  // namespace corvanta
