#include "entry/FrmSchedule.h"

#include "controls/AmountEdit.h"
#include "controls/CommandEdge.h"
#include "controls/DateField.h"
#include "controls/MutedLabel.h"
#include "controls/PickBox.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "entry/QtOutlookText.h"
#include "entry/ScheduleOutlook.h"
#include "entry/ucCategoryBoxes.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

namespace corvanta::inline entry {
namespace {

// Enough to look ahead in a daily schedule that began decades ago.
constexpr std::size_t kMaxDates = 20000;
constexpr std::size_t kShownDates = 3;
// Two columns of them go on a small screen.
constexpr int kSmallestField = 24 * kRhythm;

constexpr const char* kHelp =
    "A schedule enters the same transaction again and again: from its start date on, in the steps "
    "of its frequency, as often as the number of payments says (0 for without end).\n\n"
    "Add to Account Automatically: as a forecast enters every payment up to the look-ahead of the "
    "options, when due enters it on its day. Without it a payment stands in the reminders until "
    "you "
    "post or skip it.\n\n"
    "Amount: without a sign, the type says where the money goes. A transfer into an account of "
    "another currency is converted when it is posted.\n\n"
    "Every time on the month's last day: 31 January, 28 February, 31 March. Without it a payment "
    "of "
    "the 31st goes on from the 28th of February.\n\n"
    "On weekends: a payment due on a Saturday or Sunday is booked on the working day before or "
    "after it.\n\n"
    "A change concerns what is still to come: payments posted up to today stay as they are and "
    "come no second time; those posted ahead that nobody has touched follow the change.";

}  // namespace

FrmSchedule::FrmSchedule(const EntryPlace& place, std::int64_t accountId)
    : FrmEntry(QStringLiteral("FrmSchedule"), tr("Schedule"), place, accountId),
      editor_(place.ledger, place.platform),
      cmbPeriod_(new QComboBox(this)),
      dtFrom_(new DateField(place.platform.locale, place.platform.clock, this)),
      txtNumber_(new AmountEdit(place.platform.locale, this, AmountText::Whole)),
      lblNext_(new MutedLabel(this)),
      chkAutomated_(new QCheckBox(tr("Add to Account Automatica&lly"), this)),
      cmbAutomated_(new QComboBox(this)),
      chkMonthEnd_(new QCheckBox(tr("E&very time on the month's last day"), this)),
      cmbWeekend_(new QComboBox(this)) {
  MakeFields();
  MakeDayFields();
  MakeTools();
  AddButtons();
  ConnectFields();
}

void FrmSchedule::MakeFields() {
  auto* endless = new MutedLabel(this);
  endless->setText(tr("0 for no end"));
  chkAutomated_->setToolTip(
      tr("Selecting this option Schedule transactions will be added when due."));
  cmbAutomated_->setAccessibleName(tr("When it is added"));
  cmbAutomated_->setToolTip(
      tr("As a forecast: every payment up to the look-ahead of the options.\n"
         "When due: each payment on its day."));
  cmbAutomated_->addItem(tr("as a forecast"), static_cast<int>(AddToAccount::Ahead));
  cmbAutomated_->addItem(tr("when due"), static_cast<int>(AddToAccount::WhenDue));
  // At its full height, so that nothing below moves while it changes.
  lblNext_->setWordWrap(true);
  lblNext_->setMinimumHeight(kOutlookLines * fontMetrics().lineSpacing());
  lblNext_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  // What is paid at the left, when at the right: in one column they are too high for small screens.
  SetSmallestField(kSmallestField);
  AddAccountRows();
  AddPayeeRows();
  AddTextRows();
  StartColumn();
  AddField(tr("&Frequency:"), cmbPeriod_, "cmbPeriod");
  AddField(tr("S&tart Date:"), dtFrom_, "dtFrom");
  AddField(tr("N&umber of Payments:"), txtNumber_, "txtNumber", endless);
  AddTick(chkMonthEnd_, "chkMonthEnd");
  AddField(tr("On &weekends:"), cmbWeekend_, "cmbWeekend");
  AddField(tr("Next:"), lblNext_, "lblNext");
  AddTick(chkAutomated_, "chkAutomated");
  AddTick(cmbAutomated_, "cmbAutomated");
  // The accounts are filled already in a new schedule.
  SetFirstField(cmbPeriod_);
}

void FrmSchedule::MakeDayFields() {
  chkMonthEnd_->setToolTip(tr("31 January, 28 or 29 February, 31 March, and so on"));
  cmbWeekend_->setToolTip(tr("Where a payment goes that is due on a Saturday or Sunday"));
  const auto add = [this](const QString& text, WeekendRule rule) {
    cmbWeekend_->addItem(text, static_cast<int>(rule));
  };
  add(tr("stay on the day"), WeekendRule::Stay);
  add(tr("working day before"), WeekendRule::Before);
  add(tr("working day after"), WeekendRule::After);
}

void FrmSchedule::MakeTools() {
  auto* allocate = MakeButton(tr("&Allocate..."), "cmdAllocate");
  allocate->setToolTip(tr("Allocate Item"));
  auto* help = MakeButton(tr("&Help"), "cmdHelp");
  AddTools({allocate, help});
  connect(allocate, &QPushButton::clicked, this, &FrmSchedule::Allocate);
  connect(help, &QPushButton::clicked, this, &FrmSchedule::Help);
}

void FrmSchedule::ConnectFields() {
  connect(cmbPeriod_, &QComboBox::currentIndexChanged, this, &FrmSchedule::ApplyPeriod);
  connect(dtFrom_, &QLineEdit::textChanged, this, &FrmSchedule::ShowNext);
  connect(txtNumber_, &QLineEdit::textChanged, this, &FrmSchedule::ShowNext);
  connect(chkMonthEnd_, &QCheckBox::toggled, this, &FrmSchedule::ShowNext);
  connect(cmbWeekend_, &QComboBox::currentIndexChanged, this, &FrmSchedule::ShowNext);
  connect(txtNumber_, &QLineEdit::editingFinished, this,
          [this] { txtNumber_->SetAmount(Number()); });
  connect(chkAutomated_, &QCheckBox::toggled, cmbAutomated_, &QWidget::setEnabled);
}

void FrmSchedule::Clear() {
  if (IsChanged() && place_.changed) place_.changed();
  Show(editor_.New(accountId_));
}

bool FrmSchedule::Load(std::int64_t key) {
  const auto form = editor_.Load(key);
  if (!form) return false;
  if (accountId_ == 0) accountId_ = form->accountId;
  Show(*form);
  return true;
}

void FrmSchedule::Prefill(const TransactionForm& transaction) {
  Show(editor_.From(transaction));
}

void FrmSchedule::Show(const ScheduleForm& form) {
  form_ = form;
  ShowFields(form);
  {
    // They say together when payments are due.
    const QSignalBlocker periods(cmbPeriod_);
    const QSignalBlocker start(dtFrom_);
    const QSignalBlocker number(txtNumber_);
    cmbPeriod_->clear();
    for (const PeriodRecord& row : place_.ledger.References().Periods()) {
      cmbPeriod_->addItem(ToQt(row.description), qlonglong{row.periodId});
    }
    cmbPeriod_->setCurrentIndex(cmbPeriod_->findData(qlonglong{form.periodId}));
    dtFrom_->SetDay(form.dateFrom);
    txtNumber_->SetAmount(form.number);
    ShowDays(form.days);
  }
  beforeOnce_.reset();
  ShowAutomated(form.addToAccount);
  ShowNext();
}

void FrmSchedule::ShowDays(const DayRule& days) {
  const QSignalBlocker monthEnd(chkMonthEnd_);
  const QSignalBlocker weekend(cmbWeekend_);
  chkMonthEnd_->setChecked(days.isMonthEnd);
  cmbWeekend_->setCurrentIndex(cmbWeekend_->findData(static_cast<int>(days.weekend)));
  AllowMonthEnd();
}

void FrmSchedule::AllowMonthEnd() {
  chkMonthEnd_->setEnabled(editor_.IsMonthly(cmbPeriod_->currentData().toLongLong()));
}

void FrmSchedule::ShowAutomated(AddToAccount add) {
  const bool isAutomated = add != AddToAccount::No;
  chkAutomated_->setChecked(isAutomated);
  cmbAutomated_->setEnabled(isAutomated);
  const AddToAccount how = isAutomated ? add : AddToAccount::Ahead;
  cmbAutomated_->setCurrentIndex(cmbAutomated_->findData(static_cast<int>(how)));
}

AddToAccount FrmSchedule::Automated() const {
  if (!chkAutomated_->isChecked()) return AddToAccount::No;
  return static_cast<AddToAccount>(cmbAutomated_->currentData().toInt());
}

int FrmSchedule::Number() const {
  const Locale& locale = place_.platform.locale;
  return ScheduleEditor::NumberOfPayments(locale.FormatNumber(txtNumber_->Amount().value_or(0), 0),
                                          locale);
}

void FrmSchedule::ReadPlan(ScheduleForm& form) const {
  form.periodId = cmbPeriod_->currentData().toLongLong();
  form.dateFrom = dtFrom_->Day();
  form.number = Number();
  form.days.isMonthEnd = chkMonthEnd_->isEnabled() && chkMonthEnd_->isChecked();
  form.days.weekend = static_cast<WeekendRule>(cmbWeekend_->currentData().toInt());
}

ScheduleForm FrmSchedule::Form() {
  ScheduleForm form = form_;
  ReadFields(form);
  ReadPlan(form);
  form.scheduleId = Key();
  form.addToAccount = Automated();
  return form;
}

void FrmSchedule::ShowNext() {
  RunCommand(place_.platform.prompts, [this] {
    ScheduleForm plan = form_;
    ReadPlan(plan);
    lblNext_->setText(NextText(plan));
  });
}

QString FrmSchedule::NextText(const ScheduleForm& plan) {
  const bool isAsSaved = plan.periodId == form_.periodId && plan.dateFrom == form_.dateFrom &&
                         plan.number == form_.number &&
                         plan.days.isMonthEnd == form_.days.isMonthEnd;
  if (form_.isFinished && isAsSaved) return tr("Finished, every payment is posted or skipped");
  const SchedulePlan saved = editor_.PlanOf(plan);
  if (saved.noTimes < 0) return tr("No payment is left to post");
  std::vector<Date> dates = FirstScheduleDates(saved, kMaxDates);
  if (dates.empty()) return tr("Choose a frequency to see the next payments");
  const Platform& platform = place_.platform;
  std::vector<Date> open = editor_.NotPosted(plan.scheduleId, dates);
  for (auto* days : {&dates, &open}) {
    for (Date& day : *days) day = plan.days.BookedOn(day);
  }
  return OutlookText(LookAhead(dates, open, saved.noTimes, platform.clock.Today(), kShownDates),
                     platform.locale);
}

void FrmSchedule::ApplyType() {
  ScheduleForm form = form_;
  form.category = categories_->Category();
  ScheduleEditor::ChooseType(form, Type());
  form_.type = form.type;
  cmbCategory_->setEditText(ToQt(form.category));
}

void FrmSchedule::ApplyPeriod() {
  RunCommand(place_.platform.prompts, [this] {
    ScheduleForm form;
    form.number = Number();
    // Who passes "Once" on the way to another frequency keeps the number.
    if (beforeOnce_ && form.number == 1) form.number = *beforeOnce_;
    beforeOnce_.reset();
    const int number = form.number;
    editor_.ChoosePeriod(form, cmbPeriod_->currentData().toLongLong());
    if (form.number != number) beforeOnce_ = number;
    txtNumber_->SetAmount(form.number);
    AllowMonthEnd();
  });
  ShowNext();
}

void FrmSchedule::Allocate() {
  Run([this] { OpenLines(AllocationSource::Schedule); });
}

void FrmSchedule::ApplyLines(bool isChanged) {
  const auto row = editor_.Load(Key());
  if (!row) return;
  form_.hasLines = row->hasLines;
  ReadBack(isChanged, row->hasLines, row->SignedAmount());
}

void FrmSchedule::Help() {
  place_.platform.prompts.Tell("Schedules", kHelp);
}

}  // namespace corvanta::inline entry
