#include "app/reports/ReportBar.h"

#include "app/ViewHost.h"
#include "app/filter/FilterChip.h"
#include "app/filter/PeriodBar.h"
#include "app/reports/WhatIfBar.h"
#include "controls/FlowLayout.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/investments/InvestmentRecord.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/Platform.h"
#include "reports/query/ReportCatalogue.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace corvanta::inline app {
namespace {

constexpr int kLongestCurrency = 22;  // characters

QCheckBox* MakeTick(const QString& text, const char* name, const QString& tip, QWidget* parent) {
  auto* tick = new QCheckBox(text, parent);
  tick->setObjectName(QLatin1String(name));
  tick->setToolTip(tip);
  return tick;
}

// The register has the fields of the usual names.
void Rename(const PeriodBar& period, const std::array<const char*, 4>& names) {
  constexpr std::array kUsual = {"dtpFrom", "dtpTo", "chkUnset", "cmdPeriods"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    period.findChild<QWidget*>(QLatin1String(kUsual.at(i)))
        ->setObjectName(QLatin1String(names.at(i)));
  }
}

// The period that a comparison sets beside the other one.
PeriodBar* MakeOther(const Locale& locale, QWidget* parent) {
  auto* other = new PeriodBar(locale, parent);
  other->layout()->setContentsMargins(0, 0, 0, 0);
  auto* tick = other->findChild<QCheckBox*>(QStringLiteral("chkUnset"));
  tick->setText(ReportBar::tr("Compare &with"));
  tick->setToolTip(
      ReportBar::tr("Compare with these days; otherwise with as many just before the others"));
  const auto say = [other](const char* name, const QString& text) {
    other->findChild<QWidget*>(QLatin1String(name))->setAccessibleName(text);
  };
  say("dtpFrom", ReportBar::tr("First day of the other period"));
  say("dtpTo", ReportBar::tr("Last day of the other period"));
  Rename(*other, {"DTPickSOther", "DTPickEOther", "chkOther", "cmdPeriodsOther"});
  return other;
}

// The keys go through the parts as they stand, whichever was made first.
void OrderTabs(const std::vector<QWidget*>& parts, WhatIfBar& whatIf) {
  std::vector<QWidget*> stops;
  const auto add = [&stops](QWidget* widget) {
    if (!widget->isWindow() && widget->focusPolicy() != Qt::NoFocus) stops.push_back(widget);
  };
  std::vector<QWidget*> all = parts;
  all.push_back(&whatIf);
  for (QWidget* part : all) {
    add(part);
    if (part->focusPolicy() != Qt::NoFocus) continue;
    for (auto* field : part->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) add(field);
  }
  for (std::size_t stop = 1; stop < stops.size(); ++stop) {
    QWidget::setTabOrder(stops[stop - 1], stops[stop]);
  }
}

}  // namespace

