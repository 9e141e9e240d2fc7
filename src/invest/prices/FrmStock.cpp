#include "invest/prices/FrmStock.h"

#include "controls/ListTable.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/WaitCursor.h"
#include "invest/rates/ucCurrencyBox.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "platform/Platform.h"
#include "platform/Settings.h"

#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>

namespace corvanta::inline invest {
namespace {

enum Column { kSymbol, kValue, kDateTime, kTrend, kColumns };

constexpr int kShownRows = 8;
constexpr int kNumberRole = Qt::UserRole;
constexpr int kSymbolLength = 100;

}  // namespace

FrmStock::FrmStock(WatchMode mode, const InvestPlace& place, PrinterChoice choose)
    : FormDialog(QStringLiteral("FrmStock"), place.platform.prompts, place.parent),
      place_(place),
      lookup_(mode, place.ledger, place.platform),
      choose_(std::move(choose)),
      lvLookUp_(new ListTable(this)),
      model_(new QStandardItemModel(0, kColumns, this)),
      cmbDataSource_(new QComboBox(this)),
      cmbCurrency_(new ucCurrencyBox(place.ledger.References().Currencies(), this)) {
  setWindowTitle(tr(lookup_.Caption()));
  MakeList();
  MakeFields();
  MakeButtons();
  Run([this] {
    FillSources();
    cmbCurrency_->SetCode(lookup_.Currency());
    FillList();
  });
  ShowDefault();
}

void FrmStock::done(int result) {
  Run([this] {
    Settings(place_.platform.registry).SetText(Setting::chL, FromQt(lvLookUp_->Widths()));
  });
  QDialog::done(result);
}

void FrmStock::MakeList() {
  const auto width = [this](const char* text) {
    return fontMetrics().horizontalAdvance(QLatin1String(text)) + 3 * kRhythm;
  };
  model_->setHorizontalHeaderLabels({tr("Symbol"), tr("Value"), tr("Date/Time"), tr("Trend")});
  for (const int column : {kValue, kTrend}) {
    model_->setHeaderData(column, Qt::Horizontal,
                          QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter)),
                          Qt::TextAlignmentRole);
  }
  lvLookUp_->setObjectName(QStringLiteral("lvLookUp"));
  lvLookUp_->setAccessibleName(tr(lookup_.Caption()));
  lvLookUp_->setAlternatingRowColors(true);
  lvLookUp_->setFrameShape(QFrame::StyledPanel);
  lvLookUp_->setModel(model_);
  lvLookUp_->SetColumns({{width("A symbol of some"), 2, width("Symbol")},
                         {width("100,000.0000"), 1, width("0.0000")},
                         {width("12/22/2026 10:00pm"), 1, width("12/22")},
                         {width("+10.0000"), 1, width("Trend")}});
  lvLookUp_->SetWidths(ToQt(Settings(place_.platform.registry).Text(Setting::chL)));
  lvLookUp_->setMinimumHeight(kShownRows * (fontMetrics().height() + kRhythm + 2));
  auto* remove = new QAction(this);
  remove->setShortcut(QKeySequence::Delete);
  remove->setShortcutContext(Qt::WidgetShortcut);
  lvLookUp_->addAction(remove);
  connect(remove, &QAction::triggered, this, &FrmStock::Delete);
  connect(model_, &QStandardItemModel::itemChanged, this, &FrmStock::EnableButtons);
  AddAbove(lvLookUp_);
}

void FrmStock::MakeFields() {
  const bool isStocks = lookup_.Mode() == WatchMode::Stocks;
  AddField(tr("Data &Source:"), cmbDataSource_, "cmbDataSource");
  AddField(tr("Currency &In:"), cmbCurrency_, "cmbCurrency");
  cmdNew_ = MakeButton(tr("&Add"), "cmdNew");
  if (isStocks) {
    txtSymbol_ = new QLineEdit(this);
    txtSymbol_->setMaxLength(kSymbolLength);
    AddField(tr("S&ymbol:"), txtSymbol_, "txtSymbol", cmdNew_);
    SetFirstField(txtSymbol_);
    connect(txtSymbol_, &QLineEdit::textChanged, this, &FrmStock::ShowDefault);
  } else {
    cmbSymbol_ = new ucCurrencyBox(place_.ledger.References().Currencies(), this);
    AddField(tr("Currenc&y:"), cmbSymbol_, "cmbSymbol", cmdNew_);
    SetFirstField(cmbSymbol_);
    cmbDataSource_->setToolTip(tr("Rates come from the first currency source by name"));
    connect(cmbSymbol_, &QComboBox::currentTextChanged, this, &FrmStock::ShowDefault);
  }
  connect(cmdNew_, &QPushButton::clicked, this, &FrmStock::New);
}

