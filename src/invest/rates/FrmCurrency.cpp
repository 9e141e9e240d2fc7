#include "invest/rates/FrmCurrency.h"

#include "controls/CommandEdge.h"
#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/WaitCursor.h"
#include "invest/rates/ucCurrencyBox.h"
#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "platform/ArithmeticText.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace corvanta::inline invest {
namespace {

constexpr int kSmallestField = 30 * kRhythm;
constexpr int kMargin = 2 * kRhythm;
constexpr const char* kLastResort = "USD";

// What numbers are made of; whether it is one is found out when it is used.
QRegularExpression NumberCharacters(const Locale& locale) {
  const QString separators = QRegularExpression::escape(ToQt(locale.DecimalSeparator())) +
                             QRegularExpression::escape(ToQt(locale.GroupSeparator()));
  return QRegularExpression(QStringLiteral("[\\d\\s+()\\-%1]*").arg(separators));
}

QLineEdit* MakeAmount(const char* name, const QString& accessibleName, const Locale& locale,
                      QWidget* parent) {
  auto* field = new QLineEdit(parent);
  field->setObjectName(QLatin1String(name));
  field->setAccessibleName(accessibleName);
  field->setAlignment(Qt::AlignRight);
  field->setInputMethodHints(Qt::ImhFormattedNumbersOnly);
  field->setValidator(new QRegularExpressionValidator(NumberCharacters(locale), field));
  field->setMinimumWidth(kSmallestField);
  return field;
}

}  // namespace

FrmCurrency::FrmCurrency(Use use, const InvestPlace& place, const std::string& currency)
    : QuietEnd(place.parent),
      place_(place),
      platform_(place.platform),
      converter_(place.rates, place.platform.locale),
      txtAmount_(MakeAmount("txtAmount", tr("Amount"), platform_.locale, this)),
      lblCurrency_(new QLabel(this)),
      cmbCurrency_(new ucCurrencyBox(place.ledger.References().Currencies(), this)),
      txtAmountCurrency_(
          MakeAmount("txtAmountCurrency", tr("Amount in the currency"), platform_.locale, this)),
      lblRate_(new MutedLabel(this)) {
  setObjectName(QStringLiteral("FrmCurrency"));
  setWindowTitle(tr("Currency Lookup"));
  setModal(true);
  MakeFields();
  MakeButtons(use);
  givenCode_ = currency.empty() ? platform_.locale.CurrencyCode() : currency;
  if (givenCode_.empty()) givenCode_ = kLastResort;
  ShowGiven();
  ShowDefault();
  cmbCurrency_->setFocus();
}

void FrmCurrency::MakeFields() {
  lblCurrency_->setObjectName(QStringLiteral("lblCurrency"));
  lblCurrency_->setTextFormat(Qt::PlainText);
  cmbCurrency_->setObjectName(QStringLiteral("cmbCurrency"));
  cmbCurrency_->setAccessibleName(tr("Currency"));
  lblRate_->setObjectName(QStringLiteral("lblRate"));
  lblRate_->setTextFormat(Qt::PlainText);
  lblRate_->setMinimumHeight(lblRate_->fontMetrics().height());

  auto* fields = new QFormLayout;
  fields->setVerticalSpacing(kRhythm);
  fields->setHorizontalSpacing(2 * kRhythm);
  fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  fields->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  fields->addRow(tr("From:"), lblCurrency_);
  fields->addRow(tr("A&mount:"), txtAmount_);
  fields->addRow(tr("C&urrency:"), cmbCurrency_);
  fields->addRow(tr("&Worth:"), txtAmountCurrency_);
  fields->addRow(QString(), lblRate_);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  page->setSpacing(2 * kRhythm);
  page->addLayout(fields);
  page->addStretch(1);

  connect(txtAmount_, &QLineEdit::textEdited, this, [this] { MarkTyped(false); });
  connect(txtAmountCurrency_, &QLineEdit::textEdited, this, [this] { MarkTyped(true); });
  connect(cmbCurrency_, &QComboBox::currentTextChanged, this, &FrmCurrency::MarkCurrencyChanged);
}

