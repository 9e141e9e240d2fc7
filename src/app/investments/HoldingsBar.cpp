#include "app/investments/HoldingsBar.h"

#include "app/filter/PeriodBar.h"
#include "controls/QtText.h"
#include "controls/Style.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QToolButton>

namespace corvanta::inline app {
namespace {

// Long before anything could be bought with a computer's help.
constexpr int kFirstYear = 1900;

QComboBox* MakeBox(const char* name, const QString& accessibleName, QWidget* parent) {
  auto* box = new QComboBox(parent);
  box->setObjectName(QLatin1String(name));
  box->setAccessibleName(accessibleName);
  box->setToolTip(accessibleName);
  // A long name of an account must not widen the window.
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->setMinimumContentsLength(12);
  return box;
}

}  // namespace

HoldingsBar::HoldingsBar(const Locale& locale, Date today, QWidget* parent)
    : QWidget(parent),
      cmbAccount_(MakeBox("cmbHoldingsAccount", tr("The account whose holdings are shown"), this)),
      cmbMethod_(MakeBox("cmbCostMethod", tr("How the cost of what is sold is counted"), this)),
      cmbCurrency_(MakeBox("cmbHoldingsCurrency", tr("One currency for the total"), this)),
      chkSold_(new QCheckBox(tr("Sold o&ut"), this)),
      period_(new PeriodBar(locale, this)),
      below_(new QHBoxLayout) {
  chkSold_->setObjectName(QStringLiteral("chkSold"));
  chkSold_->setToolTip(tr("Show also what nothing is left of"));
  cmbMethod_->addItems({tr("Average cost"), tr("First in, first out")});
  period_->SetDates({today.AddDays(-30), today});
  period_->layout()->setContentsMargins(0, 0, 0, 0);
  // The register has the fields of that name.
  for (auto* part : period_->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    part->setObjectName(QStringLiteral("holdings_") + part->objectName());
    if (qobject_cast<QCheckBox*>(part) != nullptr) {
      part->setToolTip(tr("The returns of these days, instead of all"));
    }
  }
  auto* line = new QGridLayout(this);
  line->setContentsMargins(2 * kRhythm, 0, 2 * kRhythm, kRhythm);
  line->setHorizontalSpacing(kRhythm);
  line->setVerticalSpacing(kRhythm / 2);
  line->addWidget(cmbAccount_, 0, 0);
  line->addWidget(cmbMethod_, 0, 1);
  line->addWidget(cmbCurrency_, 0, 2);
  line->addWidget(chkSold_, 0, 3);
  below_->setSpacing(kRhythm);
  below_->addWidget(period_);
  line->addLayout(below_, 1, 0, 1, 5, Qt::AlignLeft);
  line->setColumnStretch(4, 1);
  SetAccounts({});
  SetCurrencies({});
  connect(cmbAccount_, &QComboBox::activated, this, &HoldingsBar::Changed);
  connect(cmbMethod_, &QComboBox::activated, this, &HoldingsBar::MethodChosen);
  connect(cmbCurrency_, &QComboBox::activated, this, &HoldingsBar::CurrencyChosen);
  connect(chkSold_, &QCheckBox::clicked, this, &HoldingsBar::Changed);
  connect(period_, &PeriodBar::Changed, this, &HoldingsBar::Changed);
}

void HoldingsBar::SetToday(Date today) {
  period_->SetToday(today);
}

HoldingsScope HoldingsBar::Scope(Date today) const {
  HoldingsScope scope;
  scope.accountId = cmbAccount_->currentData().toLongLong();
  scope.method = static_cast<CostMethod>(cmbMethod_->currentIndex());
  scope.withSold = chkSold_->isChecked();
  const std::optional<DateRange> chosen = period_->InForce();
  scope.period = chosen ? corvanta::Period{chosen->start, chosen->end}
                        : corvanta::Period{Date::FromYmd(kFirstYear, 1, 1).value_or(today), today};
  return scope;
}

std::string HoldingsBar::Currency() const {
  return FromQt(cmbCurrency_->currentData().toString());
}

void HoldingsBar::AddCommand(QAction* command) {
  auto* button = new QToolButton(this);
  button->setObjectName(QStringLiteral("cmdHoldingsDownload"));
  button->setDefaultAction(command);
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button->setAutoRaise(true);
  below_->addWidget(button);
}

void HoldingsBar::SetMethod(CostMethod method) {
  cmbMethod_->setCurrentIndex(static_cast<int>(method));
}

void HoldingsBar::SetPeriod(const DateRange& dates, bool isInForce) {
  period_->SetDates(dates);
  period_->SetInForce(isInForce);
}

void HoldingsBar::SetPeriod(const std::optional<DateRange>& inForce) {
  if (inForce) period_->SetDates(*inForce);
  period_->SetInForce(inForce.has_value());
}

std::optional<DateRange> HoldingsBar::Period() const {
  return period_->InForce();
}

void HoldingsBar::SetAccounts(const std::vector<std::pair<std::int64_t, std::string>>& accounts) {
  const QSignalBlocker quiet(cmbAccount_);
  const QVariant chosen = cmbAccount_->currentData();
  cmbAccount_->clear();
  cmbAccount_->addItem(tr("All accounts"), QVariant::fromValue<qlonglong>(0));
  for (const auto& [key, name] : accounts) {
    cmbAccount_->addItem(ToQt(name), QVariant::fromValue<qlonglong>(key));
  }
  cmbAccount_->setCurrentIndex(std::max(0, cmbAccount_->findData(chosen)));
}

void HoldingsBar::SetCurrencies(const std::vector<std::string>& codes) {
  const QSignalBlocker quiet(cmbCurrency_);
  const QVariant chosen = cmbCurrency_->currentData();
  cmbCurrency_->clear();
  cmbCurrency_->addItem(tr("Each currency"), QString());
  for (const std::string& code : codes) {
    cmbCurrency_->addItem(tr("All in %1").arg(ToQt(code)), ToQt(code));
  }
  cmbCurrency_->setCurrentIndex(std::max(0, cmbCurrency_->findData(chosen)));
}

}  // namespace corvanta::inline app
