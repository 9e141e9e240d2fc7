#include "app/register/RegisterView.h"

#include "app/ViewHeader.h"
#include "app/filter/FilterStrip.h"
#include "app/filter/PeriodBar.h"
#include "app/register/RegisterModel.h"
#include "app/register/TotalsLine.h"
#include "controls/EmptyState.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/Style.h"
#include "controls/TabularText.h"
#include "ledger/register/Period.h"
#include "ledger/register/RegisterRows.h"
#include "platform/Locale.h"

#include <QAction>
#include <QBoxLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelection>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline app {
namespace {

// Widths from what the locale writes, so that no date or amount is cut.
std::vector<ListTable::Column> Columns(const Locale& locale, const QFontMetrics& metrics) {
  const auto text = [&](const QString& sample) {
    return metrics.horizontalAdvance(sample) + 2 * kRhythm + kRhythm / 2;
  };
  const Date longDate = *Date::FromYmd(2028, 12, 28);
  const int date = text(ToQt(locale.FormatShortDate(longDate))) + kRhythm;
  const int money = TabularWidth(metrics, ToQt(locale.FormatNumber(-99999.99))) + 2 * kRhythm;
  const int word = text(QStringLiteral("Abcdef..."));
  const int few = text(QStringLiteral("Abc..."));
  std::vector<ListTable::Column> columns(RegisterModel::kColumns);
  // The last numbers say which column leaves first where there is no room.
  columns[RegisterModel::kDate] = {date + kRhythm, 0, date - kRhythm / 4};
  columns[RegisterModel::kPayee] = {text(QStringLiteral("A name of usual size")),
                                    4,
                                    text(QStringLiteral("Abcdefghij...")),
                                    0,
                                    false,
                                    few};
  columns[RegisterModel::kCategory] = {text(QStringLiteral("Category:Sub-category xx")), 4, word,
                                       5};
  columns[RegisterModel::kPayment] = {text(QStringLiteral("Direct Debit")), 1, word, 4};
  columns[RegisterModel::kRef] = {text(QStringLiteral("123456")), 0, few, 1};
  columns[RegisterModel::kDescription] = {text(QStringLiteral("Description")), 3, word, 2};
  columns[RegisterModel::kStatus] = {text(QStringLiteral("Status")), 0, 0, 3};
  // A balance without what was paid still says how the account stands; half of it would mislead.
  columns[RegisterModel::kPaidOut] = {money, 0, money, 6, true};
  columns[RegisterModel::kPaidIn] = {money, 0, money, 6, true};
  columns[RegisterModel::kBalance] = {money + 2 * kRhythm, 0, money + kRhythm, 0, true};
  // Where it is shown, a balance means nothing without it.
  columns[RegisterModel::kAccount] = {text(QStringLiteral("Current Account")), 2, few};
  return columns;
}

}  // namespace

RegisterView::RegisterView(const Locale& locale, const Offers& offers, QWidget* parent)
    : QWidget(parent),
      head_(new QBoxLayout(QBoxLayout::LeftToRight)),
      header_(new ViewHeader(this)),
      period_(new PeriodBar(locale, this)),
      strip_(new FilterStrip(this)),
      pages_(new QStackedWidget(this)),
      table_(new SortedTable(this)),
      empty_(new EmptyState(this)),
      totals_(new TotalsLine(this)),
      model_(new RegisterModel(locale, this)),
      delegate_(new RegisterDelegate(this)),
      offers_(offers),
      locale_(locale) {
  table_->setObjectName(QStringLiteral("lvbank"));
  table_->setAccessibleName(tr("Register"));
  table_->setModel(model_);
  table_->setItemDelegate(delegate_);
  std::vector<ListTable::Column> columns = Columns(locale, fontMetrics());
  columns.resize(RegisterModel::kAccount);
  table_->SetColumns(std::move(columns));
  table_->SetSorted({RegisterModel::kDate, false});
  table_->setContextMenuPolicy(Qt::CustomContextMenu);
  empty_->setContextMenuPolicy(Qt::CustomContextMenu);
  pages_->addWidget(table_);
  pages_->addWidget(empty_);
  head_->addWidget(header_, 1);
  head_->addWidget(period_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(head_);
  period_->AddTool(strip_->Button());
  column->addWidget(strip_);
  column->addWidget(pages_, 1);
  column->addWidget(totals_);
  setFocusProxy(table_);
  Connect();
}

void RegisterView::Connect() {
  connect(period_, &PeriodBar::Changed, this, &RegisterView::PeriodChanged);
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &RegisterView::ChoiceChanged);
  connect(table_, &QWidget::customContextMenuRequested, this, &RegisterView::RequestMenu);
  connect(empty_, &QWidget::customContextMenuRequested, this,
          [this](QPoint place) { Q_EMIT MenuRequested(empty_->mapToGlobal(place)); });
  connect(table_, &QAbstractItemView::activated, this,
          [this](const QModelIndex& index) { Q_EMIT Opened(model_->Key(index.row())); });
  connect(model_, &RegisterModel::ReadWhole, this, [this] {
    WidenForFigures();
    Q_EMIT DaysRead();
  });
  connect(model_, &RegisterModel::Outdated, this, &RegisterView::Outdated);
  connect(model_, &RegisterModel::Failed, this, &RegisterView::Failed);
  connect(table_, &SortedTable::SortChosen, this, [this] {
    const std::int64_t focused = FocusedKey();
    model_->Sort(table_->Sorted());
    ChooseKey(focused);
  });
}

