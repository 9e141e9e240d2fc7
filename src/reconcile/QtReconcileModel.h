#pragma once

#include "controls/ListSort.h"
#include "reconcile/Reconciliation.h"

#include <QAbstractTableModel>

#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline reconcile {

// The rows of a reconciliation as a table, whose first column carries the ticks. Nothing is
// formatted before it is drawn.
class QtReconcileModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column {
    kDate,
    kPayee,
    kCategory,
    kRef,
    kDescription,
    kStatus,
    kPaidOut,
    kPaidIn,
    kColumns
  };
  static constexpr bool IsMoney(int column) { return column >= kPaidOut; }

  // Both must outlive the model.
  QtReconcileModel(const Reconciliation& reconciliation, const Locale& locale, QObject* parent);

  // To be called when the rows were read anew, with the order to show them in; rows sorted by day
  // are shown in the order in which they were read.
  void Reload(const SortState& sort);
  // To be called when ticks have changed.
  void ShowTicks();

  [[nodiscard]] const ReconcileRow& Row(int row) const {
    return reconciliation_.Rows().at(Place(row));
  }
  // The row's place in the reconciliation.
  [[nodiscard]] std::size_t Place(int row) const {
    return order_.at(static_cast<std::size_t>(row));
  }
  // Of a transaction; -1 when it is not shown.
  [[nodiscard]] int RowOf(std::int64_t transactionId) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  [[nodiscard]] static QString Title(int section);
  [[nodiscard]] QString Text(const ReconcileRow& row, int column) const;
  [[nodiscard]] QString Spoken(const ReconcileRow& row, int column) const;
  [[nodiscard]] SortKey Key(const ReconcileRow& row, int column) const;

  const Reconciliation& reconciliation_;
  const Locale& locale_;
  std::vector<std::size_t> order_;
};

}  // namespace corvanta::inline reconcile
