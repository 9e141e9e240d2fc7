#pragma once

#include "ledger/BulkChange.h"
#include "ledger/InvestmentRecord.h"
#include "ledger/ReferenceRecords.h"
#include "ledger/ScheduleRecord.h"
#include "ledger/TransactionRecord.h"
#include "ledger/TransactionStatus.h"
#include "platform/Date.h"
#include "store/sql/UndoLog.h"
#include "store/sql/Value.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvanta {

class Connection;
class Progress;
class Prompts;
struct PeriodTotals;
struct PlanChange;
struct Platform;
struct RowLinks;
struct SchedulePlan;

// Which statuses a view shows; none chosen shows all, as all chosen does.
struct StatusFilter {
  bool uncleared = true;
  bool cleared = true;
  bool reconciled = true;

  bool operator==(const StatusFilter&) const = default;
  // The filter's condition with "AND " behind it, such as "BankRec = 1 AND ".
  [[nodiscard]] std::string Clause() const;
};

struct Period {
  Date from;
  Date to;  // inclusive

  bool operator==(const Period&) const = default;
};

// What an account's rows come to, as far as they are counted; in the account's currency.
struct EntrySums {
  std::int64_t count = 0;
  double total = 0;
  double paidIn = 0;
  double paidOut = 0;  // negative or 0
};

// An account as the account tree and the account list show it.
struct AccountRow {
  std::int64_t accountId = 0;
  std::string account;
  std::string accountNo;
  std::int64_t accountTypeId = 0;
  std::string accountType;  // the group's name
  std::int64_t currencyId = 0;
  std::string currency;  // the code; empty for an unknown currency
  std::string bank;
  std::string description;
  double openingBalance = 0;  // in the account's currency, as balance
  double balance = 0;
  EntrySums sums;  // of the rows that the balance counts
  bool closed = false;
};

// What the account tree counts.
struct TreeOptions {
  StatusFilter filter;
  bool includeClosed = true;
  std::optional<Date> end;  // rows after this day do not count
  bool valuation = false;   // adds the value of the investments held
};

// A line of the register.
struct RegisterRow {
  std::int64_t transactionId = 0;
  Date date;
  std::string payee;     // of a transfer: the other account
  std::string category;  // "Category" or "Category:SubCategory"
  std::string payment;
  std::string reference;
  std::string description;
  std::string status;  // "", "C" or "R"
  double amount = 0;   // in the account's currency, signed
  double balance = 0;  // after this row
  bool isSplit = false;
  bool isTransfer = false;
  std::int64_t scheduleId = 0;  // 0 for a row entered by hand
  bool hasAttachment = false;
  std::int64_t action = 0;  // investment action, 0 for an ordinary row
};

// What a bank statement says of a row.
struct Settlement {
  std::int64_t transactionId = 0;
  bool isTicked = false;  // the statement has it
};

// The commands of the register's pop-up menu.
enum class StatusCommand { Uncleared, Cleared, Reconciled };

// The ledger on one open data file: the one class that writes its rows.
//
// Operations throw StoreError. An operation that changes several rows of one structure changes all
// of them or none, and each is one step that can be undone, unless its caller has begun a wider
// one. Keys are 0 for none; a key that does not exist changes nothing.
class clsCorvanta {
 public:
  using Keys = std::span<const std::int64_t>;

  clsCorvanta(Connection& connection, Platform& platform);

  [[nodiscard]] Connection& Store() { return connection_; }
  // Keeps nothing until it is started.
  [[nodiscard]] UndoLog& Undo() { return undo_; }

  // --- Lists and balances

