#include "tools/FrmCalculator.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/ArithmeticText.h"
#include "platform/Locale.h"
#include "platform/Platform.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace corvanta::inline tools {
namespace {
constexpr int kResultRole = Qt::UserRole;
constexpr int kDecimals = 6;

// "3.500000" as "3.5".
QString Shortest(QString number, QChar point) {
  if (!number.contains(point)) return number;
  while (number.endsWith(u'0')) number.chop(1);
  if (number.endsWith(point)) number.chop(1);
  return number;
}
}  // namespace

FrmCalculator::FrmCalculator(Platform& platform, QWidget* parent)
    : FormDialog(QStringLiteral("FrmCalculator"), platform.prompts, parent),
      platform_(platform),
      lvSums_(new QListWidget(this)),
      txtSum_(new QLineEdit(this)) {
  setWindowTitle(tr("Calculator"));
  MakeLayout();
  FocusFirstField();
}

void FrmCalculator::MakeLayout() {
  lvSums_->setObjectName(QStringLiteral("lvSums"));
  lvSums_->setAccessibleName(tr("Sums and their results"));
  lvSums_->setMinimumHeight(16 * kRhythm);
  AddAbove(lvSums_);
  txtSum_->setPlaceholderText(tr("Such as 12.50*3+(4-1)/2"));
  auto* work = MakeButton(tr("&Work Out"), "cmdAccept");
  auto* use = MakeButton(tr("&Use Result"), "cmdUse");
  auto* copy = MakeButton(tr("C&opy Result"), "cmdCopy");
  auto* clear = MakeButton(tr("C&lear"), "cmdClear");
  auto* close = MakeButton(tr("&Close"), "cmdCancel");
  use->setToolTip(tr("Put the chosen result into the line, to go on with it"));
  work->setDefault(true);
  AddField(tr("&Sum:"), txtSum_, "txtSum");
  AddButtonRow({work, use, copy, clear}, {close});
  connect(work, &QPushButton::clicked, this, &FrmCalculator::WorkOutLine);
  connect(use, &QPushButton::clicked, this, &FrmCalculator::UseResult);
  connect(copy, &QPushButton::clicked, this, &FrmCalculator::CopyResult);
  connect(clear, &QPushButton::clicked, this, [this] {
    lvSums_->clear();
    FocusFirstField();
  });
  connect(lvSums_, &QListWidget::itemActivated, this, &FrmCalculator::UseResult);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmCalculator::WorkOutLine() {
  Run([this] {
    QString sum = txtSum_->text().trimmed();
    if (sum.isEmpty()) return;
    // A sum that begins with an operator goes on with the last result.
    if (QStringLiteral("+*/").contains(sum.front())) sum.prepend(ResultOf(lvSums_->count() - 1));
    const auto result = WorkOut(FromQt(sum), platform_.locale, kDecimals);
    if (!result) {
      return Warn({"Calculation Warning",
                   "This is no sum that can be worked out. Type numbers with + - * / and brackets "
                   "between them.",
                   "txtSum"});
    }
    const QString point = ToQt(platform_.locale.FormatNumber(0.5, 1)).mid(1, 1);
    const QString shown =
        Shortest(ToQt(platform_.locale.FormatNumber(*result, kDecimals)), point.front());
    auto* item = new QListWidgetItem(sum + QStringLiteral(" = ") + shown, lvSums_);
    item->setData(kResultRole, shown);
    lvSums_->setCurrentItem(item);
    lvSums_->scrollToItem(item);
    Note(shown);
    txtSum_->clear();
    FocusFirstField();
  });
}

QString FrmCalculator::ResultOf(int row) const {
  const QListWidgetItem* item = lvSums_->item(row);
  return item == nullptr ? QStringLiteral("0") : item->data(kResultRole).toString();
}

void FrmCalculator::UseResult() {
  if (lvSums_->count() == 0) return;
  txtSum_->setText(ResultOf(lvSums_->currentRow()));
  txtSum_->setFocus();
  txtSum_->end(false);
}

void FrmCalculator::CopyResult() {
  if (lvSums_->count() > 0) QGuiApplication::clipboard()->setText(ResultOf(lvSums_->currentRow()));
}

void FrmCalculator::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Cancel)) return reject();
  FormDialog::keyPressEvent(event);
}

}  // namespace corvanta::inline tools
