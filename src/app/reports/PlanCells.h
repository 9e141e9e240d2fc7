#pragma once

#include "app/ViewHost.h"
#include "controls/AmountEdit.h"

#include <QModelIndex>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPointer>

#include <cstddef>
#include <optional>
#include <string>

namespace corvanta::inline controls {
class SortedTable;
}

namespace corvanta::inline reports {
struct ReportRequest;
struct ReportRow;
struct ReportTable;
}  // namespace corvanta::inline reports

namespace corvanta::inline app {

class ListModel;

// The field in which a plan is typed, over its cell.
class PlanField : public AmountEdit {
  Q_OBJECT

 public:
  PlanField(const Locale& locale, QWidget* parent);

 Q_SIGNALS:
  void Entered(int by);  // and on to the row that lies so many ahead
  void TakenBack();
  void Left();  // the keys have gone elsewhere

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
};

// The plans on the page of a month's budget, edited where they stand: a click on one, F2, or an
// amount that is typed over it begins; Enter and the arrows go on to the next or former row, Escape
// takes back what was typed. What is no amount is refused in words and stays.
class PlanCells : public QObject {
  Q_OBJECT

 public:
  // The report and what it was run with are what the list shows; all live as long as the parent.
  PlanCells(SortedTable& table, ListModel& model, const ViewPlace& place, const ReportTable& report,
            const ReportRequest& request, QObject* parent);

  // Whether a plan of a category stands in that cell.
  [[nodiscard]] bool IsPlan(const QModelIndex& index) const;
  // Begins in the row of the cell; says why where its plan cannot be edited. A field that is open
  // gets the keys instead.
  void Edit(const QModelIndex& index);
  // The same once the list is done with the click on that cell.
  void EditLater(const QModelIndex& index);
  // The list is to show something else, or nothing: saves what was typed, or says that it could not
  // be. No field is open afterwards.
  void Finish();

 Q_SIGNALS:
  // A plan is another than the list shows.
  void Planned();

 protected:
  // Keys of the list, and the end of the window.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] const ReportRow& RowAt(int listRow) const;
  // What is planned in the row; nullopt where that cannot be edited: a plan is typed in the
  // currency that it is kept in.
  [[nodiscard]] std::optional<double> PlanOf(int listRow) const;
  [[nodiscard]] QString WhyNotEdited(int listRow) const;
  // The next row ahead whose plan can be edited; -1 for none.
  [[nodiscard]] int NextOf(int listRow, int by) const;
  // The row of that category; -1 for none that can be edited.
  [[nodiscard]] int RowOf(const std::string& category) const;
  void Open(int listRow, double plan);
  void Close();
  void GoOn(int by);
  void Leave();
  // Says what is wrong with what was left, which gets the keys back.
  void Mend();
  // Whether nothing is left to be mended in the amount that was typed (nullopt: it is none). With
  // `tells` what is refused is said. Throws StoreError.
  bool Save(std::optional<double> amount, bool tells);
  // The keys belong to the list again.
  void FocusTable();

  SortedTable& table_;
  ListModel& model_;
  ViewPlace place_;
  const ReportTable& report_;
  const ReportRequest& request_;
  QPointer<PlanField> field_;
  QPersistentModelIndex cell_;  // that it stands over
  std::string key_;             // of the category that is edited
  double plan_ = 0;             // as it was
  bool isSaved_ = true;         // and the list shows it
  bool isTold_ = false;         // it cannot be saved, which the person has just been told
};

}  // namespace corvanta::inline app
