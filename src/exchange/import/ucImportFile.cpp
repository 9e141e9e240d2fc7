#include "exchange/import/ucImportFile.h"

#include "controls/CommandEdge.h"
#include "controls/LongText.h"
#include "controls/MutedLabel.h"
#include "controls/PickBox.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "exchange/text/ucEncodingBox.h"
#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "platform/Prompts.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QUrl>

#include <algorithm>

namespace corvanta::inline exchange {
namespace {

constexpr int kFieldWidth = 52 * kRhythm;
// In the list, 0 stands for a name that is not in it.
constexpr qint64 kAccountsOfFile = -1;

QString KindText(ImportKind kind) {
  switch (kind) {
    case ImportKind::Qif:
      return ucImportFile::tr("A QIF file.");
    case ImportKind::Ofx:
      return ucImportFile::tr("A statement in OFX.");
    case ImportKind::Csv:
      break;
  }
  return ucImportFile::tr("A CSV file. Its columns are chosen in the next step.");
}

}  // namespace

ucImportFile::ucImportFile(ImportEditor& editor, Prompts& prompts, QWidget* parent)
    : QWidget(parent),
      editor_(editor),
      prompts_(prompts),
      fields_(new QFormLayout(this)),
      txtFile_(MakeFile(*fields_)),
      lblKind_(new MutedLabel(this)),
      cmbAccount_(MakeAccounts(*fields_)),
      lblOwner_(new MutedLabel(this)),
      cmbOwner_(new QComboBox(this)),
      lblCurrency_(new MutedLabel(this)),
      chkCurrency_(new QCheckBox(this)),
      cmbDateOrder_(MakeStyles(*fields_, tr("&Dates:"), "cmbDateOrder",
                               {ToQt(DateOrderText(DateOrder::DayMonthYear)),
                                ToQt(DateOrderText(DateOrder::MonthDayYear)),
                                ToQt(DateOrderText(DateOrder::YearMonthDay))})),
      cmbNumbers_(MakeStyles(*fields_, tr("&Numbers:"), "cmbNumbers",
                             {QStringLiteral("1,234.56"), QStringLiteral("1.234,56")})),
      cmbEncoding_(new ucEncodingBox(this)) {
  fields_->setContentsMargins(0, 0, 0, 0);
  fields_->setVerticalSpacing(kRhythm);
  fields_->setHorizontalSpacing(2 * kRhythm);
  fields_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  fields_->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  cmbEncoding_->setObjectName(QStringLiteral("cmbEncoding"));
  cmbEncoding_->setAccessibleName(tr("Characters"));
  auto* letters = new QLabel(tr("C&haracters:"), this);
  letters->setBuddy(cmbEncoding_);
  fields_->addRow(letters, cmbEncoding_);
  lblKind_->setObjectName(QStringLiteral("lblKind"));
  lblKind_->setTextFormat(Qt::PlainText);
  lblKind_->setWordWrap(true);
  // Two lines, so that the fields below stay where they are.
  lblKind_->setMinimumHeight(2 * lblKind_->fontMetrics().lineSpacing());
  lblKind_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  fields_->insertRow(1, QString(), lblKind_);
  PlaceOwner();
  Look();
}

void ucImportFile::PlaceOwner() {
  lblOwner_->setObjectName(QStringLiteral("lblOwner"));
  lblOwner_->setTextFormat(Qt::PlainText);
  lblOwner_->setWordWrap(true);
  cmbOwner_->setObjectName(QStringLiteral("cmbOwner"));
  cmbOwner_->setAccessibleName(tr("Records go"));
  // As wide as its column, and not as a name.
  cmbOwner_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  auto* label = new QLabel(tr("&Records go:"), this);
  label->setBuddy(cmbOwner_);
  int row = 0;
  QFormLayout::ItemRole role{};
  fields_->getWidgetPosition(cmbAccount_, &row, &role);
  fields_->insertRow(row + 1, QString(), lblOwner_);
  fields_->insertRow(row + 2, label, cmbOwner_);
  QWidget::setTabOrder(cmbAccount_, cmbOwner_);
  connect(cmbAccount_, &QComboBox::currentTextChanged, this, &ucImportFile::AskForOwner);
  PlaceCurrency(row + 3);
}

void ucImportFile::PlaceCurrency(int row) {
  lblCurrency_->setObjectName(QStringLiteral("lblCurrency"));
  lblCurrency_->setTextFormat(Qt::PlainText);
  lblCurrency_->setWordWrap(true);
  chkCurrency_->setObjectName(QLatin1String(kCurrencyField));
  fields_->insertRow(row, QString(), lblCurrency_);
  fields_->insertRow(row + 1, QString(), chkCurrency_);
  QWidget::setTabOrder(cmbOwner_, chkCurrency_);
  // Which account takes the records decides whether there is anything to ask.
  connect(cmbOwner_, &QComboBox::currentIndexChanged, this, &ucImportFile::AskForCurrency);
}

void ucImportFile::AskForCurrency() {
  std::optional<CurrencyQuestion> question;
  RunCommand(prompts_, [&] {
    ImportForm form;
    ReadInto(form);
    const bool isOwnerOpen = isOwnerAsked_ && !form.chosenTakesAll;
    if (kind_ && !isOwnerOpen) question = editor_.AskCurrency(form);
  });
  const QString text = question ? Breakable(ToQt(question->text)) : QString();
  // An answer holds for the question that it was given to.
  if (text != lblCurrency_->text()) chkCurrency_->setChecked(false);
  lblCurrency_->setText(text);
  const bool isAsked = question.has_value();
  if (isAsked) chkCurrency_->setText(ToQt(question->agreed).replace(u'&', QLatin1String("&&")));
  fields_->setRowVisible(lblCurrency_, isAsked);
  fields_->setRowVisible(chkCurrency_, isAsked);
  lblCurrency_->setMinimumHeight(isAsked ? std::max(0, lblCurrency_->heightForWidth(kFieldWidth))
                                         : 0);
  Q_EMIT OwnerAsked();
}

void ucImportFile::AskForOwner() {
  std::optional<AccountQuestion> question;
  RunCommand(prompts_, [&] {
    ImportForm form;
    ReadInto(form);
    if (kind_) question = editor_.Question(form);
  });
  const QString text = question ? Breakable(ToQt(question->text)) : QString();
  const bool isAsked = question.has_value();
  // An answer holds for the question that it was given to.
  if (isAsked && (text != lblOwner_->text() || cmbOwner_->count() == 0)) {
    cmbOwner_->clear();
    cmbOwner_->addItem(tr("Please choose"));
    cmbOwner_->addItems({ToQt(question->named), ToQt(question->chosen)});
  }
  lblOwner_->setText(text);
  fields_->setRowVisible(lblOwner_, isAsked);
  fields_->setRowVisible(cmbOwner_, isAsked);
  isOwnerAsked_ = isAsked;
  lblOwner_->setMinimumHeight(isAsked ? std::max(0, lblOwner_->heightForWidth(kFieldWidth)) : 0);
  AskForCurrency();
}

QLineEdit* ucImportFile::MakeFile(QFormLayout& fields) {
  auto* file = new QLineEdit(this);
  file->setObjectName(QStringLiteral("txtFile"));
  file->setAccessibleName(tr("File"));
  file->setMinimumWidth(kFieldWidth);
  auto* browse = new QPushButton(tr("&Browse..."), this);
  browse->setObjectName(QStringLiteral("cmdFile"));
  auto* row = new QHBoxLayout;
  row->setSpacing(kRhythm);
  row->addWidget(file, 1);
  row->addWidget(browse);
  auto* label = new QLabel(tr("&File:"), this);
  label->setBuddy(file);
  fields.addRow(label, row);
  connect(file, &QLineEdit::editingFinished, this, &ucImportFile::Look);
  connect(browse, &QPushButton::clicked, this, &ucImportFile::Browse);
  return file;
}

PickBox* ucImportFile::MakeAccounts(QFormLayout& fields) {
  auto* box = new PickBox(this);
  box->setObjectName(QStringLiteral("cmbAccount"));
  box->setAccessibleName(tr("Account"));
  std::vector<PickItem> items;
  for (const ImportAccountChoice& choice : editor_.Accounts()) {
    items.push_back(
        {choice.accountId == 0 ? kAccountsOfFile : choice.accountId, ToQt(choice.name)});
  }
  box->SetItems(items);
  auto* label = new QLabel(tr("&Account:"), this);
  label->setBuddy(box);
  fields.addRow(label, box);
  return box;
}

QComboBox* ucImportFile::MakeStyles(QFormLayout& fields, const QString& label, const char* name,
                                    const QStringList& styles) {
  auto* box = new QComboBox(this);
  box->setObjectName(QLatin1String(name));
  box->setAccessibleName(QString(label).remove(u'&').remove(u':'));
  box->addItem(tr("As the file shows"));
  box->addItems(styles);
  auto* caption = new QLabel(label, this);
  caption->setBuddy(box);
  fields.addRow(caption, box);
  return box;
}

void ucImportFile::Open(std::int64_t accountId, const std::string& file) {
  cmbAccount_->SetKey(accountId);
  txtFile_->setText(ToQt(file));
  Look();
  if (file.empty()) return txtFile_->setFocus();
  cmbAccount_->setFocus();
}

std::string ucImportFile::File() const {
  const QString text = txtFile_->text().trimmed();
  // A file that is dropped from a folder's window.
  return FromQt(text.startsWith(QLatin1String("file://")) ? QUrl(text).toLocalFile() : text);
}

void ucImportFile::ReadInto(ImportForm& form) const {
  const std::string file = File();
  if (file != form.file) form.encoding.clear();
  form.file = file;
  const qint64 account = cmbAccount_->Key();
  form.accountId.reset();
  if (account != 0) form.accountId = account == kAccountsOfFile ? 0 : account;
  form.chosenTakesAll.reset();
  if (isOwnerAsked_ && cmbOwner_->currentIndex() > 0) {
    form.chosenTakesAll = cmbOwner_->currentIndex() == 2;
  }
  form.takesFigures = chkCurrency_->isChecked();
  form.dateOrder.reset();
  form.decimalMark.reset();
  const bool hasDates = kind_ == ImportKind::Qif;
  if (hasDates && cmbDateOrder_->currentIndex() > 0) {
    form.dateOrder = DateOrderOf(FromQt(cmbDateOrder_->currentText()));
  }
  const bool hasNumbers = hasDates || kind_ == ImportKind::Ofx;
  if (hasNumbers) form.encoding = cmbEncoding_->Encoding();
  if (hasNumbers && cmbNumbers_->currentIndex() > 0) {
    form.decimalMark = cmbNumbers_->currentIndex() == 1 ? DecimalMark::Point : DecimalMark::Comma;
  }
}

void ucImportFile::Browse() {
  RunCommand(prompts_, [this] {
    const auto path = prompts_.OpenFile(
        {"Select File to Import", "Statements (" + ImportPattern() + ");;All Files", "*", {}, {}});
    if (!path) return;
    txtFile_->setText(ToQt(*path));
    Look();
    cmbAccount_->setFocus();
  });
}

void ucImportFile::Look() {
  const std::string file = File();
  if (file == lookedAt_ && kind_) return;
  lookedAt_ = file;
  kind_.reset();
  if (file.empty()) return ShowKind(tr("A statement from a bank or a file of another program."));
  if (!FileExists(file)) return ShowKind(tr("There is no such file."));
  // What is wrong stands here while it is typed, and is told when the import is asked for.
  try {
    if (const auto warning = editor_.Open(file)) return ShowKind(ToQt(warning->text));
  } catch (const PlatformError& error) {
    return ShowKind(ToQt(error.what()));
  }
  kind_ = editor_.Kind();
  ShowKind(KindText(*kind_));
}

void ucImportFile::ShowKind(const QString& text) {
  lblKind_->setText(text);
  fields_->setRowVisible(cmbDateOrder_, kind_ == ImportKind::Qif);
  for (QWidget* field : {static_cast<QWidget*>(cmbNumbers_), static_cast<QWidget*>(cmbEncoding_)}) {
    fields_->setRowVisible(field, kind_ == ImportKind::Qif || kind_ == ImportKind::Ofx);
  }
  Q_EMIT KindChanged();
  AskForOwner();
}

}  // namespace corvanta::inline exchange