  // All accounts with their balances (opening balance plus the rows that the filter shows), by
  // group and name. Closed accounts are left out unless asked for.
  [[nodiscard]] std::vector<AccountRow> Accounts(const StatusFilter& filter, bool includeClosed);
  [[nodiscard]] std::vector<AccountRow> Accounts(const TreeOptions& options);
  // The register of one account in date order, ties by key. The running balance begins with the
  // opening balance plus the shown rows before the period.
  [[nodiscard]] std::vector<RegisterRow> Register(std::int64_t accountId,
                                                  const StatusFilter& filter,
                                                  const std::optional<Period>& period);
  // The account of that name (without regard to case) or number-sign key ("#3"); nullopt when none.
  [[nodiscard]] std::optional<AccountRow> FindAccount(const std::string& nameOrKey);
  // The figures under the register (see Balances.h).
  [[nodiscard]] PeriodTotals Totals(std::int64_t accountId, const StatusFilter& filter,
                                    const std::optional<Period>& period);
  // Whole entries of the account that no statement has confirmed, whatever a view shows.
  [[nodiscard]] std::int64_t UnclearedCount(std::int64_t accountId);
  // The sum of the shown rows up to and with that day, without the opening balance.
  [[nodiscard]] double RunningBalance(std::int64_t accountId, const StatusFilter& filter, Date day);
  // The account's balance in the tree; 0 for account 0. Only the options' filter, end and valuation
  // count.
  [[nodiscard]] double AccountBalance(std::int64_t accountId, const TreeOptions& options);
  // Units held times latest price, over the investments in the account; in the currency of prices.
  [[nodiscard]] double HoldingsValue(std::int64_t accountId);

  // --- Transactions

  [[nodiscard]] std::optional<TransactionDetails> ReadTransaction(std::int64_t transactionId);
  // The lines of a split transaction in order of their keys.
  [[nodiscard]] std::vector<TransactionDetails> SplitLines(std::int64_t transactionId);
  // Writes the row and sets its transfer and split links right; its key is put into the record and
  // returned. A twin (transferId) points back afterwards and neither half keeps split lines; a
  // former twin becomes an ordinary row. A parent's amount is the sum of its lines, whatever the
  // record says; the lines take its account, date and status. A line (allocatedItem, or a row that
  // is one) takes them from its parent and changes the parent's amount.
  std::int64_t SaveTransaction(TransactionRecord& record);
  // Writes a new row that is no transfer, with its split lines, whose sum is its amount then; the
  // lines take its account, date, status, payee and payment type. Keys are put into the records.
  // SaveTransaction does the same for one row, but looks for links that a new row cannot have.
  std::int64_t AddTransaction(TransactionRecord& record, std::span<TransactionRecord> lines);
  // Saves both halves of a transfer, linked. Either may be new; the amounts are the caller's.
  void SaveTransfer(TransactionRecord& from, TransactionRecord& to);
  // Deletes the row, its split lines and its other half, with what is linked and attached to them.
  // Of a line: its parent's amount follows.
  void DeleteTransaction(std::int64_t transactionId);
  // Whether one of the rows, or the other half of a transfer among them, is in a closed account.
  [[nodiscard]] bool ReachesClosedAccount(Keys transactionIds);
  // All of them or none, as every change of several rows here: nothing when the person asks to stop
  // on the way, or when one of them fails. False when it was stopped.
  bool DeleteTransactions(Keys transactionIds);
  // Payment type, payee and category of an investment transaction never change, nor the sign of an
  // investment transaction or a transfer. Lines follow their parent. A transfer half stays out of
  // the account that its other half is in.
  // True when the row is another one afterwards.
  bool BulkEdit(std::int64_t transactionId, const BulkChange& change);
  // Returns how many rows were changed; nullopt when the person asked to stop, and none was.
  std::optional<std::size_t> BulkEdit(Keys transactionIds, const BulkChange& change);
  // Of an ordinary row and its lines; transfers and investment transactions keep their sign.
  void ReverseSign(std::int64_t transactionId);
  // The account's latest row of that payee, and of that category unless it is 0.
  [[nodiscard]] std::optional<TransactionRecord> LastTransaction(std::int64_t accountId,
                                                                 std::int64_t payeeId,
                                                                 std::int64_t categoryId = 0);
  // Saves the entry with payment type, reference and description of its template: the account's
  // latest row of that payee and category, of an edited entry the row itself. An edited row keeps
  // its account and status. Returns the key; 0 without a template, or where it is no ordinary row.
  std::int64_t Autofill(const AutofillEntry& entry);
  // A copy in the account, with its lines, keywords and attachments; returns its key, 0 when there
  // is no such row. Of a transfer both halves are copied, where the other half's account is open
  // and another one; otherwise, as of a split line, the copy is an ordinary row.
  std::int64_t PasteTransaction(std::int64_t sourceId, std::int64_t accountId);
  // The same for several, all of them or none; returns the highest key of the copies, 0 when the
  // person asked to stop, and none was made.
  std::int64_t PasteTransactions(Keys sourceIds, std::int64_t accountId);
  // Pairs imported rows whose category names another account ("Account:Savings") with the rows of
  // that account: same day and payee, opposite sign, the same amount where the currencies are the
  // same. Returns how many pairs were made.
  int LinkImportedTransfers();

