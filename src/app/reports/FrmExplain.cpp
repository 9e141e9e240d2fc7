#include "app/reports/FrmExplain.h"

#include "controls/ListTable.h"
#include "controls/LongText.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/Money.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Settings.h"

#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline app {
namespace {

constexpr int kKeyRole = Qt::UserRole;
constexpr int kWidth = 104 * kRhythm;
constexpr int kHeight = 64 * kRhythm;
constexpr int kRateDecimals = 4;
constexpr int kMoneyDecimals = -1;  // as many as the locale has

using Content = ReportColumn::Content;

int DecimalsOf(const ReportColumn& column, const Platform& platform) {
  if (column.content == Content::Count) return 0;
  if (column.content != Content::Quantity) return kMoneyDecimals;
  return Settings(platform.registry).InvestmentDecimals();
}

QStandardItem* Figure(const QString& text, double number, const QPalette& palette) {
  auto* item = new QStandardItem(text);
  item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  if (number < 0) item->setForeground(MoneyOutColour(palette));
  return item;
}

}  // namespace

FrmExplain::FrmExplain(const QString& figure, const std::vector<ExplainedRow>& rows,
                       const ReportColumn& column, const std::string& currency, Platform& platform,
                       QWidget* parent)
    : FormDialog(QStringLiteral("FrmExplain"), platform.prompts, parent),
      locale_(platform.locale),
      isMoney_(column.content != Content::Count && column.header != "Quantity"),
      decimals_(DecimalsOf(column, platform)),
      lvExplain_(new ListTable(this)),
      model_(new QStandardItemModel(this)),
      cmdRegister_(MakeButton(tr("Show in &Register"), "cmdAccept")) {
  setWindowTitle(tr("What the Figure Is Made Of"));
  auto* area = new QWidget(this);
  auto* lines = new QVBoxLayout(area);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(kRhythm);
  auto* head = new QLabel(Breakable(figure), area);
  head->setObjectName(QStringLiteral("lblFigure"));
  head->setTextFormat(Qt::PlainText);
  head->setFont(ScaledFont(1, QFont::DemiBold));
  head->setWordWrap(true);
  lines->addWidget(head);
  lines->addWidget(lvExplain_, 1);
  auto* sum = new QLabel(area);
  sum->setObjectName(QStringLiteral("lblSum"));
  sum->setFont(ScaledFont(0, QFont::DemiBold));
  sum->setAlignment(Qt::AlignRight);
  sum->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lines->addWidget(sum);
  AddAbove(area);
  MakeList();
  Fill(rows, currency);
  double total = 0;
  for (const ExplainedRow& row : rows) total += row.contribution;
  const QString made = Number(decimals_ == kMoneyDecimals ? RoundMoney(total) : total) +
                       (isMoney_ ? QStringLiteral(" ") + ToQt(currency) : QString());
  const auto count = static_cast<qulonglong>(rows.size());
  sum->setText((count == 1 ? tr("1 row makes %1").arg(made)
                           : tr("%1 rows make %2").arg(locale().toString(count), made))
                   .trimmed());
  cmdRegister_->setDefault(true);
  auto* close = MakeButton(tr("&Close"), "cmdCancel");
  close->setAutoDefault(false);
  AddButtonRow({}, {cmdRegister_, close});
  connect(cmdRegister_, &QPushButton::clicked, this, &FrmExplain::ShowRow);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  SetFirstField(lvExplain_);
  FocusFirstField();
  const QSize room = screen()->availableSize();
  resize(std::min(kWidth, room.width()), std::min(kHeight, room.height() - 8 * kRhythm));
}

void FrmExplain::MakeList() {
  lvExplain_->setObjectName(QStringLiteral("lvExplain"));
  lvExplain_->setAccessibleName(windowTitle());
  lvExplain_->setSelectionMode(QAbstractItemView::SingleSelection);
  lvExplain_->setAlternatingRowColors(true);
  const QStringList titles = {tr("Date"),     tr("Account"), tr("Payee"), tr("Amount"),
                              tr("Currency"), tr("Rate"),    tr("Sign"),  tr("Counts As")};
  model_->setHorizontalHeaderLabels(titles);
  for (const int figure : {3, 5, 7}) {
    model_->setHeaderData(figure, Qt::Horizontal, int(Qt::AlignRight | Qt::AlignVCenter),
                          Qt::TextAlignmentRole);
  }
  lvExplain_->setModel(model_);
  const auto width = [this](const QString& sample) {
    return fontMetrics().horizontalAdvance(sample) + 3 * kRhythm;
  };
  const int money = width(ToQt(locale_.FormatNumber(-999999.99)));
  const int name = width(QStringLiteral("A name of some"));
  lvExplain_->SetColumns(
      {{width(ToQt(locale_.FormatShortDate(*Date::FromYmd(2028, 12, 28)))) + kRhythm, 0},
       {name, 2, name / 2},
       {name, 3, name / 2},
       {money, 0},
       {width(titles[4]), 0, 0, 2},
       {width(QStringLiteral("99.9999")), 0, 0, 3},
       {width(titles[6]), 0, 0, 1},
       {std::max(money, width(titles[7])), 0}});
  connect(lvExplain_, &QAbstractItemView::activated, this, &FrmExplain::ShowRow);
  connect(lvExplain_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this] { cmdRegister_->setEnabled(Chosen() != 0); });
}

void FrmExplain::Fill(const std::vector<ExplainedRow>& rows, const std::string& currency) {
  for (const ExplainedRow& row : rows) {
    auto* day = new QStandardItem(row.date ? ToQt(locale_.FormatShortDate(*row.date)) : QString());
    day->setData(static_cast<qlonglong>(row.transactionId), kKeyRole);
    auto* payee = new QStandardItem(ToQt(row.payee));
    if (row.transactionId == 0) payee->setForeground(MutedText(palette()));
    model_->appendRow({day, new QStandardItem(ToQt(row.account)), payee,
                       Figure(Number(row.amount), row.amount, palette()),
                       new QStandardItem(ToQt(row.currency)),
                       Figure(ToQt(locale_.FormatNumber(row.rate, kRateDecimals)), 0, palette()),
                       new QStandardItem(row.sign < 0 ? QStringLiteral("−") : QStringLiteral("+")),
                       Figure(Number(row.contribution), row.contribution, palette())});
  }
  // Nothing is converted: the columns say nothing.
  const bool isPlain = !isMoney_ || std::ranges::all_of(rows, [&](const ExplainedRow& row) {
    return row.rate == 1 && (row.currency.empty() || row.currency == currency);
  });
  lvExplain_->ShowColumn(4, !isPlain);
  lvExplain_->ShowColumn(5, !isPlain);
  lvExplain_->ShowColumn(
      6, std::ranges::any_of(rows, [](const ExplainedRow& row) { return row.sign < 0; }));
  if (!rows.empty()) lvExplain_->selectRow(0);
  cmdRegister_->setEnabled(Chosen() != 0);
}

QString FrmExplain::Number(double number) const {
  return ToQt(locale_.FormatNumber(number, decimals_));
}

std::int64_t FrmExplain::Chosen() const {
  const QModelIndex index = lvExplain_->currentIndex();
  return index.isValid() ? index.siblingAtColumn(0).data(kKeyRole).toLongLong() : 0;
}

void FrmExplain::ShowRow() {
  if (Chosen() != 0) accept();
}

}  // namespace corvanta::inline app
