#pragma once

#include "ledger/clsCorvanta.h"
#include "store/datafile/OpenDataFile.h"
#include "store/sql/Connection.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

namespace corvanta {

// A data file with the reference rows alone, and a ledger on it.
class LedgerTest : public testing::Test {
 protected:
  LedgerTest() {
    opener_.SetDataPath(machine_.folder.Path("data"));
    file_ = opener_.CreateNew(true);
    ledger_ = std::make_unique<clsCorvanta>(*file_.connection, machine_.Get());
  }

  clsCorvanta& Ledger() { return *ledger_; }
  Connection& Store() { return *file_.connection; }
  void Run(const std::string& sql) { Store().Execute(sql); }

  void AddAccount(int id, const std::string& name, int group = 1, double opening = 0,
                  int currency = 17, int closed = 0) {
    Run("INSERT INTO tblAccounts (AccountID,[Account],AccountTypeID,BankID,OpeningBalance,"
        "CurrencyId,CloseAccount) VALUES (" +
        std::to_string(id) + ",'" + name + "'," + std::to_string(group) + ",0," +
        std::to_string(opening) + "," + std::to_string(currency) + "," + std::to_string(closed) +
        ")");
  }

  // `day` as month/day/year; `more` are further assignments, such as "BankChk = 1".
  void AddTransaction(int id, int account, const std::string& day, const std::string& amount,
                      const std::string& more = {}) {
    Run("INSERT INTO tblTransactions (TransactionID,AccountID,CategoryID,PaymentID,PayeeID,"
        "[Amount],[Date]) VALUES (" +
        std::to_string(id) + "," + std::to_string(account) + ",9,1,1," + amount + ",#" + day +
        "#)");
    if (!more.empty()) {
      Run("UPDATE tblTransactions SET " + more + " WHERE TransactionID = " + std::to_string(id));
    }
  }

  TestPlatform machine_;
  DataFileOpener opener_{machine_.Get(), "a test"};
  DataFile file_;
  std::unique_ptr<clsCorvanta> ledger_;
};

}  // namespace corvanta
