#pragma once

#include "controls/QuietEnd.h"
#include "invest/InvestDialogs.h"
#include "invest/rates/CurrencyConverter.h"
#include "ledger/reference/ReferenceRecords.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace corvanta::inline controls {
class MutedLabel;
}  // namespace corvanta::inline controls

namespace corvanta::inline invest {

class ucCurrencyBox;

// The currency converter. Two amounts stand in it, one in a given currency and one in the currency
// that is picked; the one that was typed last is converted into the other.
class FrmCurrency : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  enum class Use {
    TakeOver,  // the amounts are taken over into a transaction
    Tool       // nobody waits for them
  };

  // `currency` is the code of the given currency; one that is empty stands for the locale's own.
  FrmCurrency(Use use, const InvestPlace& place, const std::string& currency);

  // The amount in the given currency to begin with; 0 leaves the field empty.
  void SetAmount(double amount);
  // The amounts that were taken over; nullopt while there are none.
  [[nodiscard]] const std::optional<CurrencyResult>& Result() const { return result_; }

 private:
  void MakeFields();
  void MakeButtons(Use use);
  void ShowGiven();
  void OpenDataSources();
  void MarkTyped(bool inCurrency);
  void MarkCurrencyChanged();
  void ShowDefault();
  [[nodiscard]] CurrencyForm Form() const;
  // False when it was refused, which the person knows.
  bool Convert();
  void Accept();
  void FocusField(const std::string& name);

  InvestPlace place_;
  Platform& platform_;
  CurrencyConverter converter_;
  std::string givenCode_;
  std::optional<CurrencyResult> result_;
  // Which amounts were typed since the last conversion, and which of them at last.
  bool isAmountTyped_ = false;
  bool isCurrencyTyped_ = false;
  bool isCurrencyLast_ = false;
  QLineEdit* txtAmount_;
  QLabel* lblCurrency_;
  ucCurrencyBox* cmbCurrency_;
  QLineEdit* txtAmountCurrency_;
  MutedLabel* lblRate_;
  QPushButton* cmdCurrency_ = nullptr;
  QPushButton* cmdSources_ = nullptr;
  QPushButton* cmdAccept_ = nullptr;
};

}  // namespace corvanta::inline invest
