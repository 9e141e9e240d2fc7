#include "exchange/csv/ucImportCsv.h"

#include "controls/CommandEdge.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "exchange/csv/ucSavedMappings.h"
#include "exchange/import/ucImportPreview.h"
#include "exchange/text/ucEncodingBox.h"
#include "platform/Prompts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline exchange {
namespace {

struct ColumnBox {
  const char* name;
  const char* label;
  int CsvMapping::*column;
  int group;  // of those that stand side by side
  int row;
};
// As they are read.
constexpr std::array<ColumnBox, 9> kColumns = {{
    {"cmbColDate", QT_TRANSLATE_NOOP("ucImportCsv", "Dat&e:"), &CsvMapping::date, 1, 1},
    {"cmbColPayee", QT_TRANSLATE_NOOP("ucImportCsv", "&Payee:"), &CsvMapping::payee, 1, 2},
    {"cmbColCategory", QT_TRANSLATE_NOOP("ucImportCsv", "&Category:"), &CsvMapping::category, 1, 3},
    {"cmbColDescription", QT_TRANSLATE_NOOP("ucImportCsv", "&Description:"),
     &CsvMapping::description, 1, 4},
    {"cmbColReference", QT_TRANSLATE_NOOP("ucImportCsv", "Re&ference:"), &CsvMapping::reference, 1,
     5},
    {"cmbColIncome", QT_TRANSLATE_NOOP("ucImportCsv", "&Income:"), &CsvMapping::income, 2, 1},
    {"cmbColExpense", QT_TRANSLATE_NOOP("ucImportCsv", "E&xpense:"), &CsvMapping::expense, 2, 2},
    {"cmbColSign", QT_TRANSLATE_NOOP("ucImportCsv", "Si&gn:"), &CsvMapping::sign, 2, 3},
    {"cmbColNumber", QT_TRANSLATE_NOOP("ucImportCsv", "N&umber:"), &CsvMapping::number, 2, 5},
}};
constexpr int kWordsRow = 4;
constexpr std::array kOrders = {DateOrder::DayMonthYear, DateOrder::MonthDayYear,
                                DateOrder::YearMonthDay};

std::optional<DecimalMark> MarkAt(int index) {
  if (index <= 0) return std::nullopt;
  return index == 1 ? DecimalMark::Point : DecimalMark::Comma;
}

int IndexOf(std::optional<DecimalMark> mark) {
  if (!mark) return 0;
  return *mark == DecimalMark::Point ? 1 : 2;
}

}  // namespace

ucImportCsv::ucImportCsv(ImportEditor& editor, Prompts& prompts, QWidget* parent)
    : QWidget(parent),
      editor_(editor),
      prompts_(prompts),
      mappings_(new ucSavedMappings(
          editor.Mappings(), prompts, kFileImport,
          [this](const std::string& name) {
            ReadInto(form_);
            return editor_.SaveMapping(name, form_);
          },
          this)),
      txtSeparator_(new QLineEdit(this)),
      txtSkip_(new QLineEdit(this)),
      cmbDateOrder_(new QComboBox(this)),
      cmbNumbers_(new QComboBox(this)),
      cmbEncoding_(new ucEncodingBox(this)),
      chkZeroIsEmpty_(new QCheckBox(tr("&Zero means empty"), this)),
      txtDebitWords_(new QLineEdit(this)),
      txtCreditWords_(new QLineEdit(this)),
      preview_(new ucImportPreview(this)) {
  static_assert(kColumns.size() == kColumnBoxes);
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(kRhythm);
  grid->setVerticalSpacing(kRhythm);
  MakeMapping(*grid);
  MakeFileFields(*grid);
  MakeColumns(*grid);
  MakeWords(*grid);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(0, 0, 0, 0);
  page->setSpacing(kRhythm + kRhythm / 2);
  page->addLayout(grid);
  page->addWidget(preview_, 1);
  OrderTabs();
}

// A label and its field in one of the three groups that stand side by side.
void ucImportCsv::AddField(QGridLayout& grid, int row, int group, const QString& label,
                           QWidget* field, const char* name) {
  field->setObjectName(QLatin1String(name));
  field->setAccessibleName(QString(label).remove(u'&').remove(u':'));
  auto* caption = new QLabel(label, this);
  caption->setBuddy(field);
  grid.addWidget(caption, row, 3 * group);
  grid.addWidget(field, row, 3 * group + 1);
  grid.setColumnStretch(3 * group + 1, 1);
  if (group > 0) grid.setColumnMinimumWidth(3 * group - 1, kRhythm);
}

