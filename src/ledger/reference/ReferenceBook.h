#pragma once

#include "ledger/LedgerCore.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/reference/ReferenceRows.h"

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline ledger {

// Groups, banks, payees, payment types, currencies and periods. What is in use is kept.
class ReferenceBook {
 public:
  explicit ReferenceBook(LedgerCore& core) : core_(core) {}

  // The rows of one kind, for whoever treats all kinds alike. What follows is named for those who
  // mean one.
  template <typename Record>
  [[nodiscard]] ReferenceRows<Record> Of() {
    return ReferenceRows<Record>(core_);
  }

  [[nodiscard]] std::vector<AccountGroupRecord> AccountGroups() {
    return Of<AccountGroupRecord>().All();
  }
  [[nodiscard]] std::vector<BankRecord> Banks() { return Of<BankRecord>().All(); }
  [[nodiscard]] std::vector<PayeeRecord> Payees() {
    return Of<PayeeRecord>().All();
  }  // without investments
  [[nodiscard]] std::vector<PaymentRecord> Payments() { return Of<PaymentRecord>().All(); }
  [[nodiscard]] std::vector<CurrencyRecord> Currencies();  // by their names, not their codes
  [[nodiscard]] std::vector<PeriodRecord> Periods();
  std::int64_t FindOrCreateAccountGroup(const std::string& name) {
    return Of<AccountGroupRecord>().FindOrCreate(name);
  }
  std::int64_t FindOrCreateBank(const std::string& name) {
    return Of<BankRecord>().FindOrCreate(name);
  }
  std::int64_t FindOrCreatePayee(const std::string& name) {
    return Of<PayeeRecord>().FindOrCreate(name);
  }
  std::int64_t FindOrCreatePayment(const std::string& name) {
    return Of<PaymentRecord>().FindOrCreate(name);
  }
  [[nodiscard]] std::int64_t OtherAccountGroup(const std::string& name,
                                               std::int64_t accountTypeId) {
    return Of<AccountGroupRecord>().Other(name, accountTypeId);
  }
  [[nodiscard]] std::int64_t OtherBank(const std::string& name, std::int64_t bankId) {
    return Of<BankRecord>().Other(name, bankId);
  }
  [[nodiscard]] std::int64_t OtherPayee(const std::string& name, std::int64_t payeeId) {
    return Of<PayeeRecord>().Other(name, payeeId);
  }
  [[nodiscard]] std::int64_t OtherPayment(const std::string& name, std::int64_t paymentId) {
    return Of<PaymentRecord>().Other(name, paymentId);
  }
  [[nodiscard]] std::int64_t OtherKeyword(const std::string& name, std::int64_t keywordId) {
    return Of<KeywordRecord>().Other(name, keywordId);
  }
  std::int64_t SaveAccountGroup(AccountGroupRecord& record) {
    return Of<AccountGroupRecord>().Save(record);
  }
  std::int64_t SaveBank(BankRecord& record) { return Of<BankRecord>().Save(record); }
  std::int64_t SavePayee(PayeeRecord& record) { return Of<PayeeRecord>().Save(record); }
  std::int64_t SavePayment(PaymentRecord& record) { return Of<PaymentRecord>().Save(record); }
  bool DeleteAccountGroup(std::int64_t accountTypeId) {
    return Of<AccountGroupRecord>().Delete(accountTypeId);
  }
  bool DeleteBank(std::int64_t bankId) { return Of<BankRecord>().Delete(bankId); }
  bool DeletePayee(std::int64_t payeeId) { return Of<PayeeRecord>().Delete(payeeId); }
  bool DeletePayment(std::int64_t paymentId) { return Of<PaymentRecord>().Delete(paymentId); }
  // The first text that its column cannot hold, as words for a person; nullopt when all fit.
  // ledger.References().TooLong("tblBank", {{"Bank", name}, {"Web", web}})
  [[nodiscard]] std::optional<TextProblem> TooLong(std::string_view table,
                                                   std::initializer_list<NewText> texts);
  void MergePayees(std::int64_t sourceId, std::int64_t targetId);

 private:
  LedgerCore& core_;
};

}  // namespace corvanta::inline ledger
