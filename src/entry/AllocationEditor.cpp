#include "entry/AllocationEditor.h"

#include "entry/EntryRules.h"
#include "ledger/CategoryBook.h"
#include "ledger/Money.h"
#include "ledger/ScheduleBook.h"
#include "ledger/ScheduleRecord.h"
#include "ledger/TransactionBook.h"
#include "ledger/TransactionRecord.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reference/Rules.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

#include <utility>

namespace corvanta {
namespace {

template <typename Row>
AllocationForm FormOf(const Row& row, std::int64_t key) {
  return {key, row.category, row.subCategory, row.amount, row.description, row.reference};
}

template <typename Record>
void Fill(Record& record, const AllocationForm& line, std::int64_t categoryId,
          const std::string& currency) {
  record.categoryId = categoryId;
  record.amount = RoundChanged(line.amount.value_or(0), record.amount, currency);
  record.description = line.description;
  record.reference = line.reference;
}

// Of a category that a share brings with it.
int KindOf(const AllocationForm& line) {
  return line.amount.value_or(0) > 0 ? 1 : -1;
}

}  // namespace

AllocationEditor::AllocationEditor(clsCorvanta& ledger, Platform& platform, AllocationParent parent)
    : ledger_(ledger), platform_(platform), parent_(std::move(parent)) {}

std::string AllocationEditor::AmountHeading() const {
  return "Amount (" + parent_.currency + ")";
}

std::vector<AllocationForm> AllocationEditor::Lines() {
  std::vector<AllocationForm> lines;
  if (IsSchedule()) {
    for (const auto& row : ledger_.Schedules().ScheduleLines(parent_.key)) {
      lines.push_back(FormOf(row, row.scheduleId));
    }
  } else {
    for (const auto& row : ledger_.Transactions().SplitLines(parent_.key)) {
      lines.push_back(FormOf(row, row.transactionId));
    }
  }
  return lines;
}

std::string AllocationEditor::CategoryText(const AllocationForm& line) {
  return CategoryPath(line.category, line.subCategory);
}

double AllocationEditor::Settled(double amount) const {
  return RoundToCurrency(amount, parent_.currency) == 0 ? 0 : RoundMoney(amount);
}

double AllocationEditor::Remaining() {
  const double shares =
      ledger_.Store()
          .QueryValue("Select SUM(Amount) as AAmount from " +
                      std::string(IsSchedule() ? "tblSchedule" : "tblTransactions") +
                      " Where AllocatedItem = " + SqlNumber(parent_.key))
          .Double();
  return Settled(Total() - shares);
}

AllocationForm AllocationEditor::New() {
  AllocationForm line;
  line.amount = Remaining();
  return line;
}

std::optional<Warning> AllocationEditor::Check(const AllocationForm& line) {
  if (auto warning = CheckCategoryOf(ledger_, line, true)) return warning;
  if (line.amount.value_or(0) == 0) {
    return Warning{kSaveWarning, kInvalidShare, "txtAmount"};
  }
  if (auto warning = CheckSize(line.amount, kInvalidShare)) return warning;
  if (auto warning = TextTooLong(ledger_, IsSchedule() ? "tblSchedule" : "tblTransactions",
                                 {{"Reference", Trim(line.reference), "txtReference"},
                                  {"Description", Trim(line.description), "txtDescription"}})) {
    return warning;
  }
  if (!IsSchedule() && ledger_.Transactions().ReachesClosedAccount({{parent_.key}})) {
    return Warning{"Amend Item", kAccountClosed, {}};
  }
  return std::nullopt;
}

bool AllocationEditor::AgreeToCategory(const AllocationForm& line) {
  const CategoryName name = CategoryOf(ledger_, line.category, line.subCategory);
  return corvanta::AgreeToCategory(ledger_, platform_.prompts, name.category, name.subCategory,
                                   KindOf(line));
}

std::int64_t AllocationEditor::Write(AllocationForm line) {
  for (std::string* text :
       {&line.category, &line.subCategory, &line.description, &line.reference}) {
    TrimText(*text);
  }
  TakeCategoryPath(ledger_, line);
  const UndoLog::Step step = ledger_.Undo().Begin("Allocate Item");
  Transaction all = ledger_.Store().Begin();
  const std::int64_t category =
      ledger_.Categories().FindOrCreateCategory(line.category, line.subCategory, KindOf(line));
  const std::int64_t key =
      IsSchedule() ? WriteScheduleLine(line, category) : WriteLine(line, category);
  // Not the new category alone, when the parent is gone.
  if (key != 0) all.Commit();
  return key;
}

std::int64_t AllocationEditor::WriteLine(const AllocationForm& line, std::int64_t categoryId) {
  TransactionRecord record;
  if (const auto stored = ledger_.Transactions().ReadTransaction(line.key)) record = *stored;
  record.allocatedItem = parent_.key;
  Fill(record, line, categoryId, parent_.currency);
  return ledger_.Transactions().SaveTransaction(record);
}

std::int64_t AllocationEditor::WriteScheduleLine(const AllocationForm& line,
                                                 std::int64_t categoryId) {
  ScheduleRecord record;
  if (const auto stored = ledger_.Schedules().ReadSchedule(line.key)) record = *stored;
  record.allocatedItem = parent_.key;
  Fill(record, line, categoryId, parent_.currency);
  return ledger_.Schedules().SaveSchedule(record);
}

void AllocationEditor::Delete(std::int64_t key) {
  const UndoLog::Step step = ledger_.Undo().Begin("Delete Allocated Item");
  Transaction all = ledger_.Store().Begin();
  if (IsSchedule()) {
    ledger_.Schedules().DeleteSchedule(key, false);
  } else {
    ledger_.Transactions().DeleteTransaction(key);
  }
  if (Lines().empty()) RestoreTotal();
  all.Commit();
}

// The last share to go would leave its own amount behind as the parent's.
void AllocationEditor::RestoreTotal() {
  if (IsSchedule()) {
    const auto row = ledger_.Schedules().ReadSchedule(parent_.key);
    if (!row) return;
    ScheduleRecord record = *row;
    record.amount = Total();
    ledger_.Schedules().SaveSchedule(record);
    return;
  }
  const auto row = ledger_.Transactions().ReadTransaction(parent_.key);
  if (!row) return;
  TransactionRecord record = *row;
  record.amount = Total();
  ledger_.Transactions().SaveTransaction(record);
}

bool AllocationEditor::AgreeToRemaining(double remaining) {
  if (remaining == 0) return true;
  // Whoever presses Enter does not mean to make an income of an expense.
  const bool turnsRound = Settled(Total() - remaining) * Total() < 0;
  return platform_.prompts.Ask(
      "Exit Allocate Items?",
      "Allocated items do not match total amount. Do you want to update the total amount?",
      turnsRound ? Icon::Warning : Icon::Question);
}

}  // namespace corvanta