ReportBar::ReportBar(const ViewPlace& place, QWidget* parent)
    : QWidget(parent),
      period_(new PeriodBar(place.platform.locale, this)),
      other_(MakeOther(place.platform.locale, this)),
      chkTransfers_(MakeTick(tr("Leave out &transfers"), "chkTransfers",
                             tr("Count no money that moves between accounts"), this)),
      chkSubCategories_(MakeTick(tr("Su&b-categories"), "chkSubCategories",
                                 tr("A row for each sub-category, or one for each category"),
                                 this)),
      chkDefaultCurrency_(MakeTick(tr("Con&vert into"), "chkDefaultCurrency",
                                   tr("Convert the totals with today's exchange rates"), this)),
      cmbCurrencyR_(new QComboBox(this)),
      cmdActions_(new QToolButton(this)),
      actions_(new QMenu(this)),
      chkCarry_(MakeTick(tr("Carr&y on what is left"), "chkCarry",
                         tr("Count what was left over, or overspent, in the months of the year "
                            "before this one"),
                         this)),
      payments_(new FilterChip(this)),
      whatIf_(new WhatIfBar(place, this)),
      line_(new FlowLayout(nullptr)) {
  setObjectName(QStringLiteral("pnlReport"));
  period_->layout()->setContentsMargins(0, 0, 0, 0);
  Rename(*period_, {"DTPickSRep", "DTPickERep", "chkUnsetR", "cmdPeriodsR"});
  cmbCurrencyR_->setObjectName(QStringLiteral("cmbCurrencyR"));
  cmbCurrencyR_->setAccessibleName(tr("The currency of the report"));
  cmbCurrencyR_->setToolTip(cmbCurrencyR_->accessibleName());
  // A long name must not widen the window.
  cmbCurrencyR_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  cmbCurrencyR_->setMinimumContentsLength(kLongestCurrency);
  MakeActions();
  payments_->SetCaption(QStringLiteral("Payment"), tr("Payment types"));
  payments_->hide();
  chkSubCategories_->setChecked(true);
  Arrange();
  connect(period_, &PeriodBar::Changed, this, &ReportBar::Changed);
  connect(other_, &PeriodBar::Changed, this, &ReportBar::Changed);
  connect(whatIf_, &WhatIfBar::Changed, this, &ReportBar::Changed);
  connect(chkCarry_, &QCheckBox::clicked, this, &ReportBar::CarryChosen);
  for (QCheckBox* tick : {chkTransfers_, chkSubCategories_, chkDefaultCurrency_}) {
    connect(tick, &QCheckBox::clicked, this, &ReportBar::Changed);
  }
  connect(cmbCurrencyR_, &QComboBox::activated, this, [this] {
    // Another currency that nothing is converted into changes nothing.
    if (chkDefaultCurrency_->isChecked()) Q_EMIT Changed();
  });
  connect(payments_, &FilterChip::Removed, this, [this] {
    hasPayments_ = false;
    Q_EMIT Changed();
  });
}

void ReportBar::Arrange() {
  auto* currency = new QWidget(this);
  auto* pair = new QHBoxLayout(currency);
  pair->setContentsMargins(0, 0, 0, 0);
  pair->setSpacing(kRhythm);
  pair->addWidget(chkDefaultCurrency_);
  pair->addWidget(cmbCurrencyR_);
  line_->setSpacing(kRhythm);
  auto* lines = new QVBoxLayout(this);
  lines->setContentsMargins(2 * kRhythm, 0, 2 * kRhythm, kRhythm);
  lines->setSpacing(kRhythm);
  lines->addLayout(line_);
  lines->addWidget(whatIf_);
  const std::vector<QWidget*> parts = {period_,           other_,    chkTransfers_, currency,
                                       chkSubCategories_, chkCarry_, cmdActions_,   payments_};
  for (QWidget* part : parts) {
    // Ticks stand in the middle of a row as the fields do.
    part->setMinimumHeight(period_->sizeHint().height());
    line_->addWidget(part);
  }
  OrderTabs(parts, *whatIf_);
}

void ReportBar::MakeActions() {
  cmdActions_->setObjectName(QStringLiteral("cmdActionFilter"));
  cmdActions_->setToolTip(tr("Which investment transactions are counted"));
  cmdActions_->setPopupMode(QToolButton::InstantPopup);
  cmdActions_->setFocusPolicy(Qt::StrongFocus);
  cmdActions_->setMenu(actions_);
  for (const InvestActionName& name : kInvestActions) {
    QAction* action = actions_->addAction(QLatin1String(name.name));
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [this] {
      ShowActions();
      Q_EMIT Changed();
    });
  }
  ShowActions();
}

void ReportBar::ShowActions() {
  QStringList names;
  for (const QAction* action : actions_->actions()) {
    if (action->isChecked()) names.append(action->text());
  }
  cmdActions_->setText(names.isEmpty() ? tr("All actions") : names.join(QStringLiteral(", ")));
}

void ReportBar::SetToday(Date today) {
  period_->SetToday(today);
  other_->SetToday(today);
}

