#pragma once

#include "controls/QuietEnd.h"
#include "reconcile/Reconciliation.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <optional>
#include <string>

class QLabel;
class QPushButton;
class QStackedWidget;
class QStatusBar;
class QTableView;

namespace corvanta::inline controls {
class EmptyState;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline reconcile {

class ucReconcileTable;
class QtReconcileModel;
class QtReconcileProgress;
class ucReconcileStatement;

// The windows that open over the one that balances an account.
struct ReconcileOpeners {
  // The transaction editor on that row, or on a new one for 0. `changed` is called when rows change
  // while it goes on standing. True when the data file was changed.
  std::function<bool(std::int64_t key, QWidget* parent, const std::function<void()>& changed)>
      transaction;
  std::function<void(const QTableView& list, const std::string& title, QWidget* parent)> print;
};

// Balances an account against a bank statement.
class FrmReconcile : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  FrmReconcile(std::int64_t accountId, Platform& platform, clsCorvanta& ledger,
               ReconcileOpeners openers, QWidget* parent);
  ~FrmReconcile() override;

  // Reads the account's rows. False when the account cannot be balanced, which has been told then.
  // Throws StoreError.
  bool Open();

  // Whether the data file was changed while the dialog stood.
  [[nodiscard]] bool IsChanged() const { return isChanged_; }

  // What the ticks did; nullopt while they were not applied.
  [[nodiscard]] const std::optional<ReconcileOutcome>& Outcome() const { return outcome_; }

  void reject() override;
  // Keeps the dialog's size and the widths of the columns.
  void done(int result) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  QPushButton* MakeButton(const char* name, const QString& caption, const QString& toolTip,
                          void (FrmReconcile::*command)());
  QLabel* MakeLabel(const char* name, const QString& text = {});
  void MakeList();
  QWidget* MakeHead();
  QWidget* MakeCommands();
  QWidget* MakeTotals();
  QWidget* MakeButtons();
  void MakeLayout();
  void OrderTabs();
  void RestoreSize();

  void AddTransaction();
  void ShowAll();
  void ShowUnreconciled();
  void SelectAll();
  void ClearAll();
  void Invert();
  void Print();
  void Apply();
  void Help();

  void Run(const std::function<void()>& command);
  void Toggle(int row);
  void OpenEditor(std::int64_t key);
  void Refill();
  void Sort();
  // Shows the rows as they were read, with the row chosen that was.
  void ShowRows();
  void ShowMode();
  void ShowTicks();
  void ShowTotals();
  void SetBusy(bool isBusy);
  // Whether ticks that are not applied may go: there are none, or the person says so.
  [[nodiscard]] bool MayDropTicks();

  Platform& platform_;
  Reconciliation reconciliation_;
  ReconcileOpeners openers_;
  std::optional<ReconcileOutcome> outcome_;
  bool isChanged_ = false;
  bool isBusy_ = false;
  std::int64_t chosenKey_ = 0;  // of the row in use; kept while the rows are read again

  QWidget* content_;  // everything above the status bar
  QLabel* lblAccount_;
  QStackedWidget* pages_;
  ucReconcileTable* lvBalance_;
  QtReconcileModel* model_;
  EmptyState* empty_;
  QPushButton* cmdShowAll_ = nullptr;  // pressed while it is in force, as the next one
  QPushButton* cmdUnReconciled_ = nullptr;
  QLabel* lblBalInitial_;
  QLabel* lblBalNow_;
  QLabel* lblBalRemaining_;
  QLabel* lblNoPayIn_;
  QLabel* lblNoPayOut_;
  ucReconcileStatement* statement_;
  QStatusBar* StatusBar1_;
  std::unique_ptr<QtReconcileProgress> progress_;
};

}  // namespace corvanta::inline reconcile
