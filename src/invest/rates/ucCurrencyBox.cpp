#include "invest/rates/ucCurrencyBox.h"

#include "controls/QtText.h"
#include "invest/rates/CurrencyConverter.h"
#include "platform/TextCase.h"

#include <algorithm>

namespace corvanta::inline invest {

ucCurrencyBox::ucCurrencyBox(std::vector<CurrencyRecord> currencies, QWidget* parent)
    : PickBox(parent), currencies_(std::move(currencies)) {
  std::vector<PickItem> items;
  for (const CurrencyRecord& row : currencies_) {
    items.push_back({row.currencyId, ToQt(CurrencyConverter::Entry(row))});
  }
  SetItems(items);
  SetKey(0);
}

std::string ucCurrencyBox::Code() const {
  const qint64 key = Key();
  const std::string typed(Trim(FromQt(currentText())));
  for (const CurrencyRecord& row : currencies_) {
    if (key != 0 ? row.currencyId == key : EqualFolded(row.currency, typed)) return row.currency;
  }
  return {};
}

QString ucCurrencyBox::Entry() const {
  const std::string code = Code();
  for (const CurrencyRecord& row : currencies_) {
    if (row.currency == code) return ToQt(CurrencyConverter::Entry(row));
  }
  return {};
}

void ucCurrencyBox::SetCode(const std::string& code) {
  const auto found = std::ranges::find_if(
      currencies_, [&](const CurrencyRecord& row) { return EqualFolded(row.currency, code); });
  SetKey(found == currencies_.end() ? 0 : found->currencyId);
}

void ucCurrencyBox::Settle() {
  const std::string code = Code();
  if (Key() == 0 && !code.empty()) SetCode(code);
}

}  // namespace corvanta::inline invest
