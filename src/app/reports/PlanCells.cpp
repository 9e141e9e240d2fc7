#include "app/reports/PlanCells.h"

#include "app/LedgerSession.h"
#include "app/lists/ListModel.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "reports/budget/BudgetEditor.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportRequest.h"
#include "reports/query/ReportTable.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>

namespace corvanta::inline app {
namespace {

constexpr int kPlan = static_cast<int>(kPlanColumn);

// A letter that an amount can begin with.
bool BeginsAmount(const QKeyEvent& event) {
  const QString text = event.text();
  const bool isHeld = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
  return !isHeld && !text.isEmpty() &&
         (text.front().isDigit() || QStringLiteral("(.,").contains(text.front()));
}

}  // namespace

PlanField::PlanField(const Locale& locale, QWidget* parent) : AmountEdit(locale, parent) {
  setObjectName(QStringLiteral("txtPlan"));
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  setAutoFillBackground(true);
  SetUnsigned();
}

void PlanField::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Q_EMIT Entered((event->modifiers() & Qt::ShiftModifier) != 0 ? -1 : 1);
      return;
    case Qt::Key_Down:
      Q_EMIT Entered(1);
      return;
    case Qt::Key_Up:
      Q_EMIT Entered(-1);
      return;
    case Qt::Key_Escape:
      Q_EMIT TakenBack();
      return;
    default:
      AmountEdit::keyPressEvent(event);
  }
}

void PlanField::focusOutEvent(QFocusEvent* event) {
  AmountEdit::focusOutEvent(event);
  const Qt::FocusReason reason = event->reason();
  // A menu, or another window, comes back to the field.
  if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) Q_EMIT Left();
}

PlanCells::PlanCells(SortedTable& table, ListModel& model, const ViewPlace& place,
                     const ReportTable& report, const ReportRequest& request, QObject* parent)
    : QObject(parent),
      table_(table),
      model_(model),
      place_(place),
      report_(report),
      request_(request) {
  table_.installEventFilter(this);
  place_.window.installEventFilter(this);
}

const ReportRow& PlanCells::RowAt(int listRow) const {
  return report_.rows.at(static_cast<std::size_t>(model_.Key(listRow)) - 1);
}

bool PlanCells::IsPlan(const QModelIndex& index) const {
  return index.isValid() && report_.report == kBudgetOfMonth && index.column() == kPlan &&
         RowAt(index.row()).kind == ReportRowKind::Group;
}

std::optional<double> PlanCells::PlanOf(int listRow) const {
  const ReportRow& row = RowAt(listRow);
  if (row.currency != report_.plansKeptIn) return std::nullopt;
  const auto form = BudgetEditor(place_.session.Ledger()).Load(request_, row);
  return form ? form->amount : std::nullopt;
}

QString PlanCells::WhyNotEdited(int listRow) const {
  const QString kept = ToQt(report_.plansKeptIn);
  const bool isConverted = std::ranges::any_of(report_.rates, [this](const ReportRate& each) {
    return each.currency == report_.plansKeptIn && each.isConverted;
  });
  if (isConverted) {
    return tr("Plans are kept in %1. Untick \"Convert into\" to change them.").arg(kept);
  }
  if (RowAt(listRow).currency != report_.plansKeptIn) {
    return tr("Plans are in %1: change the category's other row").arg(kept);
  }
  return tr(
      "This plan is that of several sub-categories. Tick \"Sub-categories\" to plan each of "
      "them.");
}

int PlanCells::NextOf(int listRow, int by) const {
  for (int row = listRow + by; row >= 0 && row < model_.rowCount(); row += by) {
    if (IsPlan(model_.index(row, kPlan)) && PlanOf(row)) return row;
  }
  return -1;
}

void PlanCells::Edit(const QModelIndex& index) {
  // What is being typed there is not begun anew.
  if (field_) return field_->setFocus(Qt::OtherFocusReason);
  if (!IsPlan(index.siblingAtColumn(kPlan))) return;
  if (!place_.session.IsWritable()) {
    return place_.host.Notice(
        tr("The data file is read-only: plans can be looked at, not changed"));
  }
  const auto plan = PlanOf(index.row());
  if (plan) return Open(index.row(), *plan);
  place_.host.Notice(WhyNotEdited(index.row()));
}

void PlanCells::EditLater(const QModelIndex& index) {
  if (!IsPlan(index)) return;
  QMetaObject::invokeMethod(
      this,
      [this, index = QPersistentModelIndex(index), key = RowAt(index.row()).groupKey] {
        // What was typed elsewhere is still to be mended.
        if (field_ || !place_.session.IsOpen()) return;
        place_.host.Guard([&] {
          const int row = index.isValid() ? index.row() : RowOf(key);
          if (row >= 0) Edit(model_.index(row, kPlan));
        });
      },
      Qt::QueuedConnection);
}

int PlanCells::RowOf(const std::string& category) const {
  for (int row = 0; row < model_.rowCount(); ++row) {
    const bool isIt = IsPlan(model_.index(row, kPlan)) && RowAt(row).groupKey == category;
    if (isIt && PlanOf(row)) return row;
  }
  return -1;
}

