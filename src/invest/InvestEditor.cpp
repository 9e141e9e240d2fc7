#include "invest/InvestEditor.h"

#include "invest/prices/LookUpPage.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/investments/PriceBook.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"
#include "reference/RowOf.h"
#include "reference/Rules.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

#include <string>

namespace corvanta::inline invest {
namespace {

std::optional<Warning> NotChosen(std::int64_t key, const char* text, const char* field) {
  if (key != 0) return std::nullopt;
  return Warning{kSaveWarning, text, field};
}

}  // namespace

std::int64_t InvestEditor::DefaultCurrency() {
  {
    const Recordset account = ledger_.Store().OpenRecordset(
        "Select TOP 1 A.*, C.Currency from tblAccounts A LEFT JOIN tblCurrency C ON "
        " A.CurrencyID = C.CurrencyID ORDER BY AccountID DESC");
    if (!account.Eof()) return account.Int("CurrencyID");
  }
  return ledger_.Store()
      .QueryValue("Select CurrencyID from tblCurrency WHERE Currency =" +
                  SqlText(platform_.locale.CurrencyCode()))
      .Int();
}

InvestmentRecord InvestEditor::New() {
  InvestmentRecord form;
  form.currencyId = DefaultCurrency();
  form.investCurrencyId = form.currencyId;
  return form;
}

std::optional<InvestmentRecord> InvestEditor::Load(std::int64_t key) {
  return ledger_.Investments().ReadInvestment(key);
}

std::optional<Warning> InvestEditor::Check(const InvestmentRecord& form) {
  if (auto warning = Missing(form.symbol, "You need to enter a Symbol", "txtSymbol"))
    return warning;
  if (auto warning =
          Missing(form.investment, "You need to enter an Investment Name", "txtInvestment")) {
    return warning;
  }
  if (auto warning = NotChosen(form.investCurrencyId, "You need to select an Investment Currency",
                               "cmbCurrencyInvest")) {
    return warning;
  }
  if (auto warning =
          NotChosen(form.currencyId, "You need to select an Account Currency", "cmbCurrency")) {
    return warning;
  }
  if (auto warning = NotChosen(form.dataId, "You need to select a Data Source", "cmbDataSource")) {
    return warning;
  }
  InvestmentBook& investments = ledger_.Investments();
  const bool isTaken =
      investments.InvestmentNameExists(form.investment, form.investmentId) != form.investmentId;
  if (auto warning = Duplicate(isTaken, "Investment already exists", "txtInvestment")) {
    return warning;
  }
  if (auto warning =
          NameTooLong(form.investment, "Investment Name must be less than 100 characters long",
                      "txtInvestment")) {
    return warning;
  }
  if (auto warning = TextTooLong(ledger_, "tblPayees",
                                 {{"Symbol", Trim(form.symbol), "txtSymbol"},
                                  {"Description", Trim(form.description), "txtDescription"}})) {
    return warning;
  }
  if (form.investmentId == 0 || Load(form.investmentId)) return std::nullopt;
  return Warning{kSaveWarning, "This Investment does not exist any more", {}};
}

std::int64_t InvestEditor::Save(InvestmentRecord form) {
  const UndoLog::Step step =
      ledger_.Undo().Begin(form.investmentId == 0 ? "Add Investment" : "Edit Investment");
  for (std::string* text : {&form.symbol, &form.investment, &form.description}) TrimText(*text);
  if (!(form.conversion > 0)) form.conversion = 1;
  return ledger_.Investments().SaveInvestment(form);
}

Deletion InvestEditor::Delete(std::int64_t key) {
  InvestmentBook& investments = ledger_.Investments();
  const auto row = investments.ReadInvestment(key);
  if (!row) return {true, true, {}};
  std::string more;
  if (const std::size_t prices = ledger_.Prices().PricesOf(key).size(); prices > 0) {
    more = prices == 1 ? " Its stored price is deleted too."
                       : " Its " + std::to_string(prices) + " stored prices are deleted too.";
  }
  if (!AskDelete(platform_.prompts, more)) return {};
  return DeletionOf(investments.DeleteInvestment(key), row->investment);
}

std::optional<Warning> InvestEditor::LookUp(std::int64_t dataId) {
  const auto source = RowOf(ledger_.Investments().StockSources(), &StockSource::dataId, dataId);
  return OpenLookUpPage(source ? std::optional(source->lookUpUrl) : std::nullopt, platform_.opener);
}

}  // namespace corvanta::inline invest
