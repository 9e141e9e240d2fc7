#pragma once

#include "app/ReferenceView.h"
#include "ledger/AccountRow.h"
#include "ledger/clsCorvanta.h"

namespace corvanta {

class Locale;

// The view of "AccountShow": the accounts as a list, and what they come to in each currency.
class AccountsView : public ReferenceView {
  Q_OBJECT

 public:
  // `addAction` is what a data file without accounts offers.
  AccountsView(const Locale& locale, QAction* addAction, QWidget* parent);

  void ShowAccounts(const std::vector<AccountRow>& accounts);

 private:
  [[nodiscard]] ListRow RowOf(const AccountRow& account) const;
  [[nodiscard]] QString Totals(const std::vector<AccountRow>& accounts) const;

  QAction* addAction_;
  const Locale& locale_;
};

}  // namespace corvanta
