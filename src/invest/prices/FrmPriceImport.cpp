#include "invest/prices/FrmPriceImport.h"

#include "controls/AmountEdit.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "exchange/csv/CsvPreview.h"
#include "exchange/csv/ucSavedMappings.h"
#include "invest/ucEntryList.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/PriceBook.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Settings.h"
#include "platform/StatusWords.h"
#include "platform/TextCase.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace corvanta::inline invest {
namespace {

constexpr const char* kTitle = "Import Prices";
constexpr int kNarrowField = 18 * kRhythm;
constexpr int kListHeight = 24 * kRhythm;
constexpr std::size_t kShownRows = 200;
constexpr std::array kOrders = {DateOrder::DayMonthYear, DateOrder::MonthDayYear,
                                DateOrder::YearMonthDay};

}  // namespace

FrmPriceImport::FrmPriceImport(const InvestPlace& place, std::int64_t investmentId,
                               std::string text)
    : FormDialog(QStringLiteral("FrmPriceImport"), place.platform.prompts, place.parent),
      place_(place),
      investmentId_(investmentId),
      text_(std::move(text)),
      saved_(place.platform.registry, MappedFile::Prices),
      mappings_(new ucSavedMappings(
          saved_, place.platform.prompts, kTitle,
          [this](const std::string& name) { return SaveMapping(name); }, this)),
      lvRead_(new ucEntryList(
          "lvRead", tr("Prices as they will be read"),
          {{tr("Date"), "00/00/0000", 1}, {tr("Price"), "00,000.000000", 1, true}}, this)),
      cmbColDate_(new QComboBox(this)),
      cmbColPrice_(new QComboBox(this)),
      txtSeparator_(new QLineEdit(this)),
      txtSkip_(new AmountEdit(place.platform.locale, this, AmountText::Whole)),
      cmbDateOrder_(new QComboBox(this)),
      cmbNumbers_(new QComboBox(this)) {
  setWindowTitle(tr("Import Prices"));
  SetSmallestField(kNarrowField);
  lvRead_->setMinimumHeight(kListHeight);
  auto* above = new QWidget(this);
  auto* column = new QVBoxLayout(above);
  column->setContentsMargins(0, 0, 0, 0);
  auto* line = new QHBoxLayout;
  auto* caption = new QLabel(tr("Saved &mapping:"), above);
  caption->setBuddy(mappings_->Box());
  line->addWidget(caption);
  line->addWidget(mappings_, 1);
  column->addLayout(line);
  column->addWidget(lvRead_, 1);
  AddAbove(above);
  MakeFields();
  cmdAccept_ = MakeButton(tr("&Import"), "cmdAccept");
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  cmdAccept_->setDefault(true);
  AddButtonRow({}, {cmdAccept_, cancel});
  connect(cmdAccept_, &QPushButton::clicked, this, &FrmPriceImport::Accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(mappings_, &ucSavedMappings::Chosen, this, [this](const QString& name) {
    if (const auto saved = saved_.Find(FromQt(name))) Show(saved->mapping);
  });
  connect(mappings_, &ucSavedMappings::Noted, this, &FrmPriceImport::Note);
  Propose();
}

void FrmPriceImport::MakeFields() {
  AddField(tr("Dat&e:"), cmbColDate_, "cmbColDate");
  AddField(tr("&Price:"), cmbColPrice_, "cmbColPrice");
  AddField(tr("&Rows to skip:"), txtSkip_, "txtSkip");
  StartColumn();
  AddField(tr("Separa&tor:"), txtSeparator_, "txtSeparator");
  AddField(tr("Date &order:"), cmbDateOrder_, "cmbDateOrder");
  AddField(tr("&Numbers:"), cmbNumbers_, "cmbNumbers");
  txtSeparator_->setToolTip(tr("One character, or Tab"));
  for (const DateOrder order : kOrders) cmbDateOrder_->addItem(ToQt(DateOrderText(order)));
  cmbNumbers_->addItems(
      {tr("As the file shows"), QStringLiteral("1,234.56"), QStringLiteral("1.234,56")});
  for (QComboBox* box : {cmbColDate_, cmbColPrice_, cmbDateOrder_, cmbNumbers_}) {
    connect(box, &QComboBox::activated, this, &FrmPriceImport::Refresh);
  }
  connect(txtSeparator_, &QLineEdit::textEdited, this, &FrmPriceImport::Refresh);
  connect(txtSkip_, &QLineEdit::textEdited, this, &FrmPriceImport::Refresh);
}

void FrmPriceImport::Propose() {
  const auto known = saved_.NameOf([this](const SavedCsvMapping& saved) {
    return HeaderOf(text_, saved.mapping) == saved.header;
  });
  mappings_->ShowNames(known.value_or(std::string()));
  Show(known ? saved_.Find(*known)->mapping : ProposePriceMapping(text_, place_.platform.locale));
}

std::optional<Warning> FrmPriceImport::SaveMapping(const std::string& name) {
  if (Trim(name).empty()) {
    return Warning{kTitle, "Please enter a name for the mapping", "cmbMapping"};
  }
  const CsvMapping mapping = Mapping();
  saved_.Save(std::string(Trim(name)), {mapping, HeaderOf(text_, mapping)});
  return std::nullopt;
}

void FrmPriceImport::Show(const CsvMapping& mapping) {
  txtSeparator_->setText(mapping.separator == "\t" ? tr("Tab") : ToQt(mapping.separator));
  txtSkip_->SetAmount(mapping.skip);
  const auto* const order = std::ranges::find(kOrders, mapping.order);
  cmbDateOrder_->setCurrentIndex(static_cast<int>(order - kOrders.begin()));
  const std::vector<CsvRow> rows = FirstRows(text_, mapping.separator, kPreviewRows);
  auto columns = static_cast<std::size_t>(std::max(mapping.date, mapping.income));
  for (const CsvRow& row : rows) columns = std::max(columns, row.cells.size());
  for (QComboBox* box : {cmbColDate_, cmbColPrice_}) {
    box->clear();
    box->addItem(tr("None"));
    for (std::size_t i = 0; i < columns; ++i) box->addItem(tr("Column %1").arg(i + 1));
  }
  cmbColDate_->setCurrentIndex(mapping.date);
  cmbColPrice_->setCurrentIndex(mapping.income);
  cmbNumbers_->setCurrentIndex(!mapping.decimalMark                         ? 0
                               : *mapping.decimalMark == DecimalMark::Point ? 1
                                                                            : 2);
  Refresh();
}

CsvMapping FrmPriceImport::Mapping() const {
  CsvMapping mapping;
  mapping.date = cmbColDate_->currentIndex();
  mapping.income = mapping.expense = cmbColPrice_->currentIndex();
  mapping.skip = static_cast<int>(txtSkip_->Amount().value_or(0));
  mapping.separator = SeparatorOf(FromQt(txtSeparator_->text())).value_or(",");
  mapping.order = kOrders[static_cast<std::size_t>(cmbDateOrder_->currentIndex())];
  if (cmbNumbers_->currentIndex() > 0) {
    mapping.decimalMark =
        cmbNumbers_->currentIndex() == 1 ? DecimalMark::Point : DecimalMark::Comma;
  }
  return mapping;
}

void FrmPriceImport::Refresh() {
  read_ = ReadPriceFile(text_, Mapping(), place_.platform.locale);
  const Locale& locale = place_.platform.locale;
  const int decimals = Settings(place_.platform.registry).InvestmentDecimals();
  lvRead_->Clear();
  for (std::size_t i = 0; i < read_.prices.size() && i < kShownRows; ++i) {
    const DayPrice& row = read_.prices[i];
    lvRead_->AddRow(
        {ToQt(locale.FormatShortDate(row.date)), ToQt(locale.FormatNumber(row.price, decimals))});
  }
  cmdAccept_->setEnabled(!read_.prices.empty());
  QString note = tr("Prices: %1.").arg(read_.prices.size());
  if (!read_.problems.empty()) {
    const PriceFileRows::Problem& first = read_.problems.front();
    note += tr(" Rows without one: %1, the first in line %2: %3")
                .arg(read_.problems.size())
                .arg(first.line)
                .arg(ToQt(first.text));
  }
  Note(note);
}

void FrmPriceImport::Accept() {
  Run([this] {
    const StatusWords words(place_.platform.progress, "Importing prices...");
    if (!place_.ledger.Prices().StorePrices(investmentId_, read_.prices)) return Refresh();
    MarkChanged();
    accept();
  });
}

}  // namespace corvanta::inline invest
