#include "reports/chart/ucReportChart.h"

#include "controls/CommandEdge.h"
#include "controls/EmptyState.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "reports/chart/ChartFile.h"
#include "reports/chart/QtChartPlot.h"
#include "reports/chart/ucChartLegend.h"
#include "reports/chart/ucChartView.h"

#include <QComboBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline reports {
namespace {
constexpr std::size_t kFewestBars = 4;
}

ucReportChart::ucReportChart(Platform& platform, QWidget* parent)
    : QWidget(parent),
      platform_(platform),
      cmbChartCurrency_(new QComboBox(this)),
      lblChartCurrency_(new QLabel(tr("Amounts &in:"), this)),
      cmdSaveChart_(new QPushButton(tr("Sa&ve Chart..."), this)),
      pages_(new QStackedWidget(this)),
      chart_(new ucChartView(platform.locale, this)),
      legend_(new ucChartLegend(this)) {
  auto* empty = new EmptyState(this);
  empty->Show(QStringLiteral("find"), tr("Nothing to draw"),
              tr("No row of the report has an amount. Choose another period or another filter."),
              nullptr);
  auto* drawn = new QWidget(pages_);
  auto* column = new QVBoxLayout(drawn);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(chart_, 1);
  column->addWidget(legend_);
  pages_->addWidget(drawn);
  pages_->addWidget(empty);
  MakeHead();
  setFocusProxy(chart_);
  connect(chart_, &ucChartView::RowChosen, this, &ucReportChart::RowChosen);
  connect(chart_, &ucChartView::FigureAsked, this, &ucReportChart::FigureAsked);
  ShowCurrency();
}

void ucReportChart::MakeHead() {
  cmbChartCurrency_->setObjectName(QStringLiteral("cmbChartCurrency"));
  cmbChartCurrency_->setAccessibleName(tr("Amounts in"));
  lblChartCurrency_->setBuddy(cmbChartCurrency_);
  cmdSaveChart_->setObjectName(QStringLiteral("cmdSaveChart"));
  cmdSaveChart_->setToolTip(tr("Write the chart into a file, as SVG or PNG"));
  auto* head = new QHBoxLayout;
  head->setContentsMargins(2 * kRhythm, kRhythm, 2 * kRhythm, 0);
  head->setSpacing(kRhythm);
  head->addWidget(lblChartCurrency_);
  head->addWidget(cmbChartCurrency_);
  head->addStretch(1);
  head->addWidget(cmdSaveChart_);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(0, 0, 0, 0);
  page->setSpacing(kRhythm);
  page->addLayout(head);
  page->addWidget(pages_, 1);
  connect(cmbChartCurrency_, &QComboBox::currentTextChanged, this, [this](const QString& chosen) {
    chosen_ = FromQt(chosen);
    currency_ = chosen_;
    ShowCurrency();
  });
  connect(cmdSaveChart_, &QPushButton::clicked, this, &ucReportChart::Save);
}

void ucReportChart::Show(const ReportTable& report) {
  report_ = report;
  const std::vector<std::string> currencies = ChartCurrencies(report_);
  const bool hasChosen = std::ranges::find(currencies, chosen_) != currencies.end();
  currency_ =
      hasChosen ? chosen_ : BuildOwnChart(report_, platform_.locale.CurrencyCode()).currency;
  {
    const QSignalBlocker quiet(cmbChartCurrency_);
    cmbChartCurrency_->clear();
    for (const std::string& currency : currencies) cmbChartCurrency_->addItem(ToQt(currency));
    cmbChartCurrency_->setCurrentText(ToQt(currency_));
  }
  cmbChartCurrency_->setVisible(currencies.size() > 1);
  lblChartCurrency_->setVisible(currencies.size() > 1);
  ShowCurrency();
}

void ucReportChart::ShowCurrency() {
  bars_ = MostBars();
  chart_->Show(BuildChart(report_, currency_, bars_));
  ShowBeside();
}

void ucReportChart::ShowBeside() {
  legend_->Show(chart_->Data());
  const bool isEmpty = chart_->Data().IsEmpty();
  cmdSaveChart_->setEnabled(!isEmpty);
  pages_->setCurrentIndex(isEmpty ? 1 : 0);
}

std::size_t ucReportChart::MostBars() const {
  const QFontMetrics metrics(ScaledFont(ChartTextStep(pages_->size())));
  // The marks and the legend stand below.
  const int room = pages_->height() / (metrics.height() + kRhythm / 4) - 4;
  return std::clamp(static_cast<std::size_t>(std::max(0, room)), kFewestBars, kMaxBars);
}

void ucReportChart::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  legend_->setFont(ScaledFont(ChartTextStep(pages_->size())));
  layout()->activate();
  if (MostBars() == bars_) return;
  bars_ = MostBars();
  chart_->ShowAgain(BuildChart(report_, currency_, bars_));
  ShowBeside();
}

ChartData ucReportChart::Whole() const {
  return BuildChart(report_, currency_);
}

const ChartData& ucReportChart::Shown() const {
  return chart_->Data();
}

std::optional<ChartFigure> ucReportChart::Chosen() const {
  const std::optional<ChartPlace> place = chart_->Chosen();
  return place ? FigureAt(chart_->Data(), place->series, place->category) : std::nullopt;
}

void ucReportChart::AddCommands(const QList<QAction*>& commands) {
  chart_->addActions(commands);
}

PrintTable ucReportChart::Printed() const {
  return PrintTableOf(Whole(), platform_.locale);
}

void ucReportChart::Save() {
  RunCommand(platform_.prompts, [this] { AskAndSaveChart(Whole(), platform_); });
}

}  // namespace corvanta::inline reports
