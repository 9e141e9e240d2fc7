#include "invest/FrmInvestTrans.h"

#include "controls/AmountEdit.h"
#include "controls/ChoiceRow.h"
#include "controls/CommandEdge.h"
#include "controls/DateField.h"
#include "controls/PickBox.h"
#include "controls/PickItems.h"
#include "controls/QtText.h"
#include "invest/QtInvestActions.h"
#include "ledger/accounts/CurrencyOf.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "notes/NoteDialogs.h"
#include "notes/QtNoteButtons.h"
#include "platform/Platform.h"
#include "platform/Settings.h"
#include "reference/AccountChoices.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <functional>

namespace corvanta::inline invest {

FrmInvestTrans::FrmInvestTrans(const InvestTransRequest& request, const InvestPlace& place)
    : EditorDialog(QStringLiteral("FrmInvestTrans"), tr("Investment Transaction"),
                   place.platform.prompts, place.parent),
      place_(place),
      request_(request),
      editor_(place.ledger, place.platform),
      cmbAccount_(new PickBox(this)),
      cmbInvestment_(new PickBox(this)),
      cmbAction_(new QComboBox(this)),
      dtInvest_(new DateField(place.platform.locale, place.platform.clock, this)),
      lblCurrency_(new QLabel(this)),
      opPayment_(new ChoiceRow(QStringLiteral("opPayment"),
                               {{0, tr("Open")}, {1, tr("Cleared")}, {2, tr("Reconciled")}}, this)),
      txtDescription_(new QLineEdit(this)) {
  MakeFigures();
  MakeFields();
  CloseWhenSaved();
  MakeNotes();
  AddButtons();
  ConnectFields();
}

void FrmInvestTrans::MakeFigures() {
  const int decimals = Settings(place_.platform.registry).InvestmentDecimals();
  for (AmountEdit** figure :
       {&txtDividend_, &txtShares_, &txtPrice_, &txtCommission_, &txtTotal_}) {
    *figure = new AmountEdit(place_.platform.locale, this, AmountText::Rounded);
    (*figure)->SetUnsigned();
    (*figure)->SetDecimals(decimals);
  }
}

void FrmInvestTrans::MakeFields() {
  auto* another = MakeButton(tr("Add Invest&ment..."), "cmdAddInvest");
  another->setToolTip(tr("Add an investment that is not in the list yet"));
  connect(another, &QPushButton::clicked, this, &FrmInvestTrans::AddInvestment);
  LoadInvestActions(*cmbAction_);
  cmbAction_->setPlaceholderText(tr("What was done"));
  lblCurrency_->setObjectName(QStringLiteral("lblCurrency"));
  AddField(tr("&Account:"), cmbAccount_, "cmbAccount");
  AddField(tr("&Investment:"), cmbInvestment_, "cmbInvestment", another);
  AddField(tr("Ac&tion:"), cmbAction_, "cmbAction");
  AddField(tr("Dat&e:"), dtInvest_, "dtInvest");
  AddField(tr("Di&vidend:"), txtDividend_, "txtDividend");
  AddField(tr("S&hares:"), txtShares_, "txtShares");
  AddField(tr("&Price:"), txtPrice_, "txtPrice");
  AddField(tr("C&ommission:"), txtCommission_, "txtCommission");
  AddField(tr("Tota&l:"), txtTotal_, "txtTotal", lblCurrency_);
  AddField(tr("Status:"), opPayment_, "opPayment");
  AddField(tr("Desc&ription:"), txtDescription_, "txtDescription");
  txtTotal_->setToolTip(
      tr("Worked out from the other figures when one of them is left; it can be typed, too"));
}

void FrmInvestTrans::MakeNotes() {
  cmdKeywords_ = MakeButton(tr("&Keywords..."), "cmdKeywords");
  cmdAttachments_ = MakeButton(tr("&Files..."), "cmdAttachments");
  AddEditButton(cmdKeywords_);
  AddEditButton(cmdAttachments_);
  const auto open = [this](const std::function<bool(std::int64_t, const NotePlace&)>& dialog) {
    Run([&] {
      if (dialog(Key(), {place_.platform, place_.ledger, this})) MarkChanged();
      ShowNotes(Key(), *cmdKeywords_, *cmdAttachments_, place_.ledger);
    });
  };
  connect(cmdKeywords_, &QPushButton::clicked, this, [open] {
    open([](std::int64_t key, const NotePlace& place) { return OpenKeywords({&key, 1}, place); });
  });
  connect(cmdAttachments_, &QPushButton::clicked, this, [open] { open(OpenAttachments); });
}

void FrmInvestTrans::ConnectFields() {
  connect(cmbAction_, &QComboBox::currentIndexChanged, this, &FrmInvestTrans::ApplyAction);
  connect(cmbAccount_, &QComboBox::currentTextChanged, this, &FrmInvestTrans::ShowCurrency);
  for (AmountEdit* figure : {txtDividend_, txtShares_, txtPrice_, txtCommission_}) {
    connect(figure, &QLineEdit::editingFinished, this, &FrmInvestTrans::LeaveFigure);
  }
}

void FrmInvestTrans::FillLists(std::int64_t accountId, std::int64_t investmentId) {
  FillBox(*cmbAccount_, AccountChoices(place_.ledger, {accountId}));
  std::vector<PickItem> investments;
  for (const InvestmentDetails& row : place_.ledger.Investments().ListInvestments()) {
    investments.push_back({row.investmentId, ToQt(row.investment)});
  }
  // The list leaves out one without a currency.
  const auto own = place_.ledger.Investments().ReadInvestment(investmentId);
  if (own && std::ranges::find(investments, investmentId, &PickItem::key) == investments.end()) {
    investments.push_back({investmentId, ToQt(own->investment)});
  }
  cmbInvestment_->SetItems(investments);
}

void FrmInvestTrans::Clear() {
  if (IsChanged() && place_.changed) place_.changed();
  InvestTransForm form = editor_.New(request_.accountId, request_.investmentId);
  if (request_.day) form.date = *request_.day;
  Show(form);
}

bool FrmInvestTrans::Load(std::int64_t key) {
  const auto form = editor_.Load(key);
  if (!form) return false;
  if (request_.accountId == 0) request_.accountId = form->accountId;
  if (request_.investmentId == 0) request_.investmentId = form->investmentId;
  Show(*form);
  ShowNotes(key, *cmdKeywords_, *cmdAttachments_, place_.ledger);
  return true;
}

std::int64_t FrmInvestTrans::Save() {
  const InvestTransForm form = Form();
  const std::int64_t key = editor_.Save(form);
  // The next one is often of the same day.
  if (key != 0) request_ = {0, form.accountId, form.investmentId, form.date};
  return key;
}

void FrmInvestTrans::Show(const InvestTransForm& form) {
  isShowing_ = true;
  FillLists(form.accountId, form.investmentId);
  cmbAccount_->SetKey(form.accountId);
  cmbInvestment_->SetKey(form.investmentId);
  cmbAction_->setCurrentIndex(form.action ? cmbAction_->findData(static_cast<int>(*form.action))
                                          : -1);
  dtInvest_->SetDay(form.date);
  opPayment_->SetChoice(static_cast<int>(form.status));
  txtDescription_->setText(ToQt(form.description));
  ShowFigures(form);
  isShowing_ = false;
  ShowCurrency();
  // What is known already need not be gone through.
  SetFirstField(form.accountId == 0      ? static_cast<QWidget*>(cmbAccount_)
                : form.investmentId == 0 ? static_cast<QWidget*>(cmbInvestment_)
                                         : cmbAction_);
}

void FrmInvestTrans::ShowFigures(const InvestTransForm& form) {
  form_ = form;
  const InvestFigures used = FiguresOf(form.action);
  const auto show = [](AmountEdit& field, double value, bool isUsed) {
    field.setEnabled(isUsed);
    field.SetAmount(value);
  };
  show(*txtDividend_, form.dividend, used.dividend);
  show(*txtShares_, form.shares, used.shares);
  show(*txtPrice_, form.price, used.price);
  show(*txtCommission_, form.commission, used.commission);
  show(*txtTotal_, form.total, used.total);
}

InvestTransForm FrmInvestTrans::Form() {
  // What is no number shows as 0, and counts as that.
  const auto figure = [](AmountEdit& field) {
    field.Settle();
    return field.Amount().value_or(0);
  };
  InvestTransForm form;
  form.transactionId = Key();
  form.accountId = cmbAccount_->Key();
  form.investmentId = cmbInvestment_->Key();
  form.action = Action();
  form.date = dtInvest_->Day();
  form.dividend = figure(*txtDividend_);
  form.shares = figure(*txtShares_);
  form.price = figure(*txtPrice_);
  form.commission = figure(*txtCommission_);
  form.total = figure(*txtTotal_);
  form.status = static_cast<TransactionStatus>(opPayment_->Choice().value_or(0));
  form.description = FromQt(txtDescription_->text());
  return form;
}

std::optional<InvestAction> FrmInvestTrans::Action() const {
  const QVariant code = cmbAction_->currentData();
  return code.isValid() ? std::optional(static_cast<InvestAction>(code.toInt())) : std::nullopt;
}

void FrmInvestTrans::ApplyAction() {
  if (isShowing_) return;
  InvestTransForm form = Form();
  const auto action = form.action;
  form.action = form_.action;
  editor_.ChooseAction(form, action);
  ShowFigures(form);
}

// A total that was typed stays while the figures beside it are only passed through.
void FrmInvestTrans::LeaveFigure() {
  InvestTransForm form = Form();
  const bool isSame = form.dividend == form_.dividend && form.shares == form_.shares &&
                      form.price == form_.price && form.commission == form_.commission;
  if (isSame) return;
  editor_.Recalculate(form);
  txtTotal_->SetAmount(form.total);
  form_ = form;
}

void FrmInvestTrans::ShowCurrency() {
  if (isShowing_) return;
  RunCommand(place_.platform.prompts, [this] {
    lblCurrency_->setText(ToQt(CurrencyOf(place_.ledger, cmbAccount_->Key())));
    lblCurrency_->setVisible(!lblCurrency_->text().isEmpty());
  });
}

void FrmInvestTrans::AddInvestment() {
  Run([this] {
    InvestPlace place = place_;
    place.parent = this;
    const InvestResult added = OpenInvest(0, place);
    if (!added.isChanged) return;
    MarkChanged();
    const std::int64_t chosen = added.savedKey != 0 ? added.savedKey : cmbInvestment_->Key();
    FillLists(cmbAccount_->Key(), chosen);
    cmbInvestment_->SetKey(chosen);
  });
}

QString FrmInvestTrans::ItemName() const {
  return tr("%1, %2").arg(cmbAction_->currentText(), cmbInvestment_->currentText().trimmed());
}

}  // namespace corvanta::inline invest
