#include "invest/prices/HistoryEditor.h"

#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline invest {

HistoryEditor::HistoryEditor(clsCorvanta& ledger, Platform& platform, std::int64_t investmentId)
    : ledger_(ledger),
      platform_(platform),
      investmentId_(investmentId),
      download_(ledger, platform) {}

std::string HistoryEditor::Investment() {
  return ledger_.Store()
      .QueryValue("Select Payee from tblPayees Where PayeeID = " + SqlNumber(investmentId_))
      .Text();
}

std::vector<PriceRecord> HistoryEditor::Rows() {
  return ledger_.Prices().PricesOf(investmentId_);
}

std::optional<Warning> HistoryEditor::Check(std::optional<double> price) {
  if (price.value_or(0) != 0) return std::nullopt;
  return Warning{"Save Warning", "Please enter a valid value for Price", "txtPrice"};
}

void HistoryEditor::Save(Date day, double price) {
  ledger_.Prices().StorePrice(investmentId_, day, price);
}

bool HistoryEditor::Delete(Keys historyIds) {
  if (historyIds.empty()) return false;
  if (!platform_.prompts.Ask("Delete Items?", "Do you want to delete all selected items?")) {
    return false;
  }
  ledger_.Prices().DeletePrices(historyIds);
  return true;
}

bool HistoryEditor::Download() {
  return download_.DownloadInvestmentPrice(investmentId_).has_value();
}

}  // namespace corvanta::inline invest
