#pragma once

#include "app/reports/ReportState.h"

#include <QWidget>

#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QMenu;
class QToolButton;

namespace corvanta::inline controls {
class FlowLayout;
}

namespace corvanta::inline ledger {
struct CurrencyRecord;
}

namespace corvanta::inline app {

class FilterChip;
class PeriodBar;
class WhatIfBar;
struct ViewPlace;

// What a person chooses of a report beside the filter: its days, the currency that it converts
// into, and what it leaves out.
class ReportBar : public QWidget {
  Q_OBJECT

 public:
  ReportBar(const ViewPlace& place, QWidget* parent);

  // What the usual periods are counted from.
  void SetToday(Date today);
  // The days in the fields, in force or not, and whether they are. Sends no signal.
  void SetDates(const DateRange& dates, bool isInForce);
  [[nodiscard]] bool HasDates() const;
  // Offers these, the code behind each description; `first` stand above the others. What was chosen
  // stays so. Sends no signal.
  void SetCurrencies(const std::vector<CurrencyRecord>& all, const std::vector<std::string>& first);

  // Shows the choices of that state; `payments` names its payment types. Sends no signal.
  void Show(const ReportState& state, const QString& payments);
  // The days that a comparison sets beside those of the report while none are chosen.
  void ShowOtherDays(const DateRange& days);
  // Whether the budget of a month counts what was left before it. Sends no signal.
  void ShowCarries(bool carriesOver);
  // Puts the choices into the state.
  void Read(ReportState& state) const;

 Q_SIGNALS:
  void Changed();
  void CarryChosen(bool carriesOver);

 private:
  void MakeActions();
  void ShowActions();
  void Arrange();

  PeriodBar* period_;
  PeriodBar* other_;
  QCheckBox* chkTransfers_;
  QCheckBox* chkSubCategories_;
  QCheckBox* chkDefaultCurrency_;
  QComboBox* cmbCurrencyR_;
  QToolButton* cmdActions_;
  QMenu* actions_;
  QCheckBox* chkCarry_;
  FilterChip* payments_;
  WhatIfBar* whatIf_;
  FlowLayout* line_;
  bool hasPayments_ = false;
};

}  // namespace corvanta::inline app