void FrmStock::MakeButtons() {
  cmdDowload_ = MakeButton(tr("&Download"), "cmdDowload");
  cmdLookup_ = MakeButton(tr("&Lookup"), "cmdLookup");
  cmdPrint_ = MakeButton(tr("&Print..."), "cmdPrint");
  cmdDelete_ = MakeButton(tr("D&elete"), "cmdDelete");
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  cmdDowload_->setToolTip(tr("Fetch the latest values of what is ticked"));
  cmdLookup_->setToolTip(tr("Open the source's page for symbols in the browser"));
  cmdDelete_->setToolTip(tr("Remove what is ticked from the list"));
  cmdSources_ = MakeButton(tr("Data So&urces..."), "cmdSources");
  cmdSources_->setToolTip(tr("See and change where prices and exchange rates come from"));
  AddTools({cmdLookup_, cmdSources_, cmdPrint_});
  AddButtonRow({cmdDelete_}, {cmdDowload_, cancel});
  connect(cmdDowload_, &QPushButton::clicked, this, &FrmStock::Download);
  connect(cmdDelete_, &QPushButton::clicked, this, &FrmStock::Delete);
  connect(cmdPrint_, &QPushButton::clicked, this, &FrmStock::Print);
  connect(cmdLookup_, &QPushButton::clicked, this, [this] {
    Run([this] {
      const auto warning = lookup_.OpenLookUp(cmbDataSource_->currentData().toLongLong());
      if (warning) Warn(*warning);
    });
  });
  connect(cmdSources_, &QPushButton::clicked, this, &FrmStock::OpenDataSources);
  connect(cancel, &QPushButton::clicked, this, &FrmStock::reject);
}

// The one that was chosen stays so.
void FrmStock::FillSources() {
  const QVariant chosen = cmbDataSource_->currentData();
  cmbDataSource_->clear();
  for (const WatchSource& source : lookup_.Sources()) {
    cmbDataSource_->addItem(ToQt(source.name), static_cast<qint64>(source.dataId));
  }
  const int place = cmbDataSource_->findData(chosen);
  cmbDataSource_->setCurrentIndex(place < 0 && cmbDataSource_->count() > 0 ? 0 : place);
}

void FrmStock::FillList() {
  model_->setRowCount(0);
  for (const WatchEntry& entry : lookup_.Entries()) AddEntry(entry);
  EnableButtons();
}

void FrmStock::AddEntry(const WatchEntry& entry) {
  auto* symbol = new QStandardItem(ToQt(entry.symbol));
  symbol->setCheckable(true);
  symbol->setCheckState(Qt::Checked);
  symbol->setData(entry.number, kNumberRole);
  QList<QStandardItem*> row{symbol};
  for (int column = kValue; column < kColumns; ++column) {
    auto* cell = new QStandardItem;
    if (column != kDateTime) cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row.append(cell);
  }
  model_->appendRow(row);
}

std::string FrmStock::Typed() const {
  return txtSymbol_ != nullptr ? FromQt(txtSymbol_->text()) : cmbSymbol_->Code();
}

std::vector<QStandardItem*> FrmStock::Ticked() const {
  std::vector<QStandardItem*> rows;
  for (int row = 0; row < model_->rowCount(); ++row) {
    QStandardItem* item = model_->item(row, kSymbol);
    if (item->checkState() == Qt::Checked) rows.push_back(item);
  }
  return rows;
}

// Enter adds what was typed, and downloads where nothing was.
void FrmStock::ShowDefault() {
  const bool isTyped =
      txtSymbol_ != nullptr ? !txtSymbol_->text().isEmpty() : !cmbSymbol_->currentText().isEmpty();
  (isTyped ? cmdNew_ : cmdDowload_)->setDefault(true);
}

void FrmStock::EnableButtons() {
  cmdDelete_->setEnabled(!Ticked().empty());
  cmdPrint_->setEnabled(model_->rowCount() > 0);
  cmdLookup_->setEnabled(cmbDataSource_->count() > 0);
}

void FrmStock::New() {
  Run([this] {
    if (const auto warning = lookup_.Add(Typed())) return Warn(*warning);
    AddEntry(lookup_.Entries().back());
    EnableButtons();
    if (txtSymbol_ != nullptr) {
      txtSymbol_->clear();
    } else {
      cmbSymbol_->SetCode({});
    }
    FocusFirstField();
  });
}

void FrmStock::Delete() {
  const std::vector<QStandardItem*> ticked = Ticked();
  if (ticked.empty()) return;
  Run([&] {
    std::vector<int> numbers;
    for (const QStandardItem* item : ticked) numbers.push_back(item->data(kNumberRole).toInt());
    if (!lookup_.Delete(numbers)) return;
    for (QStandardItem* item : ticked) model_->removeRow(item->row());
    EnableButtons();
  });
}

void FrmStock::Download() {
  Note({});
  Run([this] {
    const std::vector<QStandardItem*> ticked = Ticked();
    std::vector<std::string> symbols;
    for (const QStandardItem* item : ticked) symbols.push_back(FromQt(item->text()));
    const LookupForm form{cmbDataSource_->currentData().toLongLong(), cmbCurrency_->Code()};
    if (!form.currency.empty()) lookup_.KeepCurrency(form.currency);
    std::optional<Warning> warning;
    {
      const WaitCursor waiting;
      warning = lookup_.Download(form, symbols, [&](std::size_t row, const WatchValue& value) {
        const int at = ticked[row]->row();
        model_->item(at, kValue)->setText(ToQt(value.value));
        model_->item(at, kDateTime)->setText(ToQt(value.dateTime));
        model_->item(at, kTrend)->setText(ToQt(value.trend));
      });
    }
    Note(ToQt(lookup_.Note()));
    if (!warning) return;
    Warn(*warning);
    if (lookup_.IsUnanswered()) cmdSources_->setFocus(Qt::OtherFocusReason);
  });
}

void FrmStock::OpenDataSources() {
  Run([this] {
    OpenSources({place_.platform, place_.ledger, place_.rates, this},
                cmbDataSource_->currentData().toLongLong());
    FillSources();
  });
}

void FrmStock::Print() {
  Run([this] {
    PrintList(PrintTableOf(*lvLookUp_, lookup_.Caption()), {place_.platform, this, choose_});
  });
}

}  // namespace corvanta::inline invest