void FrmCurrency::MakeButtons(Use use) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kRhythm);
  const auto add = [&](const QString& text, const char* name) {
    auto* button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    row->addWidget(button);
    return button;
  };
  cmdCurrency_ = add(tr("Con&vert"), "cmdCurrency");
  cmdCurrency_->setToolTip(tr("Fetch today's rate and convert the amount that was typed last"));
  cmdSources_ = add(tr("Data S&ources..."), "cmdSources");
  cmdSources_->setToolTip(tr("See and change where exchange rates come from"));
  row->addSpacing(2 * kRhythm);
  row->addStretch(1);
  if (use == Use::TakeOver) {
    cmdAccept_ = add(tr("U&se Amount"), "cmdAccept");
    cmdAccept_->setToolTip(tr("Take the amounts over into the transaction"));
    connect(cmdAccept_, &QPushButton::clicked, this,
            [this] { RunCommand(platform_.prompts, [this] { Accept(); }); });
  }
  auto* cancel = add(tr("&Close"), "cmdCancel");
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
  connect(cmdCurrency_, &QPushButton::clicked, this,
          [this] { RunCommand(platform_.prompts, [this] { Convert(); }); });
  connect(cmdSources_, &QPushButton::clicked, this,
          [this] { RunCommand(platform_.prompts, [this] { OpenDataSources(); }); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmCurrency::ShowGiven() {
  lblCurrency_->setText(ToQt(givenCode_));
  for (const CurrencyRecord& row : place_.ledger.References().Currencies()) {
    if (row.currency == givenCode_) lblCurrency_->setText(ToQt(CurrencyConverter::Entry(row)));
  }
}

void FrmCurrency::SetAmount(double amount) {
  txtAmount_->setText(amount == 0 ? QString() : ToQt(converter_.PlainNumber(amount)));
  MarkTyped(false);
}

void FrmCurrency::MarkTyped(bool inCurrency) {
  isCurrencyLast_ = inCurrency;
  (inCurrency ? isCurrencyTyped_ : isAmountTyped_) = true;
  lblRate_->clear();
  ShowDefault();
}

void FrmCurrency::MarkCurrencyChanged() {
  // The amount that was typed is as right as it was; the other one no longer goes with it.
  (isCurrencyLast_ ? isCurrencyTyped_ : isAmountTyped_) = true;
  (isCurrencyLast_ ? isAmountTyped_ : isCurrencyTyped_) = false;
  lblRate_->clear();
  ShowDefault();
}

void FrmCurrency::ShowDefault() {
  const bool isConverted =
      !isAmountTyped_ && !isCurrencyTyped_ && !txtAmountCurrency_->text().isEmpty();
  QPushButton* next = isConverted && cmdAccept_ != nullptr ? cmdAccept_ : cmdCurrency_;
  next->setDefault(true);
}

CurrencyForm FrmCurrency::Form() const {
  CurrencyForm form;
  form.currency = FromQt(cmbCurrency_->Entry());
  form.otherCode = givenCode_;
  form.amount = FromQt(txtAmount_->text());
  form.amountCurrency = FromQt(txtAmountCurrency_->text());
  form.isCurrencyEntered = isCurrencyLast_;
  return form;
}

bool FrmCurrency::Convert() {
  cmbCurrency_->Settle();
  Conversion conversion;
  {
    const WaitCursor waiting;
    conversion = converter_.Convert(Form());
  }
  if (const auto& warning = conversion.warning) {
    platform_.prompts.Tell(warning->title, warning->text, Icon::Information);
    lblRate_->setText(ToQt(conversion.notice));
    FocusField(warning->field);
    // Nothing to mend in the fields: the way to what can be done about it.
    if (warning->field.empty()) cmdSources_->setFocus(Qt::OtherFocusReason);
    return false;
  }
  if (!conversion.notice.empty()) {
    platform_.prompts.Tell("Download Currency", conversion.notice, Icon::Information);
  }
  txtAmount_->setText(ToQt(conversion.amount));
  txtAmountCurrency_->setText(ToQt(conversion.amountCurrency));
  const std::string code = CurrencyConverter::CodeOf(Form().currency);
  lblRate_->setText(
      tr("1 %1 = %2 %3")
          .arg(ToQt(givenCode_), ToQt(converter_.PlainNumber(conversion.rate)), ToQt(code)));
  isAmountTyped_ = false;
  isCurrencyTyped_ = false;
  ShowDefault();
  return true;
}

void FrmCurrency::OpenDataSources() {
  OpenSources({platform_, place_.ledger, place_.rates, this});
}

void FrmCurrency::Accept() {
  // Both typed is a person who knows the rate that they got.
  const bool isComplete = isAmountTyped_ == isCurrencyTyped_ &&
                          !txtAmount_->text().trimmed().isEmpty() &&
                          !txtAmountCurrency_->text().trimmed().isEmpty();
  cmbCurrency_->Settle();
  const CurrencyForm form = Form();
  if ((!isComplete || form.currency.empty()) && !Convert()) return;
  const CurrencyForm taken = Form();
  const auto amount = WorkOut(taken.amount, platform_.locale);
  const auto amountCurrency = WorkOut(taken.amountCurrency, platform_.locale);
  if (!amount || !amountCurrency) return FocusField(amount ? "txtAmountCurrency" : "txtAmount");
  result_ = CurrencyResult{RoundToCurrency(*amount, givenCode_), *amountCurrency,
                           CurrencyConverter::CodeOf(taken.currency)};
  accept();
}

void FrmCurrency::FocusField(const std::string& name) {
  auto* field = findChild<QWidget*>(ToQt(name));
  if (field == nullptr) return;
  field->setFocus(Qt::OtherFocusReason);
  if (auto* line = qobject_cast<QLineEdit*>(field)) line->selectAll();
}

}  // namespace corvanta::inline invest
