#include "app/reports/FrmExplain.h"

#include "app/lists/ListModel.h"
#include "app/reports/ExplainRows.h"
#include "app/search/ListSearch.h"
#include "app/search/SearchBox.h"
#include "controls/LongText.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/Style.h"
#include "ledger/Money.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Settings.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace corvanta::inline app {
namespace {

constexpr int kWidth = 104 * kRhythm;
constexpr int kHeight = 64 * kRhythm;
constexpr int kMoneyDecimals = -1;  // as many as the locale has

using Content = ReportColumn::Content;

int DecimalsOf(const ReportColumn& column, const Platform& platform) {
  if (column.content == Content::Count) return 0;
  if (column.content != Content::Quantity) return kMoneyDecimals;
  return Settings(platform.registry).InvestmentDecimals();
}

}  // namespace

FrmExplain::FrmExplain(const QString& figure, std::vector<ExplainedRow> rows,
                       const ReportColumn& column, std::string currency, Platform& platform,
                       QWidget* parent)
    : FormDialog(QStringLiteral("FrmExplain"), platform.prompts, parent),
      rows_(std::move(rows)),
      locale_(platform.locale),
      currency_(std::move(currency)),
      isMoney_(column.content != Content::Count && column.header != "Quantity"),
      decimals_(DecimalsOf(column, platform)),
      find_(new SearchBox(this)),
      lvExplain_(new SortedTable(this)),
      model_(new ListModel(ExplainColumns(platform.locale), this)),
      search_(nullptr),
      lblSum_(new QLabel(this)),
      cmdRegister_(MakeButton(tr("Show in &Register"), "cmdAccept")) {
  setWindowTitle(tr("What the Figure Is Made Of"));
  MakeList();
  AddAbove(MakeArea(figure));
  cmdRegister_->setDefault(true);
  auto* close = MakeButton(tr("&Close"), "cmdCancel");
  close->setAutoDefault(false);
  AddButtonRow({}, {cmdRegister_, close});
  Fill();
  connect(cmdRegister_, &QPushButton::clicked, this, &FrmExplain::ShowRow);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  SetFirstField(lvExplain_);
  FocusFirstField();
  const QSize room = screen()->availableSize();
  resize(std::min(kWidth, room.width()), std::min(kHeight, room.height() - 8 * kRhythm));
}

QWidget* FrmExplain::MakeArea(const QString& figure) {
  auto* area = new QWidget(this);
  auto* lines = new QVBoxLayout(area);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(kRhythm);
  auto* title = new QLabel(Breakable(figure), area);
  title->setObjectName(QStringLiteral("lblFigure"));
  title->setTextFormat(Qt::PlainText);
  title->setFont(ScaledFont(1, QFont::DemiBold));
  title->setWordWrap(true);
  auto* head = new QHBoxLayout;
  head->setSpacing(2 * kRhythm);
  head->addWidget(title, 1, Qt::AlignTop);
  head->addWidget(find_, 0, Qt::AlignTop);
  lines->addLayout(head);
  lines->addWidget(lvExplain_, 1);
  lblSum_->setObjectName(QStringLiteral("lblSum"));
  lblSum_->setFont(ScaledFont(0, QFont::DemiBold));
  lblSum_->setAlignment(Qt::AlignRight);
  lblSum_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lines->addWidget(lblSum_);
  return area;
}

void FrmExplain::MakeList() {
  lvExplain_->setObjectName(QStringLiteral("lvExplain"));
  lvExplain_->setAccessibleName(windowTitle());
  lvExplain_->setSelectionMode(QAbstractItemView::SingleSelection);
  lvExplain_->setAlternatingRowColors(true);
  lvExplain_->setModel(model_);
  std::vector<ListTable::Column> widths;
  for (const ListColumn& column : model_->Columns()) {
    widths.push_back({column.width, column.stretch, column.smallest, column.leaves});
  }
  lvExplain_->SetColumns(std::move(widths));
  search_ = new ListSearch(locale_, *find_, *lvExplain_, *model_, this);
  connect(search_, &ListSearch::Narrowed, this, [this] {
    ShowSum();
    cmdRegister_->setEnabled(Chosen() != 0);
  });
  connect(lvExplain_, &SortedTable::SortChosen, this, [this] {
    const QModelIndex current = lvExplain_->currentIndex();
    const qint64 key = current.isValid() ? model_->Key(current.row()) : 0;
    model_->Sort(lvExplain_->Sorted());
    if (const int row = model_->RowOf(key); row >= 0) lvExplain_->ChooseRow(row);
  });
  connect(lvExplain_, &QAbstractItemView::activated, this, &FrmExplain::ShowRow);
  connect(lvExplain_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this] { cmdRegister_->setEnabled(Chosen() != 0); });
  auto* find = new QShortcut(QKeySequence::Find, this);
  connect(find, &QShortcut::activated, find_, &SearchBox::Enter);
}

void FrmExplain::Fill() {
  model_->SetRows(ExplainRowsOf(rows_, locale_, decimals_));
  // Nothing is converted: the columns say nothing.
  const bool isPlain = !isMoney_ || std::ranges::all_of(rows_, [&](const ExplainedRow& row) {
    return row.rate == 1 && (row.currency.empty() || row.currency == currency_);
  });
  lvExplain_->ShowColumn(static_cast<int>(ExplainColumn::Currency), !isPlain);
  lvExplain_->ShowColumn(static_cast<int>(ExplainColumn::Rate), !isPlain);
  lvExplain_->ShowColumn(
      static_cast<int>(ExplainColumn::Sign),
      std::ranges::any_of(rows_, [](const ExplainedRow& row) { return row.sign < 0; }));
  if (!rows_.empty()) lvExplain_->ChooseRow(0);
  cmdRegister_->setEnabled(Chosen() != 0);
  ShowSum();
}

void FrmExplain::ShowSum() {
  double total = 0;
  const int shown = model_->rowCount();
  for (int row = 0; row < shown; ++row) {
    total += rows_[static_cast<std::size_t>(model_->Key(row)) - 1].contribution;
  }
  if (decimals_ == kMoneyDecimals) total = RoundMoney(total);
  const QString made = (ToQt(locale_.FormatNumber(total, decimals_)) +
                        (isMoney_ ? QStringLiteral(" ") + ToQt(currency_) : QString()))
                           .trimmed();
  const QString count = locale().toString(shown);
  if (shown != model_->Whole()) {
    lblSum_->setText(
        tr("%1 of %2 rows, which make %3").arg(count, locale().toString(model_->Whole()), made));
  } else {
    lblSum_->setText(shown == 1 ? tr("1 row makes %1").arg(made)
                                : tr("%1 rows make %2").arg(count, made));
  }
}

std::int64_t FrmExplain::Chosen() const {
  const int row = lvExplain_->currentIndex().row();
  if (row < 0 || row >= model_->rowCount()) return 0;
  return rows_[static_cast<std::size_t>(model_->Key(row)) - 1].transactionId;
}

void FrmExplain::ShowRow() {
  if (Chosen() != 0) accept();
}

}  // namespace corvanta::inline app