void ReportBar::SetDates(const DateRange& dates, bool isInForce) {
  period_->SetDates(dates);
  period_->SetInForce(isInForce);
}

bool ReportBar::HasDates() const {
  return period_->InForce().has_value();
}

void ReportBar::SetCurrencies(const std::vector<CurrencyRecord>& all,
                              const std::vector<std::string>& first) {
  const QSignalBlocker quiet(cmbCurrencyR_);
  const QVariant chosen = cmbCurrencyR_->currentData();
  cmbCurrencyR_->clear();
  const auto add = [this](const CurrencyRecord& currency) {
    const QString code = ToQt(currency.currency);
    const QString behind = QStringLiteral(" (%1)").arg(code);
    QString text = ToQt(currency.description);
    // Many a description has it already.
    if (!text.endsWith(behind)) text += behind;
    cmbCurrencyR_->addItem(text, code);
  };
  const auto isFirst = [&first](const CurrencyRecord& currency) {
    return std::ranges::find(first, currency.currency) != first.end();
  };
  for (const CurrencyRecord& currency : all) {
    if (isFirst(currency)) add(currency);
  }
  if (cmbCurrencyR_->count() > 0) cmbCurrencyR_->insertSeparator(cmbCurrencyR_->count());
  for (const CurrencyRecord& currency : all) {
    if (!isFirst(currency)) add(currency);
  }
  // The separator is of no currency, as a first choice is.
  const int at = chosen.isValid() ? cmbCurrencyR_->findData(chosen) : 0;
  cmbCurrencyR_->setCurrentIndex(std::max(0, at));
}

void ReportBar::Show(const ReportState& state, const QString& payments) {
  if (state.dates) period_->SetDates(*state.dates);
  period_->SetInForce(state.dates.has_value());
  chkTransfers_->setChecked(state.withoutTransfers);
  chkTransfers_->setEnabled(state.report != kBalanceForecast);
  chkSubCategories_->setChecked(!state.foldsSubCategories);
  chkSubCategories_->setVisible(HasSubCategories(state.report));
  other_->setVisible(state.report == kTwoPeriods);
  if (state.otherDates) other_->SetDates(*state.otherDates);
  other_->SetInForce(state.otherDates.has_value());
  chkCarry_->setVisible(state.report == kBudgetOfMonth);
  whatIf_->setVisible(state.report == kBalanceForecast);
  whatIf_->Show(state.whatIf);
  chkDefaultCurrency_->setChecked(state.converts);
  if (const int at = cmbCurrencyR_->findData(ToQt(state.currency)); at >= 0) {
    cmbCurrencyR_->setCurrentIndex(at);
  }
  for (QAction* action : actions_->actions()) {
    action->setChecked(std::ranges::find(state.actions, FromQt(action->text())) !=
                       state.actions.end());
  }
  ShowActions();
  cmdActions_->setVisible(state.report == kInvestmentTransactions || !state.actions.empty());
  hasPayments_ = !state.paymentTypes.empty();
  payments_->Show(payments, payments);
  line_->invalidate();
  layout()->invalidate();
  updateGeometry();
}

void ReportBar::ShowOtherDays(const DateRange& days) {
  if (!other_->InForce()) other_->SetDates(days);
}

void ReportBar::ShowCarries(bool carriesOver) {
  chkCarry_->setChecked(carriesOver);
}

void ReportBar::Read(ReportState& state) const {
  state.dates = period_->InForce();
  state.otherDates = other_->InForce();
  state.whatIf = whatIf_->Payments();
  state.withoutTransfers = chkTransfers_->isChecked();
  state.foldsSubCategories = !chkSubCategories_->isChecked();
  state.converts = chkDefaultCurrency_->isChecked();
  state.currency = FromQt(cmbCurrencyR_->currentData().toString());
  state.actions.clear();
  for (const QAction* action : actions_->actions()) {
    if (action->isChecked()) state.actions.push_back(FromQt(action->text()));
  }
  if (!hasPayments_) state.paymentTypes.clear();
}

}  // namespace corvanta::inline app
