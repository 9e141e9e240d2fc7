#include "entry/AllocationEditor.h"

#include "entry/EntryRules.h"
#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/CategoryPath.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

#include <utility>

namespace corvanta::inline entry {
namespace {

template <typename Row>
AllocationForm FormOf(const Row& row, std::int64_t key) {
  AllocationForm form;
  FillForm(row, false, form);
  form.key = key;
  form.amount = row.amount;
  return form;
}

constexpr const char* kInvalidAmount = "Please enter a valid value for Amount";

constexpr EntryRule kRules[] = {
    kCategoryNeeded,
    kCategoryFits,
    kSubCategoryFits,
    {HasNoAmount, kInvalidAmount, "txtAmount"},
    {HasTooMuch, kInvalidAmount, "txtAmount"},
};

// Of a category that a line brings with it.
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
  const double sum = ledger_.Store()
                         .QueryValue("Select SUM(Amount) as AAmount from " + std::string(Table()) +
                                     " Where AllocatedItem = " + SqlNumber(parent_.key))
                         .Double();
  return Settled(Total() - sum);
}

AllocationForm AllocationEditor::New() {
  AllocationForm line;
  line.amount = Remaining();
  return line;
}

std::optional<Warning> AllocationEditor::Check(AllocationForm line) {
  Settle(ledger_, line);
  if (auto warning = FirstBroken(kRules, line)) return warning;
  if (auto warning = CheckTexts(ledger_, Table(), line)) return warning;
  if (!IsSchedule() && ledger_.Transactions().ReachesClosedAccount({{parent_.key}})) {
    return Warning{kAmendItem, kAccountClosed, {}};
  }
  return std::nullopt;
}

bool AllocationEditor::AgreeToCategory(AllocationForm line) {
  Settle(ledger_, line);
  return corvanta::AgreeToCategory(ledger_, platform_.prompts, line.category, line.subCategory,
                                   KindOf(line));
}

// Writes the row of that key, or a new one for 0, as `change` leaves it. 0 when it is gone.
template <typename Change>
std::int64_t AllocationEditor::Rewrite(std::int64_t key, const Change& change) {
  if (IsSchedule()) {
    const auto stored = ledger_.Schedules().ReadSchedule(key);
    ScheduleRecord record;
    if (stored) record = *stored;
    change(record);
    return stored || key == 0 ? ledger_.Schedules().SaveSchedule(record) : 0;
  }
  const auto stored = ledger_.Transactions().ReadTransaction(key);
  TransactionRecord record;
  if (stored) record = *stored;
  change(record);
  return stored || key == 0 ? ledger_.Transactions().SaveTransaction(record) : 0;
}

std::int64_t AllocationEditor::Write(AllocationForm line) {
  Settle(ledger_, line);
  const UndoLog::Step step = ledger_.Undo().Begin("Allocate Item");
  Transaction all = ledger_.Store().Begin();
  const std::int64_t category =
      ledger_.Categories().FindOrCreateCategory(line.category, line.subCategory, KindOf(line));
  const std::int64_t key = Rewrite(line.key, [&](auto& record) {
    record.allocatedItem = parent_.key;
    record.categoryId = category;
    record.amount = RoundChanged(line.amount.value_or(0), record.amount, parent_.currency);
    record.description = line.description;
    record.reference = line.reference;
  });
  // Not the new category alone, when the parent is gone.
  if (key != 0) all.Commit();
  return key;
}

void AllocationEditor::Delete(std::int64_t key) {
  const UndoLog::Step step = ledger_.Undo().Begin("Delete Allocated Item");
  Transaction all = ledger_.Store().Begin();
  if (IsSchedule()) {
    ledger_.Schedules().DeleteSchedule(key, false);
  } else {
    ledger_.Transactions().DeleteTransaction(key);
  }
  // The last line to go would leave its own amount behind as the parent's.
  if (Lines().empty()) Rewrite(parent_.key, [this](auto& record) { record.amount = Total(); });
  all.Commit();
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

}  // namespace corvanta::inline entry
