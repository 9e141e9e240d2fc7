#include "ledger/schedules/OccurrenceWriter.h"

#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/schedules/ScheduleBook.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline ledger {
namespace {

// Statements that differ in their values alone are prepared once.
constexpr const char* kInsert =
    "INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,[Amount],Reference,"
    "Description,BankChk,BankRec,[Action],AllocatedItem,TransferID,BankSch,[Date],ScheduleDate) "
    "VALUES (";
constexpr const char* kStatusAndAction = ",0,0,0,";

std::string Row(std::int64_t account, std::int64_t category, std::int64_t payment,
                std::int64_t payee) {
  return kInsert + SqlNumber(account) + "," + SqlNumber(category) + "," + SqlNumber(payment) + "," +
         SqlNumber(payee) + ",";
}

std::string Texts(const ScheduleRecord& record) {
  return "," + SqlText(record.reference) + "," + SqlText(record.description) + kStatusAndAction;
}

}  // namespace

OccurrenceWriter::OccurrenceWriter(clsCorvanta& ledger, const ScheduleDetails& schedule)
    : store_(ledger.Store()),
      isTransfer_(schedule.IsTransfer()),
      days_(schedule.days),
      schedule_(SqlNumber(schedule.scheduleId)),
      shared_(Texts(schedule)),
      own_(Row(schedule.accountId, schedule.categoryId, schedule.paymentId, schedule.payeeId)) {
  // A schedule may have been written before amounts were rounded to their currency.
  double amount = RoundToCurrency(schedule.amount, schedule.currency);
  if (isTransfer_) {
    own_ += SqlNumber(amount);
    other_ = Row(schedule.transferAccountId, ledger.Categories().FindCategory("Credit", ""),
                 schedule.paymentId, schedule.payeeId);
    return;
  }
  if (schedule.hasLines) amount = AddLines(ledger, schedule);
  own_ += SqlNumber(amount);
}

// Their sum.
double OccurrenceWriter::AddLines(clsCorvanta& ledger, const ScheduleDetails& schedule) {
  PartsInCurrency parts(schedule.currency);
  for (const ScheduleDetails& line : ledger.Schedules().ScheduleLines(schedule.scheduleId)) {
    lines_.push_back(Row(schedule.accountId, line.categoryId, line.paymentId, line.payeeId) +
                     SqlNumber(parts.Next(line.amount)) + Texts(line));
  }
  return parts.Sum();
}

void OccurrenceWriter::Write(Date due, double otherAmount) {
  const std::string day = SqlDate(days_.BookedOn(due));
  store_.Execute(own_ + shared_ + "0,0," + schedule_ + "," + day + "," + SqlDate(due) + ")");
  if (isTransfer_) WriteOtherHalf(day, otherAmount);
  if (!lines_.empty()) WriteLines(day);
}

void OccurrenceWriter::WriteLines(const std::string& day) {
  const std::string parent = NewestKey();
  for (const std::string& line : lines_) {
    store_.Execute(line + parent + ",0,0," + day + ",NULL)");
  }
}

// Without the due date: the occurrence is counted once, in the schedule's own account.
void OccurrenceWriter::WriteOtherHalf(const std::string& day, double amount) {
  const std::string own = NewestKey();
  store_.Execute(other_ + SqlNumber(amount) + shared_ + "0," + own + "," + schedule_ + "," + day +
                 ",NULL)");
  store_.Execute("UPDATE tblTransactions SET TransferID = " + NewestKey() +
                 " WHERE TransactionID = " + own);
}

std::string OccurrenceWriter::NewestKey() {
  return SqlNumber(
      store_.QueryValue("Select Max(TransactionID) as TransactionID from tblTransactions").Int());
}

}  // namespace corvanta::inline ledger
