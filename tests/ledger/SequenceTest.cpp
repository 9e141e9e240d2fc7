// Random sequences of operations, after each of which the file must be what a model says.
#include "ledger/LedgerModel.h"
#include "ledger/RecordsTest.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/BulkChange.h"
#include "ledger/transactions/BulkEditor.h"
#include "ledger/transactions/KeywordBook.h"
#include "ledger/transactions/StatusBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionPaste.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransactionStatus.h"
#include "store/sql/StoreError.h"
#include "store/sql/UndoLog.h"

#include <cmath>
#include <cstdlib>
#include <random>

namespace corvanta {
namespace {

using Key = std::int64_t;

constexpr int kOperations = 700;
constexpr std::size_t kManyRows = 60;

std::int64_t Cents(double amount) {
  return std::llround(amount * 100);
}

class Sequence : public RecordsTest, public testing::WithParamInterface<unsigned> {
 protected:
  Sequence() : random_(GetParam()) {
    accounts_ = {bank_, savings_, euros_};
    for (const char* name : {"O'Neil", "[50%]", "Zoë 🎉"}) {
      payees_.push_back(ledger_.References().FindOrCreatePayee(name));
      keywords_.push_back(ledger_.Notes().FindOrCreateKeyword(name));
    }
    ledger_.Undo().Start();
    ledger_.Undo().OnChange([this] { isNewStep_ = true; });
  }

  int Below(std::size_t bound) {
    return static_cast<int>(std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_));
  }
  template <typename T>
  T Pick(const std::vector<T>& from) {
    return from[static_cast<std::size_t>(Below(from.size()))];
  }
  Key PickRow() {
    std::vector<Key> keys;
    for (const auto& [key, row] : model_.rows) keys.push_back(key);
    return Pick(keys);
  }
  std::int64_t PickCents() { return (Below(2) == 0 ? 1 : -1) * (1 + Below(99999)); }

  ModelRow PickValues() {
    ModelRow row;
    row.account = Pick(accounts_);
    row.payee = Pick(payees_);
    row.category = category_;
    row.cents = PickCents();
    row.day = Date::FromYmd(2026, 1, 1)->Serial() + Below(300);
    const StatusFlags flags = FlagsOf(static_cast<TransactionStatus>(Below(3)));
    row.chk = flags.bankChk;
    row.rec = flags.bankRec;
    return row;
  }

  TransactionRecord ToRecord(Key key, const ModelRow& row) {
    TransactionRecord record;
    record.transactionId = key;
    record.accountId = row.account;
    record.payeeId = row.payee;
    record.categoryId = row.category;
    record.paymentId = payment_;
    record.amount = static_cast<double>(row.cents) / 100;
    record.date = Date::FromSerial(row.day);
    record.status = {row.chk, row.rec};
    record.transferId = row.twin;
    record.allocatedItem = row.parent;
    return record;
  }

  // Writes it to both.
  Key Save(Key key, const ModelRow& row) {
    TransactionRecord record = ToRecord(key, row);
    const Key saved = ledger_.Transactions().SaveTransaction(record);
    EXPECT_NE(saved, 0);
    model_.Save(saved, row);
    return saved;
  }

  void SaveNew() { Save(0, PickValues()); }

  void SaveAgain() {
    const Key key = PickRow();
    const ModelRow old = model_.rows.at(key);
    ModelRow row = PickValues();
    row.parent = old.parent;
    if (old.twin != 0 && Below(3) != 0) {
      row.twin = old.twin;
      row.account = old.account;
      row.cents = old.cents > 0 ? std::abs(row.cents) : -std::abs(row.cents);
    }
    Save(key, row);
  }

