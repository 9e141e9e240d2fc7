#include "ledger/clsCorvanta.h"

#include "ledger/LedgerCore.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/investments/PriceBook.h"
#include "ledger/investments/RateBook.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/transactions/BulkEditor.h"
#include "ledger/transactions/KeywordBook.h"
#include "ledger/transactions/StatusBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionPaste.h"
#include "ledger/transactions/TransferLinking.h"
#include "store/sql/UndoLog.h"

namespace corvanta::inline ledger {

struct clsCorvanta::Topics {
  Topics(Connection& connection, Platform& platform, clsCorvanta& ledger)
      : core(connection, platform),
        transactions(core, ledger),
        bulkEdits(core),
        copies(core, ledger),
        statuses(core),
        transfers(core, ledger),
        schedules(core, ledger),
        notes(core),
        balances(core),
        accounts(core, ledger),
        investments(core, ledger),
        prices(core),
        rates(core),
        categories(core),
        references(core) {}

  LedgerCore core;
  TransactionBook transactions;
  BulkEditor bulkEdits;
  TransactionPaste copies;
  StatusBook statuses;
  TransferLinking transfers;
  ScheduleBook schedules;
  KeywordBook notes;
  BalanceBook balances;
  AccountBook accounts;
  InvestmentBook investments;
  PriceBook prices;
  RateBook rates;
  CategoryBook categories;
  ReferenceBook references;
};

clsCorvanta::clsCorvanta(Connection& connection, Platform& platform)
    : topics_(std::make_unique<Topics>(connection, platform, *this)) {}
clsCorvanta::~clsCorvanta() = default;

Connection& clsCorvanta::Store() {
  return topics_->core.store;
}
UndoLog& clsCorvanta::Undo() {
  return topics_->core.undo;
}
TransactionBook& clsCorvanta::Transactions() {
  return topics_->transactions;
}
BulkEditor& clsCorvanta::BulkEdits() {
  return topics_->bulkEdits;
}
TransactionPaste& clsCorvanta::Copies() {
  return topics_->copies;
}
StatusBook& clsCorvanta::Statuses() {
  return topics_->statuses;
}
TransferLinking& clsCorvanta::Transfers() {
  return topics_->transfers;
}
ScheduleBook& clsCorvanta::Schedules() {
  return topics_->schedules;
}
KeywordBook& clsCorvanta::Notes() {
  return topics_->notes;
}
BalanceBook& clsCorvanta::Balances() {
  return topics_->balances;
}
AccountBook& clsCorvanta::Accounts() {
  return topics_->accounts;
}
InvestmentBook& clsCorvanta::Investments() {
  return topics_->investments;
}
PriceBook& clsCorvanta::Prices() {
  return topics_->prices;
}
RateBook& clsCorvanta::Rates() {
  return topics_->rates;
}
CategoryBook& clsCorvanta::Categories() {
  return topics_->categories;
}
ReferenceBook& clsCorvanta::References() {
  return topics_->references;
}

}  // namespace corvanta::inline ledger
