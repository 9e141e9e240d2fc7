#pragma once

#include "invest/holdings/Holdings.h"
#include "platform/Settings.h"

#include <QWidget>

#include <optional>
#include <string>
#include <vector>

class QAction;
class QCheckBox;
class QComboBox;
class QHBoxLayout;

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

class PeriodBar;

// What a person chooses of the holdings: the account, how costs are counted, whether what is sold
// out is shown, the days that returns are of, and one currency for all.
class HoldingsBar : public QWidget {
  Q_OBJECT

 public:
  HoldingsBar(const Locale& locale, Date today, QWidget* parent);

  // What the usual periods are counted from.
  void SetToday(Date today);
  // The choice as it stands. Without a period the returns are of all days up to today.
  [[nodiscard]] HoldingsScope Scope(Date today) const;
  // The code that all is to be converted into; empty for none.
  [[nodiscard]] std::string Currency() const;
  void SetMethod(CostMethod method);
  // A button of that command behind the choices.
  void AddCommand(QAction* command);
  // The days in its two fields, and whether returns are of these. Sends no signal.
  void SetPeriod(const DateRange& dates, bool isInForce);
  [[nodiscard]] std::optional<DateRange> Period() const;
  // In force, or none where there are no days; what is in the fields then stays. Sends no signal.
  void SetPeriod(const std::optional<DateRange>& inForce);
  // Offers these; what was chosen stays so as far as it is there. Sends no signal.
  void SetAccounts(const std::vector<std::pair<std::int64_t, std::string>>& accounts);
  void SetCurrencies(const std::vector<std::string>& codes);

 Q_SIGNALS:
  void Changed();
  void MethodChosen();
  void CurrencyChosen();

 private:
  QComboBox* cmbAccount_;
  QComboBox* cmbMethod_;
  QComboBox* cmbCurrency_;
  QCheckBox* chkSold_;
  PeriodBar* period_;
  QHBoxLayout* below_;
};

}  // namespace corvanta::inline app
