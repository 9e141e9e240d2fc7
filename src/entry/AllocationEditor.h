#pragma once

#include "entry/EntryForm.h"
#include "ledger/Warning.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline entry {

// Whose lines are edited: "TRANSACTION" or "SCHEDULE".
enum class AllocationSource { Transaction, Schedule };

struct AllocationParent {
  std::int64_t key = 0;  // a TransactionID or a ScheduleID
  AllocationSource source = AllocationSource::Transaction;
  double amount = 0;     // as typed, unsigned
  int sign = 1;          // of the parent's type
  std::string currency;  // of its account
};

// A line of the parent's amount: category, texts, and its amount, which is signed as the parent's.
struct AllocationForm : EntryForm {
  std::int64_t key = 0;  // 0 for a new one
};

// The rules behind the dialog that spreads an amount over categories. Every line is written at
// once, and the parent's amount becomes the sum of its lines with it. Operations throw StoreError.
class AllocationEditor {
 public:
  AllocationEditor(clsCorvanta& ledger, Platform& platform, AllocationParent parent);

  [[nodiscard]] const AllocationParent& Parent() const { return parent_; }
  // "Amount (GBP)"
  [[nodiscard]] std::string AmountHeading() const;

  // In the order in which they were made.
  [[nodiscard]] std::vector<AllocationForm> Lines();
  // "Category" or "Category:SubCategory".
  [[nodiscard]] static std::string CategoryText(const AllocationForm& line);
  // The parent's amount as it was handed over less the lines, signed; exactly 0 when only the
  // noise of adding is left.
  [[nodiscard]] double Remaining();
  // An empty line of what remains.
  [[nodiscard]] AllocationForm New();

  // The first rule that is broken, about the control of that name.
  [[nodiscard]] std::optional<Warning> Check(AllocationForm line);
  // Whether the line is of the other sign than the parent, and so takes from it.
  [[nodiscard]] bool IsAgainstTotal(const AllocationForm& line) const {
    return line.amount.value_or(0) * Total() < 0;
  }
  // Writes what Check accepts, as one step that can be undone; returns the line's key. 0 when the
  // person declines to make a category that is new (the field is cmbCategory), or when the parent
  // is gone.
  std::int64_t Save(const AllocationForm& line) { return AgreeToCategory(line) ? Write(line) : 0; }
  // The two steps of Save, for a caller that writes several lines together.
  [[nodiscard]] bool AgreeToCategory(AllocationForm line);
  std::int64_t Write(AllocationForm line);
  // Without asking. With the last line gone the parent has the amount again that was handed over.
  void Delete(std::int64_t key);
  // Asks when something remains of an amount that has lines. True when the dialog may close: the
  // parent's amount is then what the data file holds for it.
  [[nodiscard]] bool MayClose() { return Lines().empty() || AgreeToRemaining(Remaining()); }
  // The same question before lines that will come to that sum, signed, are written.
  [[nodiscard]] bool AgreeToSum(double sum) { return AgreeToRemaining(Settled(Total() - sum)); }
  // Without the noise of adding: what is nothing in the currency's decimals is 0.
  [[nodiscard]] double Settled(double amount) const;

 private:
  [[nodiscard]] bool IsSchedule() const { return parent_.source == AllocationSource::Schedule; }
  [[nodiscard]] const char* Table() const {
    return IsSchedule() ? "tblSchedule" : "tblTransactions";
  }
  // Of the parent, as it was handed over, signed.
  [[nodiscard]] double Total() const { return parent_.sign * parent_.amount; }
  template <typename Change>
  std::int64_t Rewrite(std::int64_t key, const Change& change);
  [[nodiscard]] bool AgreeToRemaining(double remaining);

  clsCorvanta& ledger_;
  Platform& platform_;
  AllocationParent parent_;
};

}  // namespace corvanta::inline entry
