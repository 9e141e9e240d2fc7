#include "invest/prices/FrmSource.h"

#include "controls/AmountEdit.h"
#include "controls/LongText.h"
#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/WaitCursor.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>

namespace corvanta::inline invest {
namespace {

constexpr int kField = 36 * kRhythm;
constexpr int kNarrowField = 20 * kRhythm;
constexpr int kAnswerHeight = 20 * kRhythm;
// Enough to see what came; a page may be as long as a book.
constexpr std::size_t kShownAnswer = 20'000;

}  // namespace

FrmSource::FrmSource(const InvestPlace& place)
    : EditorDialog(QStringLiteral("FrmSource"), tr("Data Source"), place.platform.prompts,
                   place.parent),
      platform_(place.platform),
      editor_(place.ledger, place.platform),
      txtName_(new QLineEdit(this)),
      cmbType_(new QComboBox(this)),
      cmbKind_(new QComboBox(this)),
      txtUrl_(new QLineEdit(this)),
      txtKey_(new QLineEdit(this)),
      txtStart_(new QLineEdit(this)),
      txtOccur_(new AmountEdit(place.platform.locale, this, AmountText::Whole)),
      txtField_(new QLineEdit(this)),
      txtOwnKey_(new QLineEdit(this)),
      txtLookUpUrl_(new QLineEdit(this)),
      txtTest_(new QLineEdit(this)),
      lblFound_(new MutedLabel(this)),
      txtAnswer_(new QTextEdit(this)) {
  SetSmallestField(kField);
  MakeFields();
  MakeTest();
  AddButtons();
  connect(cmbKind_, &QComboBox::currentIndexChanged, this, &FrmSource::EnableFields);
  connect(cmbType_, &QComboBox::activated, this, [this] {
    txtKey_->setText(ToQt(Type()));
    EnableFields();
  });
}

void FrmSource::MakeFields() {
  for (const std::string_view type : {kStockSource, kCurrencySource}) {
    cmbType_->addItem(tr(TypeWords(type).data()), ToQt(type));
  }
  for (const AnswerKind kind :
       {AnswerKind::Line, AnswerKind::Page, AnswerKind::Column, AnswerKind::Pointer}) {
    cmbKind_->addItem(tr(KindWords(kind).data()), static_cast<int>(kind));
  }
  AddField(tr("Na&me:"), txtName_, "txtName");
  AddField(tr("&For:"), cmbType_, "cmbType");
  AddField(tr("Add&ress:"), txtUrl_, "txtURL");
  AddField(tr("&Placeholder:"), txtKey_, "txtKey");
  AddField(tr("Your &key:"), txtOwnKey_, "txtOwnKey");
  AddField(tr("&Look-up page:"), txtLookUpUrl_, "txtLookUpURL");
  AddField(tr("&Answer is:"), cmbKind_, "cmbKind");
  AddField(tr("Mark&er:"), txtStart_, "txtStart");
  AddField(tr("&Occurrence:"), txtOccur_, "txtOccur");
  AddField(tr("Col&umn or pointer:"), txtField_, "txtField");
  txtUrl_->setToolTip(
      tr("In the address the placeholder stands for the symbol, or for both currencies one behind "
         "the other; FROM and TO stand for one currency each, APIKEY for your key"));
  txtKey_->setToolTip(tr("The word in the address that the symbol takes the place of"));
  txtOwnKey_->setEchoMode(QLineEdit::PasswordEchoOnEdit);
  txtOwnKey_->setToolTip(
      tr("What the service has given you; it takes the place of APIKEY in the address, and is kept "
         "in the encrypted data file"));
  txtStart_->setToolTip(tr("The text in the page that stands before the value"));
  txtOccur_->setToolTip(tr("Behind which of several such texts the value stands"));
  txtField_->setToolTip(
      tr("The name of the column in the first line, or a pointer such as /rates/TO"));
}

void FrmSource::MakeTest() {
  StartColumn();
  SetSmallestField(kNarrowField);
  auto* test = MakeButton(tr("&Test"), "cmdTest");
  test->setToolTip(tr("Ask the source as it stands here, and store nothing"));
  AddField(tr("Test &with:"), txtTest_, "txtTest", test);
  lblFound_->setWordWrap(true);
  lblFound_->setTextFormat(Qt::PlainText);
  lblFound_->setMinimumHeight(2 * fontMetrics().lineSpacing());
  AddField(tr("Found:"), lblFound_, "lblFound");
  txtAnswer_->setReadOnly(true);
  txtAnswer_->setTabChangesFocus(true);
  txtAnswer_->setMinimumHeight(kAnswerHeight);
  txtAnswer_->setAccessibleName(tr("The answer as it came"));
  AddField(tr("Answer:"), txtAnswer_, "txtAnswer");
  connect(test, &QPushButton::clicked, this, &FrmSource::Test);
}

std::string FrmSource::Type() const {
  return FromQt(cmbType_->currentData().toString());
}

AnswerKind FrmSource::Kind() const {
  return static_cast<AnswerKind>(cmbKind_->currentData().toInt());
}

void FrmSource::EnableFields() {
  const bool isPage = Kind() == AnswerKind::Page;
  txtStart_->setEnabled(isPage);
  txtOccur_->setEnabled(isPage);
  txtField_->setEnabled(Kind() == AnswerKind::Column || Kind() == AnswerKind::Pointer);
  txtTest_->setPlaceholderText(Type() == kCurrencySource ? QStringLiteral("EUR USD")
                                                         : tr("A symbol"));
}

bool FrmSource::Load(std::int64_t key) {
  const auto source = editor_.Load(key);
  if (!source) return false;
  Show(*source);
  if (key <= kLastDefaultSource) {
    Note(
        tr("This source came with the program: File, Validate may write it anew. What you add "
           "yourself stays as it is."));
  }
  return true;
}

void FrmSource::Propose(const SourceRow& source, const QString& note) {
  Show(source);
  Note(note);
}

void FrmSource::Show(const SourceRow& source) {
  txtName_->setText(ToQt(source.name));
  cmbType_->setCurrentIndex(cmbType_->findData(ToQt(source.type).toUpper()));
  cmbKind_->setCurrentIndex(cmbKind_->findData(static_cast<int>(source.kind)));
  txtUrl_->setText(ToQt(source.url));
  txtKey_->setText(ToQt(source.key));
  txtStart_->setText(ToQt(source.start));
  txtOccur_->SetAmount(source.occur == 0 ? 1.0 : static_cast<double>(source.occur));
  txtField_->setText(ToQt(source.field));
  txtOwnKey_->setText(ToQt(source.ownKey));
  txtLookUpUrl_->setText(ToQt(source.lookUpUrl));
  for (QLineEdit* line : {txtName_, txtUrl_, txtLookUpUrl_}) line->setCursorPosition(0);
  lblFound_->clear();
  txtAnswer_->clear();
  EnableFields();
}

SourceRow FrmSource::Form() const {
  SourceRow form;
  form.dataId = Key();
  form.name = FromQt(txtName_->text());
  form.type = Type();
  form.kind = Kind();
  form.url = FromQt(txtUrl_->text());
  form.key = FromQt(txtKey_->text());
  form.start = FromQt(txtStart_->text());
  form.occur = static_cast<std::int64_t>(txtOccur_->Amount().value_or(1));
  form.field = FromQt(txtField_->text());
  form.ownKey = FromQt(txtOwnKey_->text());
  form.lookUpUrl = FromQt(txtLookUpUrl_->text());
  return form;
}

QString FrmSource::ItemName() const {
  return txtName_->text().trimmed();
}

void FrmSource::Test() {
  Run([this] {
    const SourceRow form = Form();
    if (const auto warning = editor_.Check(form)) return Warn(*warning);
    const auto question = SourceEditor::QuestionOf(form.type, FromQt(txtTest_->text()));
    if (!question) {
      return Warn({"Download Warning",
                   Type() == kCurrencySource
                       ? "Enter the codes of two currencies to test with: EUR USD"
                       : "Enter a symbol to test with",
                   "txtTest"});
    }
    MarketData::Trial trial;
    {
      const WaitCursor waiting;
      trial = editor_.Test(form, *question);
    }
    lblFound_->setText(Breakable(ToQt(editor_.Result(trial))));
    QString answer = ToQt(trial.answer.substr(0, kShownAnswer));
    if (trial.answer.size() > kShownAnswer) {
      answer += tr("\n... and %1 more characters").arg(trial.answer.size() - kShownAnswer);
    }
    txtAnswer_->setPlainText(answer);
  });
}

}  // namespace corvanta::inline invest
