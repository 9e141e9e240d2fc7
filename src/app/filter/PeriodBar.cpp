#include "app/filter/PeriodBar.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"
#include "platform/Locale.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>

namespace corvanta::inline app {
namespace {

QString NameOf(PeriodPreset preset) {
  switch (preset) {
    case PeriodPreset::ThisMonth:
      return PeriodBar::tr("&This Month");
    case PeriodPreset::LastMonth:
      return PeriodBar::tr("&Last Month");
    case PeriodPreset::ThisYear:
      return PeriodBar::tr("This &Year");
    case PeriodPreset::LastTwelveMonths:
      return PeriodBar::tr("Last &12 Months");
    case PeriodPreset::All:
      return PeriodBar::tr("&All");
  }
  return {};
}

DateRange RangeOf(const Period& period) {
  return {period.from, period.to};
}

// The form in which the locale writes a day, in the letters of a date field. It is read off a day
// whose year, month and day cannot be taken for each other.
QString DayFormat(const Locale& locale) {
  QString form = ToQt(locale.FormatShortDate(*Date::FromYmd(2031, 12, 25)));
  form.replace(
      form.contains(QStringLiteral("2031")) ? QStringLiteral("2031") : QStringLiteral("31"),
      QStringLiteral("yyyy"));
  form.replace(QStringLiteral("12"), QStringLiteral("MM"));
  return form.replace(QStringLiteral("25"), QStringLiteral("dd"));
}

QDateEdit* DayField(const char* name, const QString& accessibleName, const Locale& locale,
                    QWidget* parent) {
  auto* field = new QDateEdit(parent);
  field->setObjectName(QLatin1String(name));
  field->setAccessibleName(accessibleName);
  field->setDisplayFormat(DayFormat(locale));
  field->setCalendarPopup(true);
  // Typing a day must not read the register at every key.
  field->setKeyboardTracking(false);
  field->setDateRange(QDate(1900, 1, 1), QDate(9999, 12, 31));
  return field;
}

}  // namespace

PeriodBar::PeriodBar(const Locale& locale, QWidget* parent)
    : QWidget(parent),
      chkUnset_(new QCheckBox(tr("Perio&d"), this)),
      from_(DayField("dtpFrom", tr("First day of the period"), locale, this)),
      to_(DayField("dtpTo", tr("Last day of the period"), locale, this)),
      cmdPeriods_(new QToolButton(this)),
      presets_(new QMenu(this)) {
  setObjectName(QStringLiteral("pnlPeriod"));
  chkUnset_->setObjectName(QStringLiteral("chkUnset"));
  chkUnset_->setToolTip(tr("Show only the transactions between these days"));
  auto* line = new QHBoxLayout(this);
  SetBelow(false);
  line->addWidget(chkUnset_);
  line->addWidget(from_);
  line->addWidget(new QLabel(QStringLiteral("–"), this));
  line->addWidget(to_);
  FillPresets();
  line->addWidget(cmdPeriods_);
  SetInForce(false);
  connect(chkUnset_, &QCheckBox::toggled, this, [this](bool inForce) {
    SetInForce(inForce);
    Q_EMIT Changed();
  });
  connect(from_, &QDateEdit::dateChanged, this, [this] { ApplyDate(true); });
  connect(to_, &QDateEdit::dateChanged, this, [this] { ApplyDate(false); });
}

DateRange PeriodBar::Dates() const {
  return {FromQt(from_->date()), FromQt(to_->date())};
}

std::optional<DateRange> PeriodBar::InForce() const {
  if (!chkUnset_->isChecked()) return std::nullopt;
  return Dates();
}

void PeriodBar::SetDates(const DateRange& dates) {
  const QSignalBlocker quietFrom(from_);
  const QSignalBlocker quietTo(to_);
  from_->setDate(ToQt(dates.start));
  to_->setDate(ToQt(dates.end));
}

void PeriodBar::SetInForce(bool inForce) {
  const QSignalBlocker quiet(chkUnset_);
  chkUnset_->setChecked(inForce);
  from_->setEnabled(inForce);
  to_->setEnabled(inForce);
}

void PeriodBar::SetBelow(bool isBelow) {
  layout()->setSpacing(isBelow ? kRhythm / 2 : kRhythm);
  // Beside the head of the view it stands on the line of its box.
  layout()->setContentsMargins(isBelow ? 2 * kRhythm : kRhythm, isBelow ? 0 : kRhythm * 3 / 2,
                               2 * kRhythm, kRhythm);
}

void PeriodBar::AddTool(QWidget* tool) {
  layout()->addWidget(tool);
}

void PeriodBar::FillPresets() {
  cmdPeriods_->setObjectName(QStringLiteral("cmdPeriods"));
  cmdPeriods_->setIcon(SvgIcon(QStringLiteral("calendar")));
  cmdPeriods_->setAccessibleName(tr("Usual periods"));
  cmdPeriods_->setToolTip(tr("This month, last month, this year ..."));
  cmdPeriods_->setPopupMode(QToolButton::InstantPopup);
  cmdPeriods_->setFocusPolicy(Qt::StrongFocus);
  cmdPeriods_->setMenu(presets_);
  for (const PeriodPreset preset : kPeriodPresets) {
    QAction* entry = presets_->addAction(NameOf(preset));
    entry->setObjectName(QStringLiteral("mnuPeriod%1").arg(static_cast<int>(preset)));
    entry->setCheckable(true);
    connect(entry, &QAction::triggered, this, [this, preset] { ApplyPreset(preset); });
    // The one that is in force carries a tick.
    connect(presets_, &QMenu::aboutToShow, entry, [this, entry, preset] {
      const auto days = DaysOf(preset, today_);
      entry->setChecked(days ? InForce() == RangeOf(*days) : !InForce());
    });
  }
}

void PeriodBar::ApplyPreset(PeriodPreset preset) {
  const auto days = DaysOf(preset, today_);
  if (days) SetDates(RangeOf(*days));
  SetInForce(days.has_value());
  Q_EMIT Changed();
}

// The other end moves along when the days would cross.
void PeriodBar::ApplyDate(bool isStart) {
  if (from_->date() > to_->date()) {
    QDateEdit* other = isStart ? to_ : from_;
    const QSignalBlocker quiet(other);
    other->setDate(isStart ? from_->date() : to_->date());
  }
  Q_EMIT Changed();
}

}  // namespace corvanta::inline app