  void SaveTransfer() {
    ModelRow from = PickValues();
    ModelRow to = from;
    from.cents = -std::abs(from.cents);
    to.cents = -from.cents;
    while (to.account == from.account) to.account = Pick(accounts_);
    // One half may stand there already, as an ordinary row, a split or half of another transfer.
    const std::vector<Key> whole = model_.WholeRows();
    const Key old = !whole.empty() && Below(2) == 0 ? Pick(whole) : 0;
    TransactionRecord first = ToRecord(old, from);
    TransactionRecord second = ToRecord(0, to);
    ledger_.Transactions().SaveTransfer(first, second);
    model_.SaveTransfer(first.transactionId, from, second.transactionId, to);
  }

  void AddLine() {
    const Key parent = Pick(model_.WholeRows());
    if (model_.rows.at(parent).twin != 0) return;
    ModelRow line = PickValues();
    line.parent = parent;
    Save(0, line);
  }

  void Delete() {
    const Key key = PickRow();
    ledger_.Transactions().DeleteTransaction(key);
    model_.Delete(key);
  }

  void BulkEdit() {
    const Key key = PickRow();
    BulkChange change;
    if (Below(2) == 0) change.accountId = Pick(accounts_);
    if (Below(2) == 0) change.type = TypeChange::Reverse;
    ledger_.BulkEdits().BulkEdit(key, change);
    if (change.accountId != 0) model_.Move(key, change.accountId);
    if (change.type == TypeChange::Reverse) model_.Reverse(key);
  }

  void ChangeStatus() {
    const Key key = PickRow();
    const int command = Below(3);
    ledger_.Statuses().ApplyStatus(static_cast<StatusCommand>(command), std::vector{key}, false);
    const StatusFlags flags = FlagsOf(static_cast<TransactionStatus>(command));
    model_.SetStatus(key, flags.bankChk, flags.bankRec);
  }

  void Paste() {
    const Key source = PickRow();
    const Key account = Pick(accounts_);
    const ModelRow row = model_.rows.at(source);
    const bool asPair = row.twin != 0 && model_.rows.at(row.twin).account != account;
    const Key copy = ledger_.Copies().PasteTransaction(source, account);
    std::vector<Key> lines;
    for (const auto& line : ledger_.Transactions().SplitLines(copy))
      lines.push_back(line.transactionId);
    model_.Paste(source, account, copy, lines, asPair ? Column("TransferID", copy) : 0);
  }

  void LinkOrAttach() {
    const Key key = PickRow();
    const Key keyword = Pick(keywords_);
    if (Below(2) == 0) {
      AttachmentRecord file{0, key, "f", "p", "s"};
      ledger_.Notes().Files().AddRow(file);
      model_.files.insert(key);
      return;
    }
    ledger_.Notes().LinkKeyword(keyword, key);
    if (!model_.links.contains({keyword, key})) model_.links.emplace(keyword, key);
  }

  void Merge() {
    const Key source = Pick(payees_);
    const Key target = Pick(payees_);
    ledger_.References().MergePayees(source, target);
    model_.MergePayees(source, target);
  }

  // The account comes back empty under another key, and stays where only undoing can reach it.
  void DeleteAccount() {
    if (Below(8) != 0) return;
    const UndoLog::Step step = ledger_.Undo().Begin("Replace Account");
    Key& account = accounts_[static_cast<std::size_t>(Below(accounts_.size()))];
    ledger_.Accounts().DeleteAccount(account);
    model_.DeleteAccount(account);
    account = AddAccount("Another", 0, kPounds);
  }

  void Fail() {
    TransactionRecord record = ToRecord(PickRow(), PickValues());
    record.description = std::string(300, 'x');
    EXPECT_THROW(ledger_.Transactions().SaveTransaction(record), StoreError);
  }

  struct State {
    LedgerModel model;
    std::vector<Key> accounts;
  };

  void GoBack(std::vector<State>& from, std::vector<State>& to) {
    if (from.empty()) return;
    to.push_back({model_, accounts_});
    model_ = from.back().model;
    accounts_ = from.back().accounts;
    from.pop_back();
  }