void ucImportCsv::MakeMapping(QGridLayout& grid) {
  auto* caption = new QLabel(tr("Saved &mapping:"), this);
  caption->setBuddy(mappings_->Box());
  grid.addWidget(caption, 0, 0);
  grid.addWidget(mappings_, 0, 1, 1, 4);
  connect(mappings_, &ucSavedMappings::Chosen, this, &ucImportCsv::ChooseMapping);
  connect(mappings_, &ucSavedMappings::Noted, this, &ucImportCsv::Noted);
}

void ucImportCsv::MakeFileFields(QGridLayout& grid) {
  AddField(grid, 1, 0, tr("Separa&tor:"), txtSeparator_, "txtSeparator");
  txtSeparator_->setToolTip(tr("One character, or Tab"));
  AddField(grid, 2, 0, tr("&Rows to skip:"), txtSkip_, "txtSkip");
  AddField(grid, 3, 0, tr("Date &order:"), cmbDateOrder_, "cmbDateOrderCSV");
  AddField(grid, 4, 0, tr("&Numbers:"), cmbNumbers_, "cmbNumbersCSV");
  AddField(grid, 5, 0, tr("C&haracters:"), cmbEncoding_, "cmbEncodingCSV");
  for (const DateOrder order : kOrders) cmbDateOrder_->addItem(ToQt(DateOrderText(order)));
  cmbNumbers_->addItems(
      {tr("As the file shows"), QStringLiteral("1,234.56"), QStringLiteral("1.234,56")});
  for (QLineEdit* field : {txtSeparator_, txtSkip_}) {
    connect(field, &QLineEdit::textEdited, this, &ucImportCsv::ChangeDates);
  }
  connect(cmbDateOrder_, &QComboBox::activated, this, [this] {
    isOrderChosen_ = true;
    Refresh();
  });
  connect(cmbNumbers_, &QComboBox::activated, this, &ucImportCsv::Refresh);
  connect(cmbEncoding_, &QComboBox::activated, this, &ucImportCsv::ChangeEncoding);
}

void ucImportCsv::MakeColumns(QGridLayout& grid) {
  for (std::size_t i = 0; i < kColumnBoxes; ++i) {
    columns_[i] = new QComboBox(this);
    const ColumnBox& column = kColumns[i];
    AddField(grid, column.row, column.group, tr(column.label), columns_[i], column.name);
    columns_[i]->addItem(tr("None"));
    const bool isDate = column.column == &CsvMapping::date;
    connect(columns_[i], &QComboBox::activated, this,
            isDate ? &ucImportCsv::ChangeDates : &ucImportCsv::Refresh);
  }
  chkZeroIsEmpty_->setObjectName(QStringLiteral("chkZeroIsEmpty"));
  chkZeroIsEmpty_->setToolTip(tr("0.00 stands for an empty cell in the columns of the amounts"));
  grid.addWidget(chkZeroIsEmpty_, 0, 7);
  connect(chkZeroIsEmpty_, &QCheckBox::clicked, this, &ucImportCsv::Refresh);
}

// What the sign column says where it is in no language that is known.
void ucImportCsv::MakeWords(QGridLayout& grid) {
  auto* words = new QHBoxLayout;
  words->setSpacing(kRhythm);
  const auto add = [&](QLineEdit* field, const char* name, const QString& shown,
                       const QString& spoken) {
    field->setObjectName(QLatin1String(name));
    field->setPlaceholderText(shown);
    field->setAccessibleName(spoken);
    field->setToolTip(tr("What the sign column says, with commas between several words"));
    words->addWidget(field, 1);
    connect(field, &QLineEdit::textEdited, this, &ucImportCsv::Refresh);
  };
  add(txtDebitWords_, "txtDebitWords", tr("Debit"), tr("Words for debit"));
  add(txtCreditWords_, "txtCreditWords", tr("Credit"), tr("Words for credit"));
  auto* caption = new QLabel(tr("&Words:"), this);
  caption->setBuddy(txtDebitWords_);
  grid.addWidget(caption, kWordsRow, 6);
  grid.addLayout(words, kWordsRow, 7);
}

// As they are read, whatever the order in which they were made.
void ucImportCsv::OrderTabs() {
  QWidget* last = nullptr;
  for (const char* name :
       {"cmbMapping",      "cmdSaveMapping",  "cmdDeleteMapping", "txtSeparator",
        "txtSkip",         "cmbDateOrderCSV", "cmbNumbersCSV",    "cmbEncodingCSV",
        "cmbColDate",      "cmbColPayee",     "cmbColCategory",   "cmbColDescription",
        "cmbColReference", "chkZeroIsEmpty",  "cmbColIncome",     "cmbColExpense",
        "cmbColSign",      "txtDebitWords",   "txtCreditWords",   "cmbColNumber",
        "lvFile",          "lvRead"}) {
    auto* next = findChild<QWidget*>(QLatin1String(name));
    if (last != nullptr) setTabOrder(last, next);
    last = next;
  }
}

