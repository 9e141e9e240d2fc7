#include "app/lists/UnfoldedRows.h"

#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/ViewCommand.h"
#include "app/register/RegisterDelegate.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "ledger/transactions/TransactionBook.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

namespace corvanta::inline app {

UnfoldedRows::UnfoldedRows(const ViewPlace& place, RegisterView& view, QObject* parent)
    : QObject(parent), place_(place), view_(view) {
  view_.Table().installEventFilter(this);
  view_.Table().viewport()->installEventFilter(this);
  connect(&view_, &RegisterView::Shown, this, [this] { place_.host.Guard([this] { Follow(); }); });
  connect(view_.Table().model(), &QAbstractItemModel::modelReset, this, &UnfoldedRows::MakeRoom);
  place_.On(place_.actions.mnuTransLines, this, [this] { Toggle(view_.FocusedKey()); });
}

void UnfoldedRows::Unfold(std::int64_t transactionId) {
  if (transactionId == 0) return;
  std::vector<RegisterLine> lines;
  for (const TransactionDetails& line :
       place_.session.Ledger().Transactions().SplitLines(transactionId)) {
    QString category = ToQt(line.category);
    if (!line.subCategory.empty()) category += u':' + ToQt(line.subCategory);
    lines.push_back({category, ToQt(line.reference), ToQt(line.description), line.amount});
  }
  if (lines.empty()) return Fold(transactionId);
  keys_.insert(transactionId);
  view_.Model().SetLines(transactionId, std::move(lines));
  MakeRoom();
}

void UnfoldedRows::Fold(std::int64_t transactionId) {
  if (keys_.erase(transactionId) == 0) return;
  view_.Model().SetLines(transactionId, {});
  const int row = view_.Model().RowOf(transactionId);
  if (row >= 0) SetLines(row, 0);
  Q_EMIT view_.ChoiceChanged();
}

void UnfoldedRows::Toggle(std::int64_t transactionId) {
  if (keys_.contains(transactionId)) return Fold(transactionId);
  Unfold(transactionId);
  Q_EMIT view_.ChoiceChanged();
}

void UnfoldedRows::MakeRoom() {
  for (const std::int64_t key : keys_) {
    const int row = view_.Model().RowOf(key);
    if (row >= 0) SetLines(row, view_.Model().Lines(key).size());
  }
}

void UnfoldedRows::SetLines(int row, std::size_t lines) {
  const int height = view_.Table().verticalHeader()->defaultSectionSize();
  view_.Table().setRowHeight(row, height * (1 + static_cast<int>(lines)));
}

void UnfoldedRows::Follow() {
  const std::int64_t account = place_.host.Shown().accountId;
  const std::set<std::int64_t> former = std::move(keys_);
  keys_.clear();
  view_.Model().DropLines();
  const bool isSame = account == account_;
  account_ = account;
  for (const std::int64_t key : former) {
    const int row = view_.Model().RowOf(key);
    if (row < 0) continue;
    // It may have other lines than before, or none; and a filter may show it beside others.
    SetLines(row, 0);
    if (isSame) Unfold(key);
  }
}

bool UnfoldedRows::HandleKey(int key) {
  const std::int64_t row = view_.FocusedKey();
  const bool isUnfolded = keys_.contains(row);
  const bool unfolds = key == Qt::Key_Right || key == Qt::Key_Plus;
  const bool folds = key == Qt::Key_Left || key == Qt::Key_Minus;
  if (row == 0 || (!unfolds && !folds) || unfolds == isUnfolded) return false;
  place_.host.Guard([&] { Toggle(row); });
  return keys_.contains(row) != isUnfolded;
}

std::int64_t UnfoldedRows::MarkAt(const QPoint& place) const {
  const SortedTable& table = view_.Table();
  const QModelIndex index = table.indexAt(place);
  if (!index.isValid() || index.column() != RegisterModel::kPayee) return 0;
  const RegisterRow& row = view_.Model().Row(index.row());
  const QRect mark = RegisterDelegate::FoldMark(table.visualRect(index),
                                                table.verticalHeader()->defaultSectionSize(), row);
  return mark.contains(place) ? row.transactionId : 0;
}

bool UnfoldedRows::eventFilter(QObject* watched, QEvent* event) {
  const bool isPress = event->type() == QEvent::MouseButtonPress;
  const bool isClick = isPress || event->type() == QEvent::MouseButtonDblClick;
  // Others come while the window goes, when there is no view to ask any more.
  if (!isClick && event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const bool isTable = watched == &view_.Table();
  if (isTable && !isClick) {
    const auto& key = *static_cast<const QKeyEvent*>(event);
    const auto held = key.modifiers() & ~Qt::KeypadModifier & ~Qt::ShiftModifier;
    if (held == Qt::NoModifier && HandleKey(key.key())) return true;
  }
  if (!isTable && isClick) {
    const auto& click = *static_cast<const QMouseEvent*>(event);
    const std::int64_t row =
        click.button() == Qt::LeftButton ? MarkAt(click.position().toPoint()) : 0;
    if (row != 0) {
      if (isPress) place_.host.Guard([&] { Toggle(row); });
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace corvanta::inline app
