#include "invest/holdings/FrmCorporateAction.h"

#include "controls/AmountEdit.h"
#include "controls/ChoiceRow.h"
#include "controls/CommandEdge.h"
#include "controls/DateField.h"
#include "controls/ListTable.h"
#include "controls/PickBox.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "invest/holdings/HoldingsReader.h"
#include "ledger/clsCorvanta.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Settings.h"
#include "platform/TextCase.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>

#include <algorithm>

namespace corvanta::inline invest {
namespace {

constexpr int kSmallestTable = 18 * kRhythm;
constexpr QSize kComfortable(80 * kRhythm, 0);

QString ActionName(InvestAction action) {
  return action == InvestAction::RemoveShares ? FrmCorporateAction::tr("Remove Shares")
                                              : FrmCorporateAction::tr("Add Shares");
}

}  // namespace

FrmCorporateAction::FrmCorporateAction(std::int64_t payeeId, const InvestPlace& place)
    : FormDialog(QStringLiteral("FrmCorporateAction"), place.platform.prompts, place.parent),
      place_(place),
      action_(place.ledger, place.platform),
      opKind_(new ChoiceRow(QStringLiteral("opKind"),
                            {{static_cast<int>(CorporateKind::Split), tr("&Split")},
                             {static_cast<int>(CorporateKind::Merger), tr("&Merger")},
                             {static_cast<int>(CorporateKind::SpinOff), tr("S&pin-off")}},
                            this)),
      cmbInvestment_(new PickBox(this)),
      dtInvest_(new DateField(place.platform.locale, place.platform.clock, this)),
      txtGiven_(new AmountEdit(place.platform.locale, this)),
      txtHeld_(new AmountEdit(place.platform.locale, this)),
      cmbOther_(new PickBox(this)),
      txtCostPart_(new AmountEdit(place.platform.locale, this)),
      chkPrice_(new QCheckBox(tr("&Record the price after the split"), this)),
      lvRows_(new ListTable(this)),
      model_(new QStandardItemModel(this)) {
  setWindowTitle(tr("Corporate Action"));
  MakeFields();
  MakeRows();
  auto* accept = MakeButton(tr("&Write"), "cmdAccept");
  accept->setToolTip(tr("Write the rows that are shown, as one step"));
  accept->setDefault(true);
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  AddButtonRow({}, {accept, cancel});
  connect(accept, &QPushButton::clicked, this, [this] { Run([this] { Accept(); }); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  FillInvestments(payeeId);
  opKind_->SetChoice(static_cast<int>(CorporateKind::Split));
  txtGiven_->SetAmount(2);
  txtHeld_->SetAmount(1);
  ShowPlan();
  resize(sizeHint().expandedTo(kComfortable));
  FocusFirstField();
}

void FrmCorporateAction::MakeFields() {
  chkPrice_->setChecked(true);
  chkPrice_->setToolTip(
      tr("The last price before it, divided as the units are, so that the value stays the same"));
  AddField(tr("What happens:"), opKind_, "opKind");
  AddField(tr("&Investment:"), cmbInvestment_, "cmbInvestment");
  AddField(tr("D&ate:"), dtInvest_, "dtInvest");
  auto* per = new QLabel(tr("&for"), this);
  per->setBuddy(txtHeld_);
  txtHeld_->setObjectName(QStringLiteral("txtHeld"));
  txtHeld_->setAccessibleName(tr("for so many units held"));
  AddField(tr("&Units given:"), txtGiven_, "txtGiven", {per, txtHeld_});
  AddField(tr("&Of the investment:"), cmbOther_, "cmbOther");
  AddField(tr("Cost that goes over, &%:"), txtCostPart_, "txtCostPart");
  AddTick(chkPrice_, "chkPrice");
  const auto show = [this] { Run([this] { ShowPlan(); }); };
  connect(opKind_, &ChoiceRow::Chosen, this, show);
  connect(dtInvest_, &DateField::DayChanged, this, show);
  for (PickBox* box : {cmbInvestment_, cmbOther_}) {
    connect(box, &QComboBox::currentTextChanged, this, show);
  }
  for (AmountEdit* field : {txtGiven_, txtHeld_, txtCostPart_}) {
    connect(field, &QLineEdit::textChanged, this, show);
  }
  connect(chkPrice_, &QCheckBox::toggled, this, show);
}

void FrmCorporateAction::MakeRows() {
  model_->setHorizontalHeaderLabels(
      {tr("Account"), tr("Investment"), tr("Action"), tr("Units"), tr("Price")});
  lvRows_->setObjectName(QStringLiteral("lvRows"));
  lvRows_->setAccessibleName(tr("The rows that are written"));
  lvRows_->setModel(model_);
  lvRows_->setMinimumHeight(kSmallestTable);
  for (int column = 3; column < model_->columnCount(); ++column) {
    model_->setHeaderData(column, Qt::Horizontal,
                          QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter),
                          Qt::TextAlignmentRole);
  }
  const int width = 13 * kRhythm;
  lvRows_->SetColumns({{width, 2, 9 * kRhythm},
                       {width, 3, 9 * kRhythm},
                       {width, 0, width},
                       {width, 0, width},
                       {width, 0, width}});
  static_cast<QBoxLayout*>(layout())->addWidget(lvRows_, 1);
}

void FrmCorporateAction::FillInvestments(std::int64_t payeeId) {
  std::vector<PickItem> items;
  for (const auto& [key, name] : ReadHoldingNames(place_.ledger.Store())) {
    items.push_back({key, ToQt(name.investment)});
  }
  std::ranges::sort(items, {}, [](const PickItem& item) { return FoldCase(FromQt(item.text)); });
  cmbInvestment_->SetItems(items);
  cmbOther_->SetItems(items);
  cmbInvestment_->SetKey(payeeId);
  cmbOther_->SetKey(0);
}

CorporateForm FrmCorporateAction::Form() const {
  CorporateForm form;
  form.kind = static_cast<CorporateKind>(opKind_->Choice().value_or(0));
  form.payeeId = cmbInvestment_->Key();
  if (dtInvest_->IsDay()) form.day = dtInvest_->Day();
  form.given = txtGiven_->Amount();
  form.held = txtHeld_->Amount();
  form.otherId = cmbOther_->Key();
  form.costPart = txtCostPart_->Amount();
  form.writesPrice = chkPrice_->isChecked();
  return form;
}

void FrmCorporateAction::ShowPlan() {
  const CorporateForm form = Form();
  cmbOther_->setEnabled(form.kind != CorporateKind::Split);
  txtCostPart_->setEnabled(form.kind == CorporateKind::SpinOff);
  chkPrice_->setEnabled(form.kind == CorporateKind::Split);
  ShowRows(action_.Plan(form));
}

void FrmCorporateAction::ShowRows(const CorporatePlan& plan) {
  const Locale& locale = place_.platform.locale;
  const int decimals = Settings(place_.platform.registry).InvestmentDecimals();
  const auto add = [&](const QString& account, const QString& investment, const QString& action,
                       std::optional<double> units, double price) {
    const auto number = [&](std::optional<double> figure) {
      auto* item =
          new QStandardItem(figure ? ToQt(locale.FormatNumber(*figure, decimals)) : QString());
      item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      return item;
    };
    model_->appendRow({new QStandardItem(account), new QStandardItem(investment),
                       new QStandardItem(action), number(units), number(price)});
  };
  model_->removeRows(0, model_->rowCount());
  for (const CorporateRow& row : plan.rows) {
    add(ToQt(row.account), ToQt(row.investment), ActionName(row.record.action), row.record.shares,
        row.record.price);
  }
  if (plan.price) {
    add({}, cmbInvestment_->currentText(), tr("Price"), std::nullopt, *plan.price);
  }
  for (const std::string& closed : plan.closed) {
    Note(tr("%1 is closed: what it holds is left as it is.").arg(ToQt(closed)));
  }
}

void FrmCorporateAction::Accept() {
  const CorporateForm form = Form();
  const CorporatePlan plan = action_.Plan(form);
  if (plan.warning) return Warn(*plan.warning);
  action_.Write(form, plan);
  MarkChanged();
  accept();
}

}  // namespace corvanta::inline invest