void ucImportCsv::Propose(const ImportForm& form) {
  std::string name;
  const ImportForm proposed = editor_.Propose(form, name);
  mappings_->ShowNames(name);
  isOrderChosen_ = !name.empty();
  Show(proposed);
  if (proposed.encoding != form.encoding) ChangeEncoding();
}

void ucImportCsv::Show(const ImportForm& form) {
  form_ = form;
  txtSeparator_->setText(ToQt(form.separator));
  txtSkip_->setText(ToQt(form.skip));
  const auto* const order = std::ranges::find(kOrders, form.csv.order);
  cmbDateOrder_->setCurrentIndex(static_cast<int>(order - kOrders.begin()));
  cmbNumbers_->setCurrentIndex(IndexOf(form.csv.decimalMark));
  chkZeroIsEmpty_->setChecked(form.csv.zeroIsEmpty);
  cmbEncoding_->SetEncoding(form.encoding);
  txtDebitWords_->setText(ToQt(form.csv.debitWords));
  txtCreditWords_->setText(ToQt(form.csv.creditWords));
  int most = 0;
  for (const ColumnBox& column : kColumns) most = std::max(most, form.csv.*column.column);
  ShowColumnCount(most);
  for (std::size_t i = 0; i < kColumnBoxes; ++i) {
    columns_[i]->setCurrentIndex(form.csv.*kColumns[i].column);
  }
  Refresh();
}

void ucImportCsv::ReadInto(ImportForm& form) const {
  form.separator = FromQt(txtSeparator_->text());
  form.skip = FromQt(txtSkip_->text());
  form.csv.order = kOrders[static_cast<std::size_t>(cmbDateOrder_->currentIndex())];
  form.csv.decimalMark = MarkAt(cmbNumbers_->currentIndex());
  form.csv.zeroIsEmpty = chkZeroIsEmpty_->isChecked();
  form.csv.debitWords = FromQt(txtDebitWords_->text());
  form.csv.creditWords = FromQt(txtCreditWords_->text());
  form.encoding = cmbEncoding_->Encoding();
  for (std::size_t i = 0; i < kColumnBoxes; ++i) {
    form.csv.*kColumns[i].column = columns_[i]->currentIndex();
  }
}

// A chosen column stays in the list while the file, read otherwise for a moment, has not so many.
void ucImportCsv::ShowColumnCount(int columns) {
  int count = std::min(columns, QtImportPreviewModel::kMaxColumns);
  for (const QComboBox* box : columns_) count = std::max(count, box->currentIndex());
  for (QComboBox* box : columns_) {
    while (box->count() - 1 > count) box->removeItem(box->count() - 1);
    while (box->count() - 1 < count) box->addItem(CsvColumnName(box->count()));
  }
}

// The dates that are looked at are others: their order is found again, unless it was chosen.
void ucImportCsv::ChangeDates() {
  ReadInto(form_);
  if (!isOrderChosen_ && form_.csv.date != 0) {
    const auto* const order = std::ranges::find(kOrders, editor_.FindOrder(form_));
    cmbDateOrder_->setCurrentIndex(static_cast<int>(order - kOrders.begin()));
  }
  Refresh();
}

void ucImportCsv::ChangeEncoding() {
  RunCommand(prompts_, [this] {
    ReadInto(form_);
    if (const auto warning = editor_.Open(form_.file, form_.encoding)) {
      prompts_.Tell(warning->title, warning->text);
    }
    Refresh();
  });
}

void ucImportCsv::Refresh() {
  ReadInto(form_);
  for (QLineEdit* words : {txtDebitWords_, txtCreditWords_}) {
    words->setEnabled(form_.csv.sign != 0);
  }
  const CsvPreview preview = editor_.Preview(form_);
  ShowColumnCount(preview.columns);
  preview_->Show(preview);
  Q_EMIT Noted({});
}

void ucImportCsv::ChooseMapping(const QString& name) {
  RunCommand(prompts_, [&] {
    ReadInto(form_);
    isOrderChosen_ = true;
    const ImportForm chosen = editor_.WithMapping(FromQt(name), form_);
    const bool isOther = chosen.encoding != form_.encoding;
    Show(chosen);
    if (isOther) ChangeEncoding();
  });
}

}  // namespace corvanta::inline exchange
