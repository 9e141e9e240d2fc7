#include "reconcile/ucReconcileStatement.h"

#include "controls/AmountEdit.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/CurrencyDecimals.h"
#include "reconcile/Reconciliation.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace corvanta::inline reconcile {

ucReconcileStatement::ucReconcileStatement(const Locale& locale, QWidget* parent)
    : QWidget(parent),
      locale_(locale),
      cmdStatement_(new QToolButton(this)),
      line_(new QWidget(this)),
      txtStatement_(new AmountEdit(locale, line_)),
      lblDifference_(new QLabel(line_)) {
  cmdStatement_->setObjectName(QStringLiteral("cmdStatement"));
  cmdStatement_->setText(tr("State&ment balance"));
  cmdStatement_->setToolTip(tr("Compare with the balance on the statement"));
  cmdStatement_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  cmdStatement_->setAutoRaise(true);
  cmdStatement_->setCheckable(true);
  cmdStatement_->setFocusPolicy(Qt::StrongFocus);
  txtStatement_->setObjectName(QStringLiteral("txtStatement"));
  txtStatement_->setAccessibleName(tr("Balance on the statement"));
  txtStatement_->SetMayBeEmpty();
  txtStatement_->clear();
  txtStatement_->setMinimumWidth(16 * kRhythm);
  lblDifference_->setObjectName(QStringLiteral("lblDifference"));
  lblDifference_->setTextFormat(Qt::PlainText);
  auto* line = new QHBoxLayout(line_);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(2 * kRhythm);
  line->addWidget(txtStatement_);
  line->addWidget(lblDifference_, 1);
  auto* whole = new QHBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->setSpacing(kRhythm);
  whole->addWidget(cmdStatement_);
  whole->addWidget(line_, 1);
  whole->addStretch();
  connect(cmdStatement_, &QToolButton::toggled, this, &ucReconcileStatement::Unfold);
  connect(txtStatement_, &QLineEdit::textChanged, this, &ucReconcileStatement::ShowDifference);
  Unfold(false);
}

void ucReconcileStatement::Unfold(bool isUnfolded) {
  cmdStatement_->setArrowType(isUnfolded ? Qt::LeftArrow : Qt::RightArrow);
  line_->setVisible(isUnfolded);
  if (!isUnfolded) return;
  txtStatement_->setFocus();
  txtStatement_->selectAll();
}

void ucReconcileStatement::Edit() {
  cmdStatement_->setChecked(true);
  Unfold(true);
}

bool ucReconcileStatement::IsAmount() const {
  return txtStatement_->text().trimmed().isEmpty() || txtStatement_->Amount().has_value();
}

void ucReconcileStatement::SetCurrency(const std::string& currency) {
  currency_ = currency;
  txtStatement_->SetDecimals(CurrencyDecimals(currency));
}

void ucReconcileStatement::ShowTotals(const ReconcileTotals& totals) {
  totals_ = &totals;
  ShowDifference();
}

bool ucReconcileStatement::IsTyping() const {
  return txtStatement_->hasFocus();
}

std::optional<double> ucReconcileStatement::Statement() const {
  if (txtStatement_->text().trimmed().isEmpty()) return std::nullopt;
  return txtStatement_->Amount();
}

void ucReconcileStatement::ShowDifference() {
  const std::optional<double> statement = Statement();
  if (!statement || totals_ == nullptr) {
    lblDifference_->setText(txtStatement_->text().trimmed().isEmpty() ? QString()
                                                                      : tr("This is no amount"));
    return;
  }
  const StatementDifference difference = DifferenceTo(*statement, *totals_, currency_);
  const QString amount = ToQt(difference.Text(locale_));
  lblDifference_->setText(difference.isBalanced ? tr("Difference: %1, balanced").arg(amount)
                                                : tr("Difference: %1").arg(amount));
  QFont font = lblDifference_->font();
  font.setWeight(difference.isBalanced ? QFont::DemiBold : QFont::Normal);
  lblDifference_->setFont(font);
}

}  // namespace corvanta::inline reconcile
