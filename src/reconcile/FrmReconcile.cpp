#include "reconcile/FrmReconcile.h"

#include "controls/CommandEdge.h"
#include "controls/EmptyState.h"
#include "controls/LongText.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "reconcile/QtReconcileModel.h"
#include "reconcile/QtReconcileProgress.h"
#include "reconcile/ucReconcileStatement.h"
#include "reconcile/ucReconcileTable.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QStatusBar>

#include <algorithm>

namespace corvanta::inline reconcile {

FrmReconcile::FrmReconcile(std::int64_t accountId, Platform& platform, clsCorvanta& ledger,
                           ReconcileOpeners openers, QWidget* parent)
    : QuietEnd(parent),
      platform_(platform),
      reconciliation_(accountId, ledger),
      openers_(std::move(openers)),
      content_(new QWidget(this)),
      lblAccount_(MakeLabel("lblAccount")),
      pages_(new QStackedWidget(content_)),
      lvBalance_(new ucReconcileTable(pages_)),
      model_(new QtReconcileModel(reconciliation_, platform.locale, this)),
      empty_(new EmptyState(pages_)),
      lblBalInitial_(MakeLabel("lblBalInitial")),
      lblBalNow_(MakeLabel("lblBalNow")),
      lblBalRemaining_(MakeLabel("lblBalRemaining")),
      lblNoPayIn_(MakeLabel("lblNoPayIn", tr("Pay In"))),
      lblNoPayOut_(MakeLabel("lblNoPayOut", tr("Pay Out"))),
      statement_(new ucReconcileStatement(platform.locale, content_)),
      StatusBar1_(new QStatusBar(this)),
      progress_(std::make_unique<QtReconcileProgress>(*StatusBar1_)) {
  setObjectName(QStringLiteral("FrmReconcile"));
  setWindowTitle(tr("Balance Account"));
  setModal(true);
  StatusBar1_->setObjectName(QStringLiteral("StatusBar1"));
  MakeList();
  MakeLayout();
  RestoreSize();
  connect(lvBalance_, &ucReconcileTable::TickChosen, this, &FrmReconcile::Toggle);
  connect(lvBalance_, &ucReconcileTable::RowOpened, this,
          [this](int row) { OpenEditor(model_->Row(row).transactionId); });
  connect(lvBalance_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& now) {
            if (now.isValid()) chosenKey_ = model_->Row(now.row()).transactionId;
          });
  connect(lvBalance_, &SortedTable::SortChosen, this, &FrmReconcile::Sort);
}

FrmReconcile::~FrmReconcile() = default;

bool FrmReconcile::Open() {
  if (const auto warning = reconciliation_.Check()) {
    platform_.prompts.Tell(warning->title, warning->text, Icon::Information);
    return false;
  }
  const QString account = ToQt(reconciliation_.AccountText());
  lblAccount_->setText(Shortened(account));
  lblAccount_->setToolTip(account);
  statement_->SetCurrency(reconciliation_.Currency());
  reconciliation_.ShowUnreconciled();
  ShowRows();
  ShowMode();
  lvBalance_->setFocus();
  return true;
}

void FrmReconcile::Run(const std::function<void()>& command) {
  RunCommand(platform_.prompts, command);
}

void FrmReconcile::Toggle(int row) {
  reconciliation_.Tick(model_->Place(row), !model_->Row(row).isTicked);
  ShowTicks();
}

void FrmReconcile::SelectAll() {
  reconciliation_.SelectAll();
  ShowTicks();
}

void FrmReconcile::ClearAll() {
  reconciliation_.ClearAll();
  ShowTicks();
}

void FrmReconcile::Invert() {
  reconciliation_.Invert();
  ShowTicks();
}

void FrmReconcile::ShowAll() {
  Run([this] {
    reconciliation_.ShowAll();
    ShowRows();
  });
  ShowMode();
}

void FrmReconcile::ShowUnreconciled() {
  Run([this] {
    reconciliation_.ShowUnreconciled();
    ShowRows();
  });
  ShowMode();
}

void FrmReconcile::ShowMode() {
  cmdShowAll_->setChecked(reconciliation_.IsShowingAll());
  cmdUnReconciled_->setChecked(!reconciliation_.IsShowingAll());
}

void FrmReconcile::Sort() {
  Run([this] {
    const SortState& sort = lvBalance_->Sorted();
    reconciliation_.SetNewestFirst(sort.column == QtReconcileModel::kDate && sort.isDescending);
    Refill();
  });
}

