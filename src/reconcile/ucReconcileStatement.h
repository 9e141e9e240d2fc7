#pragma once

#include <QWidget>

#include <optional>
#include <string>

class QLabel;
class QToolButton;

namespace corvanta::inline controls {
class AmountEdit;
}

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline reconcile {

struct ReconcileTotals;

// The line that compares with the balance on a bank's paper. It stays folded away until the person
// asks for it.
class ucReconcileStatement : public QWidget {
  Q_OBJECT

 public:
  // The locale must outlive the line.
  ucReconcileStatement(const Locale& locale, QWidget* parent);

  // The code of the account's currency, in whose decimals balances are compared.
  void SetCurrency(const std::string& currency);
  // To be called when the totals have changed. They must stay where they are.
  void ShowTotals(const ReconcileTotals& totals);
  // Whether the balance is an amount, or none was entered.
  [[nodiscard]] bool IsAmount() const;
  // Unfolds the line, with the balance chosen to be typed over.
  void Edit();
  // Whether the person is typing the balance.
  [[nodiscard]] bool IsTyping() const;

 private:
  void Unfold(bool isUnfolded);
  void ShowDifference();
  [[nodiscard]] std::optional<double> Statement() const;

  const Locale& locale_;
  std::string currency_;
  const ReconcileTotals* totals_ = nullptr;
  QToolButton* cmdStatement_;
  QWidget* line_;
  AmountEdit* txtStatement_;
  QLabel* lblDifference_;
};

}  // namespace corvanta::inline reconcile