// The key asks for the menu in the middle of the list: it belongs to the row in use.
void RegisterView::RequestMenu(QPoint place) {
  const bool isByMouse = table_->indexAt(place) == table_->currentIndex() ||
                         (QGuiApplication::mouseButtons() & Qt::RightButton) != 0;
  const QRect row = table_->visualRect(table_->currentIndex());
  if (!isByMouse && FocusedKey() != 0 && row.isValid()) {
    place = QPoint(row.left() + 2 * kRhythm, row.bottom());
  }
  Q_EMIT MenuRequested(table_->viewport()->mapToGlobal(place));
}

void RegisterView::ShowAccountColumn(bool show) {
  if (show == model_->HasAccounts()) return;
  if (show) {
    model_->ShowAccounts(true);
    table_->AddColumn(Columns(locale_, fontMetrics()).at(RegisterModel::kAccount));
    // Behind the date, where it is looked for.
    table_->horizontalHeader()->moveSection(RegisterModel::kAccount, 1);
    return;
  }
  if (table_->Sorted().column == RegisterModel::kAccount) {
    table_->SetSorted({RegisterModel::kDate, false});
  }
  table_->RemoveLastColumn();
  model_->ShowAccounts(false);
}

void RegisterView::WidenForFigures() {
  const QFontMetrics metrics = fontMetrics();
  const std::vector<ListTable::Column> columns = Columns(locale_, metrics);
  for (const int column :
       {RegisterModel::kPaidOut, RegisterModel::kPaidIn, RegisterModel::kBalance}) {
    const int gaps = column == RegisterModel::kBalance ? 3 * kRhythm : 2 * kRhythm;
    const int title = metrics.horizontalAdvance(
        model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    int figure = 0;
    for (const QString& text : model_->WidestFigures(column)) {
      figure = std::max(figure, TabularWidth(metrics, text));
    }
    // Drawn a little narrower a figure can still be read.
    const int smallest = std::max(title, figure * 17 / 20) + gaps;
    const auto wish = static_cast<std::size_t>(column);
    table_->SetNeed(column, std::max(columns[wish].width, figure + gaps), smallest);
  }
}

void RegisterView::LetGo() {
  currencies_.clear();
  model_->SetRows(nullptr);
}

// The account's name comes before the period's room beside it.
void RegisterView::PlacePeriod() {
  const bool isBelow = header_->WantedWidth() + period_->sizeHint().width() > width();
  head_->setDirection(isBelow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
  head_->setAlignment(period_, isBelow ? Qt::AlignLeft : Qt::AlignTop);
  period_->SetBelow(isBelow);
}

void RegisterView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PlacePeriod();
}

void RegisterView::SetToday(Date today) {
  today_ = today;
  model_->SetToday(today);
  period_->SetToday(today);
}

void RegisterView::SetColours(const ListColours& colours) {
  delegate_->SetColours(colours);
  table_->viewport()->update();
}

void RegisterView::ShowOptionalColumns(bool description, bool reference, bool status) {
  table_->ShowColumn(RegisterModel::kDescription, description);
  table_->ShowColumn(RegisterModel::kRef, reference);
  table_->ShowColumn(RegisterModel::kStatus, status);
}

QString RegisterView::Widths() const {
  return table_->Widths().section(u'|', 0, RegisterModel::kAccount - 1);
}

std::optional<DateRange> RegisterView::Period() const {
  return period_->InForce();
}
DateRange RegisterView::Dates() const {
  return period_->Dates();
}
void RegisterView::SetDates(const DateRange& dates) {
  period_->SetDates(dates);
}
void RegisterView::SetPeriod(const std::optional<DateRange>& period) {
  if (period) period_->SetDates(*period);
  period_->SetInForce(period.has_value());
}

}  // namespace corvanta::inline app