  // --- Investments

  // The investment of that name and symbol, without regard to case; a new one has the first source
  // of quotes. Returns 0 for a name of blanks.
  std::int64_t FindOrCreateInvestment(const std::string& name, const std::string& symbol,
                                      std::int64_t currencyId);
  // Writes the row with the sign and category of its action and the payment type "Import". Its key
  // is put into the record and returned; 0 when there is no such row. A transfer that the row was
  // half of ends, and its other half becomes an ordinary row.
  std::int64_t SaveInvestmentTransaction(InvestmentTransaction& record);

  // --- Status

  // Sets BankRec (where setRec) and then BankChk (where setChk) of a row and its lines to value.
  void SetStatus(std::int64_t transactionId, std::int16_t value, std::int16_t setChk,
                 std::int16_t setRec);
  [[nodiscard]] RowMarks MarksOf(std::int64_t transactionId);
  // The command on every row, as one step. `isTicked` says that the command's item is ticked:
  // "&Cleared" and "&Reconciled" then take the status back. False when the person asked to stop,
  // and nothing was changed.
  bool ApplyStatus(StatusCommand command, Keys transactionIds, bool isTicked);
  // Settles rows by a statement, as one step: a ticked row and its lines become reconciled, one
  // that is not ticked uncleared, unless it is cleared. False when the person asked `progress` to
  // stop, and nothing was settled.
  bool Settle(std::span<const Settlement> rows, Progress& progress);

  // --- Schedules (posting: SchedulePosting.h, reminders: Reminders.h)

  [[nodiscard]] std::optional<ScheduleDetails> ReadSchedule(std::int64_t scheduleId);
  // Without split lines, by next due date; finished ones last.
  [[nodiscard]] std::vector<ScheduleDetails> Schedules();
  // The lines of a split schedule in order of their keys.
  [[nodiscard]] std::vector<ScheduleDetails> ScheduleLines(std::int64_t scheduleId);
  // Writes the schedule; its key is put into the record and returned. A parent's amount is the sum
  // of its lines, whatever the record says, and the lines take what they share with it; a transfer
  // keeps no lines. A line (allocatedItem, or a row that is one) changes the parent's amount.
  // A change concerns what is still to come (see ScheduleChange.h, ScheduleForecasts.h): start and
  // number in the record are then those that were stored. 0 when there is no such schedule or
  // parent.
  std::int64_t SaveSchedule(ScheduleRecord& record);
  // The plan that saving the record would store.
  [[nodiscard]] SchedulePlan PlanAfterSaving(ScheduleRecord record);
  // See ScheduleDates().
  [[nodiscard]] std::vector<Date> DueDates(std::int64_t scheduleId, std::optional<Date> end);
  // A copy with its lines that begins behind what its source has posted, and is finished where that
  // is; returns its key, 0 when there is no such schedule.
  std::int64_t PasteSchedule(std::int64_t scheduleId);
  // With its lines. The rows posted from it are deleted too, or stay as rows entered by hand.
  void DeleteSchedule(std::int64_t scheduleId, bool withPostedRows);
  // The row is no longer the schedule's occurrence.
  void DetachFromSchedule(std::int64_t transactionId);

  // --- Keywords and attachments

  [[nodiscard]] std::vector<KeywordRecord> Keywords();
  [[nodiscard]] std::vector<KeywordRecord> KeywordsOf(std::int64_t transactionId);
  // Linking twice makes one link.
  void LinkKeyword(std::int64_t keywordId, std::int64_t transactionId);
  void UnlinkKeyword(std::int64_t keywordId, std::int64_t transactionId);
  [[nodiscard]] std::int64_t FindKeyword(const std::string& name);
  std::int64_t FindOrCreateKeyword(const std::string& name);
  std::int64_t SaveKeyword(KeywordRecord& record);
  // Also takes it from every transaction.
  void DeleteKeyword(std::int64_t keywordId);
  [[nodiscard]] std::vector<AttachmentRecord> AttachmentsOf(std::int64_t transactionId);
  std::int64_t AddAttachment(AttachmentRecord& record);
  void DeleteAttachment(std::int64_t attachmentId);
  void DeleteAttachments(std::int64_t transactionId);

