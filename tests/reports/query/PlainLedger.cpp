#include "reports/query/PlainLedger.h"

#include "store/sql/SqlText.h"

#include <algorithm>

namespace corvanta {
namespace {

template <typename List, typename Key>
const auto& Of(const List& list, Key key) {
  return *std::ranges::find(list, key, [](const auto& each) { return each.id; });
}

std::string CurrencyKey(Connection& store, const std::string& code) {
  return SqlNumber(
      store.QueryValue("Select CurrencyID from tblCurrency WHERE Currency = " + SqlText(code))
          .Int());
}

void WriteNames(const PlainLedger& ledger, Connection& store) {
  for (const auto& each : ledger.accounts) {
    store.Execute(
        "INSERT INTO tblAccounts (AccountID,[Account],AccountTypeID,BankID,OpeningBalance,"
        "CurrencyId,CloseAccount) VALUES (" +
        SqlNumber(each.id) + "," + SqlText(each.name) + ",1,0," + SqlNumber(each.opening) + "," +
        CurrencyKey(store, each.currency) + (each.closed ? ",1)" : ",0)"));
  }
  for (const auto& each : ledger.categories) {
    store.Execute(
        "INSERT INTO tblCategory (CategoryID,Category,SubCategory,Budget,PeriodID,[Type]) VALUES "
        "(" +
        SqlNumber(each.id) + "," + SqlText(each.name) + "," + SqlText(each.sub) + "," +
        SqlNumber(each.budget) + "," + std::to_string(each.periodId) + "," +
        std::to_string(each.type) + ")");
  }
  for (const auto& each : ledger.payees) {
    const std::string id = SqlNumber(each.id);
    store.Execute("INSERT INTO tblPayees (PayeeID,Payee,[Symbol],CurrencyID,Investment) VALUES (" +
                  id + "," + SqlText(each.name) + "," + SqlText(each.symbol) + "," +
                  (each.isInvestment ? CurrencyKey(store, each.currency) + ",1)" : "0,0)"));
    if (each.price == 0) continue;
    for (const auto& [day, price] : std::map<Date, double>{
             {*Date::FromIso("2020-01-01"), each.oldPrice}, {each.priceDay, each.price}}) {
      store.Execute("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (" + id + "," +
                    SqlDate(day) + "," + SqlNumber(price) + ")");
    }
  }
  for (const auto& [id, name] : ledger.payments) {
    store.Execute("INSERT INTO tblPayments (PaymentID,[Payment]) VALUES (" + SqlNumber(id) + "," +
                  SqlText(name) + ")");
  }
}

}  // namespace

const PlainLedger::Account& PlainLedger::AccountOf(const Row& row) const {
  return Of(accounts, row.account);
}
const PlainLedger::Category& PlainLedger::CategoryOf(const Row& row) const {
  return Of(categories, row.category);
}
const PlainLedger::Payee& PlainLedger::PayeeOf(const Row& row) const {
  return Of(payees, row.payee);
}

void WriteLedger(const PlainLedger& ledger, Connection& store) {
  Transaction all = store.Begin();
  for (const char* table : {"tblAccounts", "tblCategory", "tblPayees", "tblPayments",
                            "tblTransactions", "tblSchedule"}) {
    store.Execute(std::string("DELETE FROM ") + table);
  }
  WriteNames(ledger, store);
  for (const auto& each : ledger.schedules) {
    store.Execute(
        "INSERT INTO tblSchedule (ScheduleID,AccountID,TfrAccountID,CategoryID,PaymentID,PayeeID,"
        "PeriodID,[Amount],DateFrom,NoTimes,AllocatedItem) VALUES (" +
        SqlNumber(each.id) + "," + SqlNumber(each.account) + "," + SqlNumber(each.transferAccount) +
        ",15,1,22," +
        (each.days == 0   ? "6"
         : each.days == 7 ? "3"
                          : "4") +
        "," + SqlNumber(each.amount) + "," + SqlDate(each.from) + "," + std::to_string(each.times) +
        ",0)");
  }
  for (const auto& row : ledger.rows) {
    std::string values;
    for (const std::int64_t key :
         {row.id, row.account, row.category, row.payment, row.payee, row.transfer, row.parent,
          std::int64_t{row.chk}, std::int64_t{row.rec}, row.action}) {
      values += SqlNumber(key) + ",";
    }
    for (const double number : {row.amount, row.shares, row.price, row.dividend, row.commission}) {
      values += SqlNumber(number) + ",";
    }
    store.Execute(
        "INSERT INTO tblTransactions (TransactionID,AccountID,CategoryID,PaymentID,PayeeID,"
        "TransferID,AllocatedItem,BankChk,BankRec,[Action],[Amount],Shares,Price,Dividend,"
        "Commission,[Date],Description,BankSch) VALUES (" +
        values + SqlDate(row.day) + "," + SqlText(row.description) + "," + SqlNumber(row.schedule) +
        ")");
    if (row.schedule != 0) {
      store.Execute("UPDATE tblTransactions SET ScheduleDate = " + SqlDate(row.scheduleDay) +
                    " WHERE TransactionID = " + SqlNumber(row.id));
    }
    for (const std::int64_t keyword : row.keywords) {
      store.Execute("INSERT INTO tblKeywordLink (KeywordID,TransactionID) VALUES (" +
                    SqlNumber(keyword) + "," + SqlNumber(row.id) + ")");
    }
  }
  all.Commit();
}

}  // namespace corvanta
