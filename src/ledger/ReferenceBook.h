#pragma once

#include "ledger/LedgerCore.h"
#include "ledger/ReferenceRecords.h"

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta {

// Groups, banks, payees, payment types, currencies and periods. What is in use is kept.
class ReferenceBook {
 public:
  explicit ReferenceBook(LedgerCore& core) : core_(core) {}

  [[nodiscard]] std::vector<AccountGroupRecord> AccountGroups();
  [[nodiscard]] std::vector<BankRecord> Banks();
  [[nodiscard]] std::vector<PayeeRecord> Payees();  // without investments
  [[nodiscard]] std::vector<PaymentRecord> Payments();
  [[nodiscard]] std::vector<CurrencyRecord> Currencies();
  [[nodiscard]] std::vector<PeriodRecord> Periods();
  std::int64_t FindOrCreateAccountGroup(const std::string& name);
  std::int64_t FindOrCreateBank(const std::string& name);
  std::int64_t FindOrCreatePayee(const std::string& name);
  std::int64_t FindOrCreatePayment(const std::string& name);
  [[nodiscard]] std::int64_t OtherAccountGroup(const std::string& name, std::int64_t accountTypeId);
  [[nodiscard]] std::int64_t OtherBank(const std::string& name, std::int64_t bankId);
  [[nodiscard]] std::int64_t OtherPayee(const std::string& name, std::int64_t payeeId);
  [[nodiscard]] std::int64_t OtherPayment(const std::string& name, std::int64_t paymentId);
  [[nodiscard]] std::int64_t OtherKeyword(const std::string& name, std::int64_t keywordId);
  // The first text that its column cannot hold, as words for a person; nullopt when all fit.
  // ledger.References().TooLong("tblBank", {{"Bank", name}, {"Web", web}})
  [[nodiscard]] std::optional<TextProblem> TooLong(std::string_view table,
                                                   std::initializer_list<ColumnText> texts);
  std::int64_t SaveAccountGroup(AccountGroupRecord& record);
  std::int64_t SaveBank(BankRecord& record);
  std::int64_t SavePayee(PayeeRecord& record);
  std::int64_t SavePayment(PaymentRecord& record);
  bool DeleteAccountGroup(std::int64_t accountTypeId);
  bool DeleteBank(std::int64_t bankId);
  bool DeletePayee(std::int64_t payeeId);
  bool DeletePayment(std::int64_t paymentId);
  void MergePayees(std::int64_t sourceId, std::int64_t targetId);

 private:
  LedgerCore& core_;
};

}  // namespace corvanta
