#include "exchange/import/ucImportPreview.h"

#include "controls/HairSplitter.h"
#include "controls/ListTable.h"
#include "controls/MutedLabel.h"
#include "controls/Style.h"

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline exchange {
namespace {

constexpr int kWidestCell = 32;  // characters
constexpr int kRowsForTwo = 10;  // rows of height that two lists above each other need
constexpr int kRowsForOne = 5;   // and side by side

QString Counted(int count, const QString& one, const QString& more) {
  return count == 1 ? one : more.arg(count);
}

// What the shown rows hold, in words.
QString SummaryOf(const CsvPreview& preview) {
  if (preview.rows.empty()) {
    return ucImportPreview::tr("The file has no rows with this separator and these skipped rows.");
  }
  int transactions = 0;
  int problems = 0;
  for (const CsvPreviewRow& row : preview.rows) {
    if (!row.isSkipped && !row.amount.empty() && row.problem.empty()) ++transactions;
    if (!row.problem.empty()) ++problems;
  }
  QStringList parts;
  if (!preview.isWhole) {
    parts.append(ucImportPreview::tr("the first %1 rows").arg(preview.rows.size()));
  }
  parts.append(Counted(transactions, ucImportPreview::tr("1 transaction"),
                       ucImportPreview::tr("%1 transactions")));
  if (problems > 0) {
    parts.append(Counted(problems, ucImportPreview::tr("1 row that cannot be read"),
                         ucImportPreview::tr("%1 rows that cannot be read")));
  }
  return ucImportPreview::tr("Shown: %1.").arg(parts.join(QStringLiteral(", ")));
}

}  // namespace

ucImportPreview::ucImportPreview(QWidget* parent)
    : QWidget(parent),
      file_(new QtImportPreviewModel(QtImportPreviewModel::Side::File, this)),
      read_(new QtImportPreviewModel(QtImportPreviewModel::Side::Read, this)),
      lists_(new HairSplitter(Qt::Vertical, this)),
      lblPreview_(new MutedLabel(this)) {
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(0, 0, 0, 0);
  page->setSpacing(kRhythm);
  lists_->setChildrenCollapsible(false);
  lvFile_ = MakeList(file_, "lvFile", tr("In the file"));
  lvRead_ = MakeList(read_, "lvRead", tr("As it will be read"));
  lists_->addWidget(lvFile_->parentWidget());
  lists_->addWidget(lvRead_->parentWidget());
  Follow(*lvFile_, *lvRead_);
  Follow(*lvRead_, *lvFile_);
  lblPreview_->setObjectName(QStringLiteral("lblPreview"));
  lblPreview_->setTextFormat(Qt::PlainText);
  // They turn side by side before they grow the window beyond a small screen.
  lists_->setMinimumHeight(kRowsForOne * lvFile_->verticalHeader()->defaultSectionSize());
  page->addWidget(lists_, 1);
  page->addWidget(lblPreview_);
}

ListTable* ucImportPreview::MakeList(QtImportPreviewModel* model, const char* name,
                                     const QString& title) {
  auto* half = new QWidget(this);
  auto* list = new ListTable(half);
  list->setObjectName(QLatin1String(name));
  list->setAccessibleName(title);
  list->setModel(model);
  list->setSelectionMode(QAbstractItemView::SingleSelection);
  list->setAlternatingRowColors(true);
  list->setFrameShape(QFrame::StyledPanel);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  list->setMinimumHeight(3 * list->verticalHeader()->defaultSectionSize());
  auto* lines = new QVBoxLayout(half);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(kRhythm / 2);
  auto* caption = new QLabel(title, half);
  caption->setFont(ScaledFont(0, QFont::DemiBold));
  lines->addWidget(caption);
  lines->addWidget(list, 1);
  return list;
}

void ucImportPreview::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int row = lvFile_->verticalHeader()->defaultSectionSize();
  const bool isLow = height() < kRowsForTwo * row;
  lists_->setOrientation(isLow ? Qt::Horizontal : Qt::Vertical);
  lvRead_->parentWidget()->layout()->setContentsMargins(isLow ? kRhythm : 0, isLow ? 0 : kRhythm, 0,
                                                        0);
}

void ucImportPreview::Follow(ListTable& list, ListTable& other) {
  connect(list.verticalScrollBar(), &QScrollBar::valueChanged, other.verticalScrollBar(),
          &QScrollBar::setValue);
  connect(list.selectionModel(), &QItemSelectionModel::currentRowChanged, &other,
          [&other](const QModelIndex& now) {
            if (now.row() != other.currentIndex().row()) other.selectRow(now.row());
          });
}

// As wide as what the column holds, up to a width that leaves room for the others.
void ucImportPreview::SetWidths(ListTable& list) {
  const QAbstractItemModel& model = *list.model();
  const QFontMetrics metrics = list.fontMetrics();
  const int widest = kWidestCell * metrics.averageCharWidth();
  std::vector<ListTable::Column> columns;
  for (int column = 0; column < model.columnCount(); ++column) {
    int width = metrics.horizontalAdvance(model.headerData(column, Qt::Horizontal).toString());
    for (int row = 0; row < model.rowCount() && width < widest; ++row) {
      const QString text = model.index(row, column).data().toString().left(2 * kWidestCell);
      width = std::max(width, metrics.horizontalAdvance(text));
    }
    columns.push_back({std::min(width, widest) + 4 * kRhythm, column == 0 ? 0 : 1});
  }
  list.SetWidths({});
  list.SetColumns(std::move(columns));
}

void ucImportPreview::Show(const CsvPreview& preview) {
  const int row = lvFile_->currentIndex().row();
  const int top = lvFile_->verticalScrollBar()->value();
  file_->Show(preview);
  read_->Show(preview);
  SetWidths(*lvFile_);
  SetWidths(*lvRead_);
  if (row >= 0 && row < file_->rowCount()) lvFile_->selectRow(row);
  lvFile_->verticalScrollBar()->setValue(top);
  lblPreview_->setText(SummaryOf(preview));
}

}  // namespace corvanta::inline exchange
