#include "controls/CommandEdge.h"
#include "exchange/ExchangeDialogs.h"
#include "exchange/export/FileExport.h"
#include "exchange/import/FrmImport.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/RegisterRow.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <algorithm>
#include <unordered_map>

namespace corvanta::inline exchange {
namespace {

// The question knows one filter; the last of these four closes the list.
FileQuestion SaveQuestion() {
  return {"Save File As",
          "ASCII Text File (*.csv);;Excel Worksheet (*.xls);;OFX Money or Quicken (*.ofx);;QIF "
          "Money or Quicken",
          "*.qif",
          {},
          {}};
}

std::vector<RegisterRow> RowsOf(const ExportView& view, clsCorvanta& ledger) {
  std::vector<RegisterRow> rows =
      ledger.Balances().Register(view.accountId, view.filter, view.period);
  if (view.order.empty() && !view.isFiltered) return rows;
  std::unordered_map<std::int64_t, std::size_t> places;
  for (const std::int64_t key : view.order) places.try_emplace(key, places.size());
  if (view.isFiltered) {
    std::erase_if(rows,
                  [&](const RegisterRow& row) { return !places.contains(row.transactionId); });
  }
  const auto place = [&](const RegisterRow& row) {
    const auto known = places.find(row.transactionId);
    return known == places.end() ? places.size() : known->second;
  };
  std::ranges::stable_sort(rows, {}, place);
  return rows;
}

bool Export(const ExportView& view, const ExchangePlace& place) {
  Prompts& prompts = place.platform.prompts;
  const auto account = place.ledger.Accounts().ReadAccount(view.accountId);
  if (!account) {
    prompts.Tell(
        "File Export",
        "This option is only available for Account Transactions, Reports and Investments.");
    return false;
  }
  const std::optional<std::string> path = prompts.SaveFile(SaveQuestion());
  if (!path) return false;
  if (const auto warning = FileExport::Check(*path)) {
    prompts.Tell(warning->title, warning->text, Icon::Warning);
    return false;
  }
  FileExport writer(place.ledger, place.platform);
  if (!writer.Confirm(account->account, *path)) return false;
  const std::vector<RegisterRow> rows = RowsOf(view, place.ledger);
  writer.Write(view.accountId, rows, view.period, *path);
  return true;
}

}  // namespace

ImportResult OpenImport(std::int64_t accountId, const std::string& file,
                        const ExchangePlace& place) {
  ImportResult result;
  RunCommand(place.platform.prompts, [&] {
    FrmImport form(place.platform, place.ledger, place.parent);
    form.Open(accountId, file);
    form.exec();
    result = {form.IsChanged(), form.Account()};
  });
  return result;
}

bool OpenExport(const ExportView& view, const ExchangePlace& place) {
  bool isWritten = false;
  RunCommand(place.platform.prompts, [&] { isWritten = Export(view, place); });
  return isWritten;
}

}  // namespace corvanta::inline exchange
