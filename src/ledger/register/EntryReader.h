#pragma once

#include "ledger/register/RegisterRows.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvanta::inline ledger {

// Makes a register's entries of what the access path knows of the rows.
class EntryReader {
 public:
  // To go on with a condition on "T".
  static constexpr const char* kStatement =
      "Select T.TransactionID, T.[Date], T.[Amount], T.CategoryID, T.PayeeID, T.PaymentID, "
      "T.TransferID, T.BankChk, T.BankRec from tblTransactions T WHERE ";
  enum Position { kId, kDate, kAmount, kCategory, kPayee, kPayment, kTransfer, kBankChk, kBankRec };

  template <typename Row>
  RegisterEntry Of(const Row& row) {
    RegisterEntry entry;
    entry.transactionId = static_cast<std::int32_t>(row.Int(kId));
    entry.date = DayOf(row.Text(kDate));
    entry.amount = row.Double(kAmount);
    entry.categoryId = static_cast<std::int32_t>(row.Int(kCategory));
    entry.payeeId = static_cast<std::int32_t>(row.Int(kPayee));
    entry.paymentId = static_cast<std::int32_t>(row.Int(kPayment));
    entry.transferId = static_cast<std::int32_t>(row.Int(kTransfer));
    entry.status = StatusLetter(row.Int(kBankChk), row.Int(kBankRec));
    return entry;
  }
  // The day read last, as it is stored.
  [[nodiscard]] const std::string& StoredDay() const { return day_; }

 private:
  // Neighbours mostly have the same day.
  Date DayOf(std::string_view stored) {
    if (stored != day_) {
      day_ = stored;
      date_ = Date::FromIso(stored.substr(0, 10)).value_or(Date());
    }
    return date_;
  }

  std::string day_;
  Date date_;
};

}  // namespace corvanta::inline ledger
