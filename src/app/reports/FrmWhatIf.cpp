#include "app/reports/FrmWhatIf.h"

#include "controls/AmountEdit.h"
#include "controls/ChoiceRow.h"
#include "controls/DateField.h"
#include "controls/PickBox.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/accounts/AccountRow.h"
#include "platform/Clock.h"
#include "platform/Platform.h"

#include <QLineEdit>
#include <QPushButton>

namespace corvanta::inline app {
namespace {
constexpr int kExpense = 0;
constexpr int kIncome = 1;
constexpr QSize kComfortable(58 * kRhythm, 0);
}  // namespace

FrmWhatIf::FrmWhatIf(const std::optional<WhatIf>& former, const std::vector<AccountRow>& accounts,
                     Platform& platform, QWidget* parent)
    : FormDialog(QStringLiteral("FrmWhatIf"), platform.prompts, parent),
      platform_(platform),
      dtWhatIf_(new DateField(platform.locale, platform.clock, this)),
      cmbAccount_(new PickBox(this)),
      opKind_(new ChoiceRow(QStringLiteral("opWhatIf"),
                            {{kExpense, tr("&Expense")}, {kIncome, tr("&Income")}}, this)),
      txtAmount_(new AmountEdit(platform.locale, this)),
      txtText_(new QLineEdit(this)) {
  setWindowTitle(former ? tr("Change What-if Payment") : tr("What-if Payment"));
  std::vector<PickItem> items;
  for (const AccountRow& account : accounts) {
    if (!account.closed) items.push_back({account.accountId, ToQt(account.account)});
  }
  cmbAccount_->SetItems(items);
  MakeFields();
  WhatIfForm form;
  form.day = platform.clock.Today().AddDays(1);
  if (!items.empty()) form.accountId = items.front().key;
  form.amount = 0;
  Show(former ? FormOf(*former) : form);
  auto* accept = MakeButton(tr("&OK"), "cmdAccept");
  accept->setDefault(true);
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  AddButtonRow({}, {accept, cancel});
  Note(tr("The forecast counts it; nothing is stored."));
  connect(accept, &QPushButton::clicked, this, [this] { Run([this] { Accept(); }); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  resize(sizeHint().expandedTo(kComfortable));
  KeepContents();
  FocusFirstField();
}

void FrmWhatIf::MakeFields() {
  txtAmount_->SetUnsigned();
  txtText_->setMaxLength(kLongestWhatIf);
  txtText_->setPlaceholderText(tr("What it would be"));
  AddField(tr("&Date:"), dtWhatIf_, "dtWhatIf");
  AddField(tr("&Account:"), cmbAccount_, "cmbWhatIfAccount");
  AddField(tr("Kind:"), opKind_, "opWhatIf");
  AddField(tr("A&mount:"), txtAmount_, "txtWhatIfAmount");
  AddField(tr("&Text:"), txtText_, "txtWhatIfText");
}

void FrmWhatIf::Show(const WhatIfForm& form) {
  if (form.day) dtWhatIf_->SetDay(*form.day);
  cmbAccount_->SetKey(form.accountId);
  opKind_->SetChoice(form.isIncome ? kIncome : kExpense);
  txtAmount_->SetAmount(form.amount.value_or(0));
  txtText_->setText(ToQt(form.text));
}

WhatIfForm FrmWhatIf::Form() const {
  WhatIfForm form;
  if (dtWhatIf_->IsDay()) form.day = dtWhatIf_->Day();
  form.accountId = cmbAccount_->Key();
  form.isIncome = opKind_->Choice() == kIncome;
  form.amount = txtAmount_->Amount();
  form.text = FromQt(txtText_->text());
  return form;
}

void FrmWhatIf::Accept() {
  if (const auto warning = CheckWhatIf(Form(), platform_.clock.Today())) return Warn(*warning);
  accept();
}

}  // namespace corvanta::inline app
