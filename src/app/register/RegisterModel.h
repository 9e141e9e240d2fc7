#pragma once

#include "app/register/RegisterCells.h"
#include "controls/ListSort.h"
#include "ledger/register/RegisterRow.h"
#include "ledger/register/RegisterRows.h"

#include <QAbstractTableModel>
#include <QDate>
#include <QSet>
#include <QStringList>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <vector>

class QTimer;

namespace corvanta::inline ledger {
class KeySet;
}

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

// A line of a split transaction as it is shown below it.
struct RegisterLine {
  QString category;
  QString reference;
  QString description;
  double amount = 0;  // in the account's currency, signed
};

// The rows of a register as a table. Nothing is read or formatted before it is drawn, so that a
// register of any length opens at once.
class RegisterModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column {
    kDate,
    kPayee,
    kCategory,
    kPayment,
    kRef,
    kDescription,
    kStatus,
    kPaidOut,
    kPaidIn,
    kBalance,
    kAccount,  // of rows of several accounts alone
    kColumns
  };
  static constexpr bool IsMoney(int column) { return column >= kPaidOut && column <= kBalance; }

  RegisterModel(const Locale& locale, QObject* parent);

  // Shows the rows in the order that was last asked for; null for none. What is not yet read of
  // them is read as it comes into sight, and the rest little by little while nothing else happens.
  void SetRows(std::shared_ptr<RegisterRows> rows);
  // Whether the rows say which account they are of, in a column more.
  void ShowAccounts(bool show);
  [[nodiscard]] bool HasAccounts() const { return hasAccounts_; }
  // Whether it is still at that.
  [[nodiscard]] bool IsReading() const;
  // Rows after it are ahead: a forecast.
  void SetToday(Date today) { today_ = today; }
  [[nodiscard]] bool IsAhead(int row) const { return Entry(row).date > today_; }
  // Whether today ends above the row, in a list that stands by day.
  [[nodiscard]] bool IsTodayAbove(int row) const;
  void Sort(const SortState& sort);
  // What is known of a row without reading it; one that can no longer be read has the key 0.
  [[nodiscard]] const RegisterEntry& Entry(int row) const;
  // The row whole; valid until another one is asked for.
  [[nodiscard]] const RegisterRow& Row(int row) const;
  // Names of what the rows refer to by key. Not without rows.
  [[nodiscard]] const RegisterNames& Names() const { return rows_->Names(); }
  [[nodiscard]] std::int64_t Key(int row) const { return Entry(row).transactionId; }
  // The lines that are shown below that transaction; none for one that is folded.
  [[nodiscard]] const std::vector<RegisterLine>& Lines(std::int64_t transactionId) const;
  void SetLines(std::int64_t transactionId, std::vector<RegisterLine> lines);
  void DropLines() { lines_.clear(); }
  [[nodiscard]] QString AmountText(double amount) const;
  // The row of the first day that is not before that one, or of the last day; -1 without rows.
  [[nodiscard]] int RowNear(Date day) const;
  // The rows of that day.
  [[nodiscard]] std::vector<int> RowsOf(Date day) const;
  // The days of the rows that are read.
  [[nodiscard]] QSet<QDate> Days() const;
  // The widest figures that a column of money shows in the rows that are read; none for a column
  // that shows none.
  [[nodiscard]] QStringList WidestFigures(int column) const;
  // What all rows come to, in the account's currency.
  [[nodiscard]] double Sum() const;
  // The rows of these transactions, as far as they are read.
  [[nodiscard]] std::vector<int> RowsAmong(const KeySet& keys) const;
  // Of a transaction; -1 when it is not shown.
  [[nodiscard]] int RowOf(std::int64_t transactionId) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 Q_SIGNALS:
  void ReadWhole();                    // every row's entry is read
  void Outdated();                     // the data have changed: what is left cannot be read
  void Failed(const QString& reason);  // the data file refuses to be read; told once

 private:
  void PutInOrder();
  void ReadOn();
  // The row's place among the rows by day, and the other way.
  [[nodiscard]] std::size_t Place(int row) const;
  [[nodiscard]] int RowAt(std::size_t place) const;
  // Runs what reads the data file; false when that fails, which is told.
  bool Try(const std::function<void()>& read) const;

  struct Page {
    int first = -1;
    std::vector<RegisterRow> rows;
  };

  const Locale& locale_;
  RegisterCells cells_;
  std::shared_ptr<RegisterRows> rows_;
  std::vector<std::uint32_t> order_;  // empty for rows that stand by day
  SortState sort_;
  Date today_;
  bool hasAccounts_ = false;
  QTimer* idle_;
  mutable std::array<Page, 4> pages_;  // read last
  mutable std::size_t nextPage_ = 0;
  mutable bool hasFailed_ = false;
  std::map<std::int64_t, std::vector<RegisterLine>> lines_;  // by their transactions
};

}  // namespace corvanta::inline app
