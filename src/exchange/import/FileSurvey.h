#pragma once

#include "exchange/csv/StyleFinder.h"
#include "exchange/import/ImportRecord.h"

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace corvanta::inline exchange {

// Looks through a whole file before anything of it is booked: how it writes its values, whose
// accounts it holds, and what its banks' marks are worth.
class FileSurvey : public ImportSink {
 public:
  // An account that the file gives records to.
  struct Account {
    ImportAccount account;
    std::size_t records = 0;
  };

  // `goesOn` is asked now and then; false stops the reader.
  explicit FileSurvey(std::function<bool()> goesOn = {}) : styles_(std::move(goesOn)) {}

  void OnAccount(const ImportAccount& account) override;
  void OnSecurity(const std::string&, const std::string&) override {}
  [[nodiscard]] bool OnRecord(ImportRecord& record) override;
  void OnProblem(std::size_t, const std::string&) override {}

  [[nodiscard]] const StyleFinder& Styles() const { return styles_; }
  [[nodiscard]] bool WasStopped() const { return styles_.WasStopped(); }
  // In the file's order, each once, without those that have no records.
  [[nodiscard]] const std::vector<Account>& Accounts() const { return accounts_; }
  // The same with every currency that the file gives them, and the account that it does not name.
  [[nodiscard]] const std::vector<ImportAccount>& Currencies() const { return currencies_; }
  // Whether there is a record with that mark of its bank.
  [[nodiscard]] bool HasBankId(const std::string& id) const { return bankIds_.contains(id); }
  // A mark that stands on several entries of an account tells none of them from another.
  [[nodiscard]] bool BankIdsIdentify() const { return !hasRepeatedIds_; }

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  StyleFinder styles_;
  std::vector<Account> accounts_;
  std::unordered_map<std::string, std::size_t> places_;
  std::vector<ImportAccount> currencies_;
  std::unordered_set<std::string> seen_;  // of those
  ImportAccount next_;                    // the account of the records that follow
  std::size_t current_ = kNone;
  bool hasCurrency_ = true;  // that of the account is noted, or there is none
  std::unordered_set<std::string> bankIds_;
  std::unordered_set<std::string> idsOfAccounts_;
  bool hasRepeatedIds_ = false;
};

}  // namespace corvanta::inline exchange