void FrmReconcile::AddTransaction() {
  Run([this] {
    if (const auto warning = reconciliation_.CheckAdd()) {
      platform_.prompts.Tell(warning->title, warning->text, Icon::Information);
      return;
    }
    OpenEditor(0);
  });
}

void FrmReconcile::OpenEditor(std::int64_t key) {
  Run([&] {
    const auto changed = [this] {
      isChanged_ = true;
      Refill();
    };
    if (openers_.transaction(key, this, changed)) isChanged_ = true;
    Refill();
    lvBalance_->setFocus();
  });
}

void FrmReconcile::Refill() {
  reconciliation_.Refill();
  ShowRows();
}

void FrmReconcile::ShowRows() {
  const std::int64_t former = chosenKey_;
  model_->Reload(lvBalance_->Sorted());
  const int count = model_->rowCount();
  if (count > 0) lvBalance_->ChooseRow(std::max(0, model_->RowOf(former)));
  if (count == 0) {
    empty_->Show(QStringLiteral("reconcile"), tr("Nothing left to balance"),
                 tr("Every transaction of this account has been on a statement."), nullptr);
  }
  pages_->setCurrentIndex(count == 0 ? 1 : 0);
  ShowTotals();
}

void FrmReconcile::ShowTicks() {
  model_->ShowTicks();
  ShowTotals();
}

void FrmReconcile::ShowTotals() {
  const ReconcileTexts texts = TextsOf(reconciliation_.Totals(), platform_.locale);
  lblBalInitial_->setText(ToQt(texts.initial));
  lblBalNow_->setText(ToQt(texts.current));
  lblBalRemaining_->setText(ToQt(texts.outstanding));
  lblNoPayIn_->setText(ToQt(texts.paidIn));
  lblNoPayOut_->setText(ToQt(texts.paidOut));
  statement_->ShowTotals(reconciliation_.Totals());
}

void FrmReconcile::Print() {
  Run([this] {
    std::string title(kBalanceAccount);
    title.append(": ").append(reconciliation_.AccountText());
    openers_.print(*lvBalance_, title, this);
  });
}

void FrmReconcile::Help() {
  platform_.prompts.Tell(
      std::string(kBalanceAccount),
      "Tick the transactions that are on the bank's statement, with the mouse or with Space, until "
      "the current balance is that of the statement. \"Apply\" then marks the ticked ones as "
      "reconciled; nothing is written before.\n\n"
      "What is missing can be added, and a double click or Enter opens a transaction to correct "
      "it; "
      "the ticks stay. \"Show All\" lists the transactions of earlier statements, too: one of them "
      "that is unticked is no longer reconciled after \"Apply\".",
      Icon::Information);
}

// What stands above the status bar takes no input while rows are written.
void FrmReconcile::SetBusy(bool isBusy) {
  isBusy_ = isBusy;
  content_->setEnabled(!isBusy);
  progress_->SetStatus(isBusy ? "Please wait processing records..." : "");
}

void FrmReconcile::Apply() {
  if (!statement_->IsAmount()) {
    platform_.prompts.Tell(std::string(kBalanceAccount),
                           "The balance on the statement is no amount. Enter it again, or leave "
                           "it empty to go on without it.",
                           Icon::Information);
    return statement_->Edit();
  }
  SetBusy(true);
  bool isDone = false;
  Run([&] { isDone = reconciliation_.Apply(*progress_); });
  SetBusy(false);
  if (!isDone) return lvBalance_->setFocus();
  isChanged_ = isChanged_ || !reconciliation_.Rows().empty();
  outcome_ = reconciliation_.Outcome();
  accept();
}

void FrmReconcile::reject() {
  if (isBusy_) return progress_->Stop();
  QDialog::reject();
}

bool FrmReconcile::MayDropTicks() {
  return isBusy_ || !reconciliation_.IsTicking() ||
         platform_.prompts.Ask(std::string(kBalanceAccount),
                               "The ticks are not applied. Do you wish to drop them?");
}

void FrmReconcile::closeEvent(QCloseEvent* event) {
  if (event->spontaneous() && !MayDropTicks()) return event->ignore();
  QDialog::closeEvent(event);
}

void FrmReconcile::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Cancel) && !MayDropTicks()) return;
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  // A balance that was typed is not yet the wish to write.
  if (isEnter && statement_->IsTyping()) return lvBalance_->setFocus();
  QDialog::keyPressEvent(event);
}

}  // namespace corvanta::inline reconcile
