#pragma once

#include "ledger/Keys.h"
#include "ledger/LedgerCore.h"
#include "ledger/investments/InvestmentRecord.h"
#include "ledger/register/StatusFilter.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {

class clsCorvanta;

// Investments and their transactions. An investment is a row among the payees.
class InvestmentBook {
 public:
  InvestmentBook(LedgerCore& core, clsCorvanta& ledger) : core_(core), ledger_(ledger) {}

  // --- Investments

  // All of them or the one of that key, by the code of their currency and their name; one whose
  // currency is not there is left out.
  [[nodiscard]] std::vector<InvestmentDetails> ListInvestments(
      std::optional<std::int64_t> investmentId = std::nullopt);
  // nullopt when there is no such row, or it is an ordinary payee.
  [[nodiscard]] std::optional<InvestmentRecord> ReadInvestment(std::int64_t investmentId);
  // The key of another investment of that name, in whatever case; `investmentId` when there is
  // none.
  [[nodiscard]] std::int64_t InvestmentNameExists(const std::string& name,
                                                  std::int64_t investmentId);
  // The investment of that name and symbol, without regard to case; a new one has the first source
  // of quotes. Returns 0 for a name of blanks.
  std::int64_t FindOrCreateInvestment(const std::string& name, const std::string& symbol,
                                      std::int64_t currencyId);
  // The key, which a new one's record gets too; 0 when there is no such row.
  std::int64_t SaveInvestment(InvestmentRecord& record);
  // The investment with its prices; false when there is none, or transactions or schedules need it.
  bool DeleteInvestment(std::int64_t investmentId);
  // The sources of quotes that an investment can have.
  [[nodiscard]] std::vector<StockSource> StockSources();

  // --- Transactions

  // Those of all accounts that the filter shows, the newest first.
  [[nodiscard]] std::vector<InvestmentTransactionRow> ListTransactions(
      const StatusFilter& filter = {});
  // Those of the transactions that are of investments.
  [[nodiscard]] std::vector<std::int64_t> InvestmentTransactionsAmong(Keys transactionIds);
  // Writes the row with the sign and category of its action and the payment type "Import". Its key
  // is put into the record and returned; 0 when there is no such row. A transfer that the row was
  // half of ends, and its other half becomes an ordinary row. The account's cash moves by the
  // total, rounded to the decimals of its currency.
  std::int64_t SaveInvestmentTransaction(InvestmentTransaction& record);

 private:
  // `cash` is signed.
  void WriteTransaction(InvestmentTransaction& record, double cash);

  LedgerCore& core_;
  clsCorvanta& ledger_;
};

}  // namespace corvanta::inline ledger
