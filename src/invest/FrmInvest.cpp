#include "invest/FrmInvest.h"

#include "controls/AmountEdit.h"
#include "controls/PickBox.h"
#include "controls/QtText.h"
#include "controls/WaitCursor.h"
#include "invest/prices/PriceDownload.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/investments/PriceBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Settings.h"

#include <QLineEdit>
#include <QPushButton>

namespace corvanta::inline invest {
namespace {

QLineEdit* MakeShown(const QString& accessibleName, QWidget* parent) {
  auto* field = new QLineEdit(parent);
  field->setReadOnly(true);
  field->setFocusPolicy(Qt::ClickFocus);
  field->setAccessibleName(accessibleName);
  return field;
}

}  // namespace

FrmInvest::FrmInvest(const InvestPlace& place, bool goesOnToHistory)
    : EditorDialog(QStringLiteral("FrmInvest"), tr("Investment"), place.platform.prompts,
                   place.parent),
      place_(place),
      editor_(place.ledger, place.platform),
      goesOnToHistory_(goesOnToHistory),
      txtSymbol_(new QLineEdit(this)),
      txtInvestment_(new QLineEdit(this)),
      cmbCurrencyInvest_(new PickBox(this)),
      cmbCurrency_(new PickBox(this)),
      cmbDataSource_(new PickBox(this)),
      txtConvert_(new AmountEdit(place.platform.locale, this)),
      txtLastPrice_(MakeShown(tr("Last price"), this)),
      txtLastDate_(MakeShown(tr("Day of the last price"), this)),
      txtDescription_(new QLineEdit(this)) {
  MakeFields();
  MakeTools();
  CloseWhenSaved();
  AddButtons();
}

void FrmInvest::MakeFields() {
  auto* lookUp = MakeButton(tr("Look &Up..."), "cmdLookup");
  lookUp->setToolTip(tr("Open the page of the data source on which symbols are looked up"));
  connect(lookUp, &QPushButton::clicked, this, &FrmInvest::LookUp);
  txtConvert_->SetDecimals(Settings(place_.platform.registry).InvestmentDecimals());
  txtConvert_->setToolTip(
      tr("What a quote is multiplied by: 0.01 where the market quotes hundredths"));
  txtLastPrice_->setAlignment(Qt::AlignRight);
  txtLastDate_->setObjectName(QStringLiteral("txtLastDate"));
  AddField(tr("S&ymbol:"), txtSymbol_, "txtSymbol");
  AddField(tr("&Investment Name:"), txtInvestment_, "txtInvestment");
  AddField(tr("In&vestment Currency:"), cmbCurrencyInvest_, "cmbCurrencyInvest");
  AddField(tr("&Account Currency:"), cmbCurrency_, "cmbCurrency");
  AddField(tr("Data S&ource:"), cmbDataSource_, "cmbDataSource", lookUp);
  AddField(tr("Conv&ersion:"), txtConvert_, "txtConvert");
  AddField(tr("Last Price:"), txtLastPrice_, "txtLastPrice", txtLastDate_);
  AddField(tr("Desc&ription:"), txtDescription_, "txtDescription");
  connect(txtConvert_, &QLineEdit::editingFinished, this, &FrmInvest::LeaveConversion);
}

void FrmInvest::MakeTools() {
  auto* download = MakeButton(tr("Do&wnload Price"), "cmdDownload");
  download->setToolTip(tr("Fetch today's price from the data source"));
  auto* history = MakeButton(tr("Price &History..."), "cmdHistory");
  history->setToolTip(tr("Show and edit the stored prices"));
  cmdSources_ = MakeButton(tr("Da&ta Sources..."), "cmdSources");
  cmdSources_->setToolTip(tr("See and change where prices and exchange rates come from"));
  AddTools({download, history, cmdSources_});
  connect(download, &QPushButton::clicked, this, &FrmInvest::Download);
  connect(history, &QPushButton::clicked, this, &FrmInvest::ShowHistory);
  connect(cmdSources_, &QPushButton::clicked, this, &FrmInvest::ShowSources);
}

bool FrmInvest::Load(std::int64_t key) {
  const auto row = editor_.Load(key);
  if (row) Show(*row);
  return row.has_value();
}

std::int64_t FrmInvest::Save() {
  const WaitCursor waiting;
  return editor_.Save(Form());
}

bool FrmInvest::Delete() {
  const Deletion deletion = editor_.Delete(Key());
  Note(ToQt(deletion.Notice()));
  return deletion.isGone;
}

QString FrmInvest::ItemName() const {
  return txtInvestment_->text().trimmed();
}

void FrmInvest::FillLists() {
  std::vector<PickItem> currencies;
  for (const CurrencyRecord& row : place_.ledger.References().Currencies()) {
    const std::string& name = row.description.empty() ? row.currency : row.description;
    currencies.push_back({row.currencyId, ToQt(name)});
  }
  cmbCurrency_->SetItems(currencies);
  cmbCurrencyInvest_->SetItems(currencies);
  std::vector<PickItem> sources;
  for (const StockSource& source : place_.ledger.Investments().StockSources()) {
    sources.push_back({source.dataId, ToQt(source.name)});
  }
  cmbDataSource_->SetItems(sources);
}

void FrmInvest::Show(const InvestmentRecord& row) {
  FillLists();
  txtSymbol_->setText(ToQt(row.symbol));
  txtInvestment_->setText(ToQt(row.investment));
  cmbCurrencyInvest_->SetKey(row.investCurrencyId);
  cmbCurrency_->SetKey(row.currencyId);
  cmbDataSource_->SetKey(row.dataId);
  txtConvert_->SetAmount(row.conversion);
  if (row.investmentId == 0) txtConvert_->setText(QStringLiteral("1"));
  txtDescription_->setText(ToQt(row.description));
  txtLastPrice_->clear();
  txtLastDate_->clear();
  const auto last = place_.ledger.Prices().LatestPrice(row.investmentId);
  if (!last) return;
  const Locale& locale = place_.platform.locale;
  const int decimals = Settings(place_.platform.registry).InvestmentDecimals();
  txtLastPrice_->setText(ToQt(locale.FormatNumber(last->price, decimals)));
  txtLastDate_->setText(ToQt(locale.FormatShortDate(last->date)));
}

InvestmentRecord FrmInvest::Form() const {
  InvestmentRecord form;
  form.investmentId = Key();
  form.symbol = FromQt(txtSymbol_->text());
  form.investment = FromQt(txtInvestment_->text());
  form.investCurrencyId = cmbCurrencyInvest_->Key();
  form.currencyId = cmbCurrency_->Key();
  form.dataId = cmbDataSource_->Key();
  form.conversion = txtConvert_->Amount().value_or(1);
  form.description = FromQt(txtDescription_->text());
  return form;
}

void FrmInvest::LeaveConversion() {
  if (txtConvert_->Amount().value_or(0) <= 0) txtConvert_->setText(QStringLiteral("1"));
}

bool FrmInvest::SaveFirst() {
  if (!IsNew() && !IsEdited()) return true;
  return SaveRow() && Open(SavedKey());
}

void FrmInvest::Download() {
  Run([this] {
    if (!SaveFirst()) return;
    PriceDownload download(place_.ledger, place_.platform);
    bool isStored = false;
    {
      const WaitCursor waiting;
      isStored = download.DownloadInvestmentPrice(Key()).has_value();
    }
    if (!isStored) {
      Note(ToQt(download.Note()));
      // What to look at next.
      return cmdSources_->setFocus();
    }
    MarkChanged();
    Open(Key());
  });
}

void FrmInvest::ShowHistory() {
  Run([this] {
    if (!SaveFirst() || !OpenHistory(Place(), Key())) return;
    MarkChanged();
    Open(Key());
  });
}

void FrmInvest::ShowSources() {
  Run([this] {
    const std::int64_t chosen = cmbDataSource_->Key();
    if (!OpenSources(Place(), chosen)) return;
    MarkChanged();
    FillLists();
    // Under the name that it has now, if it is still there.
    if (chosen != 0) cmbDataSource_->SetKey(chosen);
  });
}

void FrmInvest::Finish() {
  if (goesOnToHistory_) OpenHistory(Place(), SavedKey());
  EditorDialog::Finish();
}

InvestPlace FrmInvest::Place() {
  InvestPlace place = place_;
  place.parent = this;
  return place;
}

void FrmInvest::LookUp() {
  Run([this] {
    if (const auto warning = editor_.LookUp(cmbDataSource_->Key())) Warn(*warning);
  });
}

}  // namespace corvanta::inline invest