  // --- Reference data: lists

  [[nodiscard]] std::vector<AccountGroupRecord> AccountGroups();
  [[nodiscard]] std::vector<BankRecord> Banks();
  [[nodiscard]] std::vector<CategoryRecord> Categories();
  [[nodiscard]] std::vector<PayeeRecord> Payees();  // without investments
  [[nodiscard]] std::vector<PaymentRecord> Payments();
  [[nodiscard]] std::vector<CurrencyRecord> Currencies();
  [[nodiscard]] std::vector<PeriodRecord> Periods();
  [[nodiscard]] std::optional<AccountRecord> ReadAccount(std::int64_t accountId);

  // --- Reference data: by name, without regard to case. Create operations return 0 for a name of
  // blanks, and throw StoreError(Constraint) for one that is too long.

  std::int64_t FindOrCreateAccountGroup(const std::string& name);
  std::int64_t FindOrCreateBank(const std::string& name);
  std::int64_t FindOrCreatePayee(const std::string& name);
  std::int64_t FindOrCreatePayment(const std::string& name);
  // A missing main category is made along with its sub-category; `type` (1 income, -1 expense) is
  // of a row that is made. A new sub-category is of its main category's type.
  std::int64_t FindOrCreateCategory(const std::string& category, const std::string& subCategory,
                                    int type);
  [[nodiscard]] std::int64_t FindCategory(const std::string& category,
                                          const std::string& subCategory);
  // A new account is in the group and currency of the record and opens with its balance.
  std::int64_t FindOrCreateAccount(const AccountRecord& account);
  // The key of another row of that name, or 0.
  [[nodiscard]] std::int64_t OtherAccount(const std::string& name, std::int64_t accountId);
  [[nodiscard]] std::int64_t OtherAccountGroup(const std::string& name, std::int64_t accountTypeId);
  [[nodiscard]] std::int64_t OtherBank(const std::string& name, std::int64_t bankId);
  [[nodiscard]] std::int64_t OtherPayee(const std::string& name, std::int64_t payeeId);
  [[nodiscard]] std::int64_t OtherPayment(const std::string& name, std::int64_t paymentId);
  [[nodiscard]] std::int64_t OtherKeyword(const std::string& name, std::int64_t keywordId);
  [[nodiscard]] std::int64_t OtherMainCategory(const std::string& name, std::int64_t categoryId);
  [[nodiscard]] std::int64_t OtherSubCategory(const std::string& category,
                                              const std::string& subCategory,
                                              std::int64_t categoryId);
  // The first text that its column cannot hold, as words for a person; nullopt when all fit.
  // ledger.TooLong("tblBank", {{"Bank", name}, {"Web", web}})
  [[nodiscard]] std::optional<TextProblem> TooLong(std::string_view table,
                                                   std::initializer_list<ColumnText> texts);

  // --- Reference data: saving. Key 0 makes a new row; the key is put into the record and returned.

  std::int64_t SaveAccount(AccountRecord& record);
  std::int64_t SaveAccountGroup(AccountGroupRecord& record);
  std::int64_t SaveBank(BankRecord& record);
  std::int64_t SaveCategory(CategoryRecord& record);
  std::int64_t SavePayee(PayeeRecord& record);
  std::int64_t SavePayment(PaymentRecord& record);
  // The main category and all its sub-categories take the new name and type.
  void RenameMainCategory(const std::string& oldName, const std::string& newName, int type);

  // --- Reference data: deleting and merging. What is in use is kept; false then.

  bool DeleteAccountGroup(std::int64_t accountTypeId);
  bool DeleteBank(std::int64_t bankId);
  bool DeletePayee(std::int64_t payeeId);
  bool DeletePayment(std::int64_t paymentId);
  // A main category together with those of its sub-categories that nothing uses.
  CategoryDeletion DeleteCategory(std::int64_t categoryId);
  void MergeCategories(std::int64_t sourceId, std::int64_t targetId);
  void MergePayees(std::int64_t sourceId, std::int64_t targetId);

