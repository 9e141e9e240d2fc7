#pragma once

#include "exchange/import/FileImport.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/IcuLocale.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "support/LedgerProblems.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace corvanta {

using Texts = std::vector<std::string>;

// A ledger without accounts, in which every import must leave things consistent.
class ExchangeTest : public testing::Test {
 protected:
  static constexpr int kPounds = 17;
  static constexpr int kEuros = 43;

  // Syncing memory costs nothing.
  static void SetUpTestSuite() {
    if (::access("/dev/shm", W_OK) == 0) ::setenv("TMPDIR", "/dev/shm", 1);
  }
  static void TearDownTestSuite() { ::unsetenv("TMPDIR"); }

  void TearDown() override { EXPECT_EQ(LedgerProblems(Db()), Texts{}); }

  Connection& Db() { return store_.Db(); }
  TestPlatform& Machine() { return store_.platform; }
  clsCorvanta& Ledger() { return ledger_; }

  std::int64_t AddAccount(const std::string& name, const std::string& number = {},
                          int currency = kPounds, bool closed = false) {
    AccountRecord account;
    account.account = name;
    account.accountNo = number;
    account.accountTypeId = 1;
    account.currencyId = currency;
    account.closed = closed;
    return ledger_.Accounts().SaveAccount(account);
  }

  std::string Write(const std::string& name, const std::string& content) {
    return Machine().folder.Write(name, content);
  }

  // Everything that follows is read and written as in that country.
  void UseLocale(const std::string& name) {
    locale_ = std::make_unique<IcuLocale>(name);
    const Platform& usual = Machine().Get();
    platform_ = std::make_unique<Platform>(
        Platform{usual.registry, *locale_, usual.clock, usual.machine, usual.files, usual.prompts,
                 usual.progress, usual.download, usual.opener, usual.spreadsheet,
                 usual.profileFolder, usual.dataFolder});
  }
  Platform& Here() { return platform_ ? *platform_ : Machine().Get(); }

  ImportSummary Run(ImportJob job) { return FileImport(ledger_, Here()).Run(job); }
  ImportSummary Import(const std::string& text, const std::string& name = "file.qif",
                       std::int64_t account = 0) {
    job_.path = Write(name, text);
    if (account != 0) job_.accountId = account;
    return Run(job_);
  }
  // A bank section of QIF for an account of its own, which is made.
  ImportSummary ImportBank(const std::string& records) {
    return Import("!Account\nNMine\n^\n!Type:Bank\n" + records);
  }

  // The whole rows of an account by key: "2020-02-13|Shop|Food:Out|-12.5|101|memo", and after each
  // its lines: "  Food|-10|memo".
  Texts Rows(const std::string& account) {
    Texts rows = Read(account, "AllocatedItem = 0");
    return rows;
  }
  Texts Amounts(const std::string& account) {
    Texts amounts;
    Recordset rows = Db().OpenRecordset(
        "Select T.[Amount] from tblTransactions T INNER JOIN tblAccounts A ON T.AccountID = "
        "A.AccountID Where A.Account = " +
        SqlText(account) + " AND T.AllocatedItem = 0 Order by T.TransactionID");
    for (; !rows.Eof(); rows.MoveNext()) amounts.push_back(SqlNumber(rows.Double(0)));
    return amounts;
  }
  Texts Dates(const std::string& account) {
    Texts dates;
    for (const std::string& row : Rows(account)) {
      if (row.front() != ' ') dates.push_back(row.substr(0, 10));
    }
    return dates;
  }
  Texts Problems(const ImportSummary& summary) {
    Texts texts;
    for (const ImportProblem& problem : summary.problems) {
      texts.push_back(std::to_string(problem.line) + ": " + problem.text);
    }
    return texts;
  }
  std::int64_t Count(const std::string& rows) {
    return Db().QueryValue("SELECT COUNT(*) FROM " + rows).Int();
  }
  Texts AccountNames() {
    Texts names;
    Recordset rows = Db().OpenRecordset("Select Account from tblAccounts Order by AccountID");
    for (; !rows.Eof(); rows.MoveNext()) names.emplace_back(rows.Text(0));
    return names;
  }

  TemporaryStore store_{StoreContent::Default};
  clsCorvanta ledger_{store_.Db(), store_.platform.Get()};
  ImportJob job_{{}, 0, false, DuplicateAnswer::Skip, true, {}, {}, {}};

 private:
  std::unique_ptr<IcuLocale> locale_;
  std::unique_ptr<Platform> platform_;

  struct Found {
    std::int64_t key = 0;
    std::string category;
    std::string amount;
    std::string memo;
    std::string whole;
  };

  std::vector<Found> ReadRows(const std::string& condition) {
    std::vector<Found> found;
    Recordset rows = Db().OpenRecordset(
        "Select T.*, T.Description AS Memo, P.Payee, C.Category, C.SubCategory from "
        "((tblTransactions T INNER JOIN "
        "tblAccounts A ON T.AccountID = A.AccountID) INNER JOIN tblPayees P ON T.PayeeID = "
        "P.PayeeID) INNER JOIN tblCategory C ON T.CategoryID = C.CategoryID Where " +
        condition + " Order by T.TransactionID");
    for (; !rows.Eof(); rows.MoveNext()) {
      Found row;
      row.key = rows.Int("TransactionID");
      row.category = rows.Text("Category");
      if (!rows.Text("SubCategory").empty()) row.category += ":" + rows.Text("SubCategory");
      row.amount = SqlNumber(rows.Double("Amount"));
      row.memo = rows.Text("Memo");
      row.whole = rows.Text("Date") + "|" + rows.Text("Payee") + "|" + row.category + "|" +
                  row.amount + "|" + rows.Text("Reference") + "|" + row.memo;
      found.push_back(std::move(row));
    }
    return found;
  }

  Texts Read(const std::string& account, const std::string& condition) {
    Texts texts;
    for (const Found& row : ReadRows("A.Account = " + SqlText(account) + " AND T." + condition)) {
      texts.push_back(row.whole);
      for (const Found& line : ReadRows("T.AllocatedItem = " + SqlNumber(row.key))) {
        texts.push_back("  " + line.category + "|" + line.amount + "|" + line.memo);
      }
    }
    return texts;
  }
};

}  // namespace corvanta
