#pragma once

#include "app/lists/ReferenceView.h"
#include "ledger/accounts/AccountRow.h"

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

// The view of "AccountShow": the accounts as a list, and what they come to in each currency.
class AccountsView : public ReferenceView {
  Q_OBJECT

 public:
  AccountsView(const ViewPlace& place, QWidget* parent);

  // As the window has read them.
  void Show(const ViewCommand& command) override;
  [[nodiscard]] std::int64_t ChosenAccount() const override { return ChosenKey(); }

 protected:
  // Like the chosen one.
  void Add() override;
  // The account's register.
  void Open(std::int64_t key) override;
  // The account of any view that has one.
  [[nodiscard]] std::int64_t CommandKey() const override;

 private:
  [[nodiscard]] ListRow RowOf(const AccountRow& account) const;
  [[nodiscard]] QStringList Totals(const std::vector<AccountRow>& accounts) const;

  const Locale& locale_;
};

}  // namespace corvanta::inline app
