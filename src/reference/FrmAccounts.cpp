#include "reference/FrmAccounts.h"

#include "controls/AmountEdit.h"
#include "controls/PickBox.h"
#include "controls/QtText.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/Platform.h"
#include "reference/ReferenceDialogs.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

namespace corvanta::inline reference {

FrmAccounts::FrmAccounts(Platform& platform, clsCorvanta& ledger, QWidget* parent)
    : EditorDialog(QStringLiteral("FrmAccounts"), tr("Account"), platform.prompts, parent),
      platform_(platform),
      ledger_(ledger),
      editor_(ledger, platform),
      txtAccount_(new QLineEdit(this)),
      cmbAccountType_(new PickBox(this)),
      cmbBank_(new PickBox(this)) {
  auto* bank = new QPushButton(tr("Add Ban&k..."), this);
  bank->setObjectName(QStringLiteral("cmdAddBank"));
  bank->setToolTip(tr("Add a bank with its address and numbers"));
  txtAccountNo_ = new QLineEdit(this);
  cmbCurrency_ = new PickBox(this);
  txtOpeningBalance_ = new AmountEdit(platform.locale, this);
  txtDescription_ = new QLineEdit(this);
  chkCloseAccount_ = new QCheckBox(tr("The account is c&losed"), this);
  AddField(tr("&Account:"), txtAccount_, "txtAccount");
  AddField(tr("Account &Group:"), cmbAccountType_, "cmbAccountType");
  AddField(tr("&Bank:"), cmbBank_, "cmbBank", bank);
  AddField(tr("Account N&umber:"), txtAccountNo_, "txtAccountNo");
  AddField(tr("Cu&rrency:"), cmbCurrency_, "cmbCurrency");
  AddField(tr("&Opening Balance:"), txtOpeningBalance_, "txtOpeningBalance");
  AddField(tr("Descri&ption:"), txtDescription_, "txtDescription");
  AddTick(chkCloseAccount_, "chkCloseAccount");
  AddButtons();
  connect(bank, &QPushButton::clicked, this, &FrmAccounts::AddBank);
}

bool FrmAccounts::Load(std::int64_t key) {
  const auto row = editor_.Load(key);
  if (row) Show(*row);
  return row.has_value();
}

QString FrmAccounts::ItemName() const {
  return txtAccount_->text().trimmed();
}

void FrmAccounts::FillLists() {
  std::vector<PickItem> groups;
  for (const AccountGroupRecord& row : ledger_.References().AccountGroups()) {
    groups.push_back({row.accountTypeId, ToQt(row.accountType)});
  }
  cmbAccountType_->SetItems(groups);
  std::vector<PickItem> currencies;
  for (const CurrencyRecord& row : ledger_.References().Currencies()) {
    const std::string& name = row.description.empty() ? row.currency : row.description;
    currencies.push_back({row.currencyId, ToQt(name)});
  }
  cmbCurrency_->SetItems(currencies);
  FillBanks();
}

void FrmAccounts::FillBanks() {
  std::vector<PickItem> banks{{0, QLatin1String(kNoBank)}};
  for (const BankRecord& row : ledger_.References().Banks())
    banks.push_back({row.bankId, ToQt(row.bank)});
  cmbBank_->SetItems(banks);
}

void FrmAccounts::Show(const AccountForm& row) {
  FillLists();
  txtAccount_->setText(ToQt(row.account));
  cmbAccountType_->setEditText(ToQt(row.accountGroup));
  cmbBank_->setEditText(ToQt(row.bank));
  txtAccountNo_->setText(ToQt(row.accountNo));
  cmbCurrency_->SetKey(row.currencyId);
  txtOpeningBalance_->SetAmount(row.openingBalance.value_or(0));
  txtDescription_->setText(ToQt(row.description));
  chkCloseAccount_->setChecked(row.closed);
}

AccountForm FrmAccounts::Form() const {
  AccountForm form;
  form.accountId = Key();
  form.account = FromQt(txtAccount_->text());
  form.accountNo = FromQt(txtAccountNo_->text());
  form.accountGroup = FromQt(cmbAccountType_->currentText());
  form.bank = FromQt(cmbBank_->currentText());
  form.currencyId = cmbCurrency_->Key();
  form.openingBalance = txtOpeningBalance_->Amount();
  form.description = FromQt(txtDescription_->text());
  form.closed = chkCloseAccount_->isChecked();
  return form;
}

void FrmAccounts::AddBank() {
  Run([this] {
    if (const auto warning = AccountEditor::CheckAddBank(Key())) return Warn(*warning);
    const DialogResult result =
        OpenReferenceEditor(ReferenceKind::Bank, 0, {platform_, ledger_, this});
    if (!result.isChanged) return;
    MarkChanged();
    FillBanks();
    if (result.savedKey != 0) cmbBank_->SetKey(result.savedKey);
  });
}

}  // namespace corvanta::inline reference