  [[nodiscard]] AccountUse UseOf(std::int64_t accountId);
  // Deletes an account that nothing uses; false for any other.
  bool DeleteUnusedAccount(std::int64_t accountId);
  // The account with its transactions and schedules and what is linked and attached to them. Other
  // halves in other accounts stay as ordinary rows; schedules of other accounts that transferred
  // into it are finished, and their forecasts deleted.
  void DeleteAccount(std::int64_t accountId);
  // Asks as often as the account's use demands, deletes, and says which schedules are finished by
  // that. True when the account is gone.
  bool DeleteAccount(std::int64_t accountId, Prompts& prompts);

 private:
  struct Field {
    const char* column;
    Value value;
  };
  struct NamedRow {
    const char* table;
    const char* keyColumn;
    std::string find;
    std::string insert;
    const char* step;
  };

  [[nodiscard]] std::int64_t ReadKey(const std::string& sql, std::string_view column);
  [[nodiscard]] std::int64_t OtherKey(const std::string& sql, std::string_view keyColumn,
                                      std::int64_t key);
  std::int64_t FindOrInsert(const NamedRow& row, const std::string& name);
  std::int64_t SaveRow(const std::string& table, const std::string& keyColumn, std::int64_t key,
                       std::initializer_list<Field> fields);
  // Every row or, where one fails or the person asks to stop, none; false when it was stopped.
  bool ForEachRow(Keys keys, const std::function<void(std::int64_t)>& change);
  // `change` gets the rows from 0 to count - 1.
  bool ForEachRow(std::size_t count, Progress& progress,
                  const std::function<void(std::size_t)>& change);

  [[nodiscard]] bool CanBeTwin(std::int64_t twin, std::int64_t key);
  [[nodiscard]] bool TakeFromParent(TransactionRecord& line);
  std::int64_t WriteRow(const TransactionRecord& record);
  void RepairTransfer(std::int64_t key, std::int64_t twin);
  bool SumLines(std::int64_t parentId);
  void LinesFollow(const TransactionRecord& parent);
  void DeleteWhole(std::int64_t transactionId);
  void DeleteRows(const std::string& condition);
  void ApplyColumns(std::int64_t transactionId, const BulkChange& change);
  void ApplyType(std::int64_t transactionId, const RowLinks& row, TypeChange type);
  void FlipSign(std::int64_t transactionId, const RowLinks& row);
  void ApplyStatus(StatusCommand command, std::int64_t transactionId, bool isTicked);
  void Settle(const Settlement& row);
  void PasteTwin(std::int64_t twinId, std::int64_t copy, std::int64_t accountId);
  std::int64_t CopyRow(std::int64_t sourceId, std::int64_t accountId, std::int64_t parentId);
  std::int64_t CopySchedule(std::int64_t sourceId, std::int64_t parentId);
  void DeletePostedRows(std::int64_t scheduleId);
  bool SumScheduleLines(std::int64_t scheduleId);
  [[nodiscard]] bool TakeFromParent(ScheduleRecord& line);
  std::int64_t WriteSchedule(const ScheduleRecord& record);
  void ScheduleLinesFollow(const ScheduleRecord& parent);
  [[nodiscard]] bool SaveScheduleLine(ScheduleRecord& record);
  void SaveWholeSchedule(ScheduleRecord& record, const std::optional<ScheduleDetails>& former);
  [[nodiscard]] PlanChange ChangeOf(const ScheduleDetails& former, const ScheduleRecord& record);
  void BeginBehind(const ScheduleDetails& source, std::int64_t copy);
  [[nodiscard]] std::vector<ScheduleDetails> SchedulesInto(std::int64_t accountId);
  void FinishSchedulesInto(std::int64_t accountId);
  void DropDayRulesOf(std::int64_t accountId);
  bool DeleteOneCategory(std::int64_t categoryId);
  [[nodiscard]] std::vector<CategoryRecord> WithSubCategories(std::int64_t categoryId);
  void Merge(const std::string& column, std::int64_t sourceId, std::int64_t targetId);

  Connection& connection_;
  Platform& platform_;
  UndoLog undo_;
};

}  // namespace corvanta