void PlanCells::Open(int listRow, double plan) {
  Close();
  const QModelIndex index = model_.index(listRow, kPlan);
  table_.selectionModel()->setCurrentIndex(
      index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  table_.scrollTo(index);
  field_ = new PlanField(place_.platform.locale, table_.viewport());
  const ReportRow& row = RowAt(listRow);
  key_ = row.groupKey;
  plan_ = plan;
  isSaved_ = true;
  isTold_ = false;
  const std::string sub = row.cells.at(1).Text();
  const std::string name = row.cells.front().Text() + (sub.empty() ? sub : ":" + sub);
  field_->setAccessibleName(tr("The plan of %1 for a month").arg(ToQt(name)));
  field_->setToolTip(field_->accessibleName());
  field_->SetAmount(plan);
  cell_ = index;
  table_.setIndexWidget(index, field_);
  connect(field_, &PlanField::Entered, this,
          [this](int by) { place_.host.Guard([this, by] { GoOn(by); }); });
  connect(field_, &PlanField::TakenBack, this, [this] {
    Close();
    FocusTable();
  });
  connect(field_, &PlanField::Left, this, &PlanCells::Leave);
  // What is typed is seen, wherever the list was scrolled to.
  connect(field_, &PlanField::textEdited, this, [this] { table_.scrollTo(cell_); });
  field_->setFocus();
  field_->selectAll();
}

void PlanCells::Close() {
  if (!field_) return;
  PlanField* field = field_;
  field_ = nullptr;
  field->disconnect(this);
  field->hide();
  // The list would bring one back that it does not know to be gone. It may be in the middle of its
  // key, so it goes later.
  if (cell_.isValid()) table_.setIndexWidget(cell_, nullptr);
  field->deleteLater();
}

void PlanCells::FocusTable() {
  table_.setFocus(Qt::OtherFocusReason);
}

bool PlanCells::Save(std::optional<double> amount, bool tells) {
  if (amount == plan_) return true;
  BudgetEditor editor(place_.session.Ledger());
  BudgetForm form;
  form.categoryId = QString::fromStdString(key_).toLongLong();
  form.amount = amount;
  if (const auto warning = editor.Check(form)) {
    if (tells) place_.platform.prompts.Tell(warning->title, warning->text);
    return false;
  }
  if (!editor.Save(form)) return true;
  plan_ = *amount;
  isSaved_ = false;
  place_.host.Notice(
      tr("Planned for a month: %1 %2")
          .arg(ToQt(place_.platform.locale.FormatNumber(*amount)), ToQt(report_.plansKeptIn)));
  return true;
}

void PlanCells::GoOn(int by) {
  if (!Save(field_->Amount(), true)) {
    if (field_) field_->setFocus();
    return;
  }
  const int row = table_.currentIndex().row();
  const int next = NextOf(row, by);
  const std::string key = next < 0 ? key_ : RowAt(next).groupKey;
  Close();
  FocusTable();
  if (!isSaved_) Q_EMIT Planned();
  isSaved_ = true;
  // The rows are others now.
  const int at = RowOf(key);
  if (at < 0) return;
  if (next >= 0) return Open(at, PlanOf(at).value_or(0));
  table_.selectionModel()->setCurrentIndex(
      model_.index(at, kPlan), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

// What was typed is saved at once, before the list may show something else; the list is read again
// when it is done with the click that led away.
void PlanCells::Leave() {
  std::optional<bool> isDone;  // nullopt: it failed, which has been told
  place_.host.Guard([&] { isDone = Save(field_->Amount(), false); });
  isTold_ = !isDone;
  QMetaObject::invokeMethod(
      this,
      [this, isDone, field = field_] {
        if (!field || field != field_) return;
        isTold_ = false;
        if (!isDone) return field->setFocus();
        if (!*isDone) return Mend();
        const bool isOld = !isSaved_;
        Close();
        isSaved_ = true;
        if (isOld) Q_EMIT Planned();
      },
      Qt::QueuedConnection);
}

void PlanCells::Mend() {
  bool isMended = false;
  place_.host.Guard([&] { isMended = Save(field_->Amount(), true); });
  if (!isMended && field_) field_->setFocus();
}

void PlanCells::Finish() {
  if (!field_) return;
  const QString typed = field_->text();
  const std::optional<double> amount = field_->Amount();
  // It goes even where nothing can be saved: whoever is told could not leave it otherwise.
  Close();
  if (isTold_) return;
  std::optional<bool> isDone;  // as above
  place_.host.Guard([&] { isDone = Save(amount, false); });
  if (isDone != false) return;
  place_.platform.prompts.Tell("Save Warning",
                               FromQt(tr("\"%1\" is no amount and was not planned").arg(typed)));
}

bool PlanCells::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &place_.window) {
    if (event->type() == QEvent::Close) Finish();
    return false;
  }
  if (event->type() == QEvent::KeyPress && report_.report == kBudgetOfMonth) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    const QModelIndex index = table_.currentIndex();
    if (index.isValid() && BeginsAmount(key)) {
      place_.host.Guard([this, index] { Edit(index); });
      // The first letter takes the place of what stands there.
      if (field_) QCoreApplication::sendEvent(field_, event);
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace corvanta::inline app