  void Change() {
    const State before{model_, accounts_};
    isNewStep_ = false;
    const int choice = Below(model_.rows.size() > kManyRows ? 20 : 14);
    if (model_.rows.empty() || choice < 2) {
      SaveNew();
    } else {
      static constexpr void (Sequence::*kChanges[])() = {
          &Sequence::SaveAgain, &Sequence::SaveTransfer, &Sequence::AddLine,
          &Sequence::AddLine,   &Sequence::BulkEdit,     &Sequence::ChangeStatus,
          &Sequence::Paste,     &Sequence::LinkOrAttach, &Sequence::Merge,
          &Sequence::Fail,      &Sequence::DeleteAccount};
      const auto index = static_cast<std::size_t>(choice - 2);
      index < std::size(kChanges) ? (this->*kChanges[index])() : Delete();
    }
    if (!isNewStep_) return;
    undo_.push_back(before);
    redo_.clear();
  }

  void Operate() {
    switch (Below(6)) {
      case 0:
        ledger_.Undo().Undo();
        GoBack(undo_, redo_);
        break;
      case 1:
        ledger_.Undo().Redo();
        GoBack(redo_, undo_);
        break;
      default:
        Change();
    }
  }

  LedgerModel Read() {
    LedgerModel read;
    Recordset rows = Db().OpenRecordset("tblTransactions");
    for (; !rows.Eof(); rows.MoveNext()) {
      read.rows[rows.Int("TransactionID")] = {rows.Int("AccountID"),
                                              rows.Int("PayeeID"),
                                              rows.Int("CategoryID"),
                                              Cents(rows.Double("Amount")),
                                              Date::FromIso(rows.Text("Date"))->Serial(),
                                              static_cast<int>(rows.Int("BankChk")),
                                              static_cast<int>(rows.Int("BankRec")),
                                              rows.Int("TransferID"),
                                              rows.Int("AllocatedItem")};
    }
    Recordset links = Db().OpenRecordset("tblKeywordLink");
    for (; !links.Eof(); links.MoveNext()) {
      read.links.emplace(links.Int("KeywordID"), links.Int("TransactionID"));
    }
    Recordset files = Db().OpenRecordset("tblAttachments");
    for (; !files.Eof(); files.MoveNext()) read.files.insert(files.Int("TransactionID"));
    return read;
  }

  void CheckInvariants(const LedgerModel& file) {
    for (const auto& [key, row] : file.rows) {
      if (row.twin != 0) {
        EXPECT_EQ(file.rows.at(row.twin).twin, key);
      }
      if (row.parent == 0) continue;
      const ModelRow& parent = file.rows.at(row.parent);
      EXPECT_EQ(parent.parent, 0);
      EXPECT_EQ(row.day, parent.day);
      EXPECT_EQ(row.account, parent.account);
      EXPECT_EQ(std::pair(row.chk, row.rec), std::pair(parent.chk, parent.rec));
    }
    for (const AccountRow& account : ledger_.Accounts().Accounts({}, true)) {
      EXPECT_EQ(Cents(account.balance),
                Cents(account.openingBalance) + file.Sum(account.accountId));
    }
  }

  std::mt19937 random_;
  LedgerModel model_;
  std::vector<Key> accounts_;
  std::vector<Key> payees_;
  std::vector<Key> keywords_;
  std::vector<State> undo_;
  std::vector<State> redo_;
  bool isNewStep_ = false;
};

TEST_P(Sequence, KeepsEveryStructureWhole) {
  for (int i = 0; i < kOperations && !HasFailure(); ++i) {
    SCOPED_TRACE("operation " + std::to_string(i));
    Operate();
    const LedgerModel file = Read();
    EXPECT_EQ(file.rows, model_.rows);
    EXPECT_EQ(file.links, model_.links);
    EXPECT_EQ(file.files, model_.files);
    EXPECT_EQ(ledger_.Undo().CanUndo(), !undo_.empty());
    EXPECT_EQ(ledger_.Undo().CanRedo(), !redo_.empty());
    CheckInvariants(file);
    EXPECT_EQ(LedgerProblems(Db()), std::vector<std::string>{});
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Sequence, testing::Values(1U, 2U, 3U));

}  // namespace
}  // namespace corvanta
