#include "controls/FormDialog.h"

#include "controls/ChangeNotice.h"
#include "controls/CommandEdge.h"
#include "controls/LongText.h"
#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Prompts.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline controls {
namespace {

constexpr int kSmallestField = 38 * kRhythm;
constexpr int kMargin = 2 * kRhythm;

// A label's text as it is read out.
QString Plain(QString label) {
  return label.remove(u'&').remove(u':');
}

// What the person can change in the widget, as text; null for what is no field. One that knows
// better says so in its property "content".
QString ContentOf(const QWidget& widget) {
  if (const QVariant own = widget.property("content"); own.isValid()) return own.toString();
  if (const auto* box = qobject_cast<const QComboBox*>(&widget)) return box->currentText() + u'|';
  if (const auto* text = qobject_cast<const QPlainTextEdit*>(&widget)) {
    return text->toPlainText() + u'|';
  }
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) return line->text() + u'|';
  const auto* tick = qobject_cast<const QAbstractButton*>(&widget);
  if (tick == nullptr || !tick->isCheckable()) return {};
  return tick->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
}

}  // namespace

FormDialog::FormDialog(const QString& name, Prompts& prompts, QWidget* parent)
    : QuietEnd(parent),
      prompts_(prompts),
      smallestField_(kSmallestField),
      page_(new QVBoxLayout(this)),
      columns_(new QHBoxLayout) {
  setObjectName(name);
  setModal(true);
  page_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  page_->setSpacing(kRhythm + kRhythm / 2);
  columns_->setSpacing(3 * kRhythm);
  page_->addLayout(columns_);
  StartColumn();
}

void FormDialog::StartColumn() {
  fields_ = new QFormLayout;
  columns_->addLayout(fields_, 1);
  fields_->setVerticalSpacing(kRhythm);
  fields_->setHorizontalSpacing(2 * kRhythm);
  fields_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  fields_->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

QLabel* FormDialog::AddField(const QString& label, QWidget* field, const char* name) {
  // What is made of several parts may need more.
  field->setMinimumWidth(std::max(smallestField_, field->minimumSizeHint().width()));
  return AddField(label, field, name, std::vector<QWidget*>());
}

QLabel* FormDialog::AddField(const QString& label, QWidget* field, const char* name,
                             QWidget* beside) {
  return AddField(label, field, name, std::vector<QWidget*>{beside});
}

QLabel* FormDialog::AddField(const QString& label, QWidget* field, const char* name,
                             const std::vector<QWidget*>& beside) {
  auto* caption = new QLabel(this);
  field->setObjectName(QLatin1String(name));
  Relabel(*caption, label, *field);
  if (first_ == nullptr) first_ = field;
  AddToOrder(field);
  if (beside.empty()) {
    fields_->addRow(caption, field);
    return caption;
  }
  auto* row = new QHBoxLayout;
  row->setSpacing(kRhythm);
  row->addWidget(field, 1);
  for (QWidget* widget : beside) {
    row->addWidget(widget);
    AddToOrder(widget);
  }
  fields_->addRow(caption, row);
  return caption;
}

void FormDialog::Relabel(QLabel& label, const QString& text, QWidget& field) {
  label.setText(text);
  label.setBuddy(&field);
  field.setAccessibleName(Plain(text));
}

void FormDialog::AddTick(QWidget* tick, const char* name) {
  tick->setObjectName(QLatin1String(name));
  AddToOrder(tick);
  fields_->addRow(QString(), tick);
}

void FormDialog::AddAbove(QWidget* area) {
  page_->insertWidget(0, area, 1);
}

QPushButton* FormDialog::MakeButton(const QString& text, const char* name) {
  auto* button = new QPushButton(text, this);
  button->setObjectName(QLatin1String(name));
  // Some styles leave no room beside a long caption.
  button->setMinimumWidth(fontMetrics().horizontalAdvance(text) + 3 * kRhythm);
  return button;
}

void FormDialog::AddTools(const std::vector<QPushButton*>& tools) {
  AddNote();
  auto* row = new QHBoxLayout;
  row->setSpacing(kRhythm);
  for (QPushButton* tool : tools) {
    row->addWidget(tool);
    AddToOrder(tool);
  }
  row->addStretch(1);
  page_->addLayout(row);
}

void FormDialog::AddButtonRow(const std::vector<QPushButton*>& left,
                              const std::vector<QPushButton*>& right) {
  AddNote();
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(kRhythm);
  for (QPushButton* button : left) buttons->addWidget(button);
  buttons->addSpacing(2 * kRhythm);
  buttons->addStretch(1);
  for (QPushButton* button : right) buttons->addWidget(button);
  page_->addSpacing(kRhythm / 2);
  page_->addLayout(buttons);
  for (const auto* side : {&left, &right}) {
    for (QPushButton* button : *side) AddToOrder(button);
  }
}

void FormDialog::AddToOrder(QWidget* widget) {
  if (widget->focusPolicy() == Qt::NoFocus) {
    for (auto* part : widget->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      if (part->focusPolicy() != Qt::NoFocus) AddToOrder(part);
    }
    return;
  }
  if (!order_.empty()) setTabOrder(order_.back(), widget);
  order_.push_back(widget);
}

void FormDialog::AddNote() {
  if (lblNote_ != nullptr) return;
  lblNote_ = new MutedLabel(this);
  lblNote_->setObjectName(QStringLiteral("lblNote"));
  lblNote_->setTextFormat(Qt::PlainText);
  lblNote_->setWordWrap(true);
  lblNote_->hide();
  page_->addWidget(lblNote_);
  page_->addStretch(0);
}

void FormDialog::FocusFirstField() {
  if (first_ != nullptr) FocusOn(*first_);
}

void FormDialog::FocusOn(QWidget& field) {
  field.setFocus(Qt::OtherFocusReason);
  auto* line = qobject_cast<QLineEdit*>(&field);
  if (auto* box = qobject_cast<QComboBox*>(&field)) line = box->lineEdit();
  if (line != nullptr) line->selectAll();
}

void FormDialog::FocusOn(const std::string& name) {
  if (name.empty()) return;
  if (auto* field = findChild<QWidget*>(ToQt(name))) FocusOn(*field);
}

void FormDialog::MarkChanged() {
  isChanged_ = true;
  TellBehind(*this);
}

void FormDialog::Note(const QString& text) {
  lblNote_->setText(Breakable(text));
  lblNote_->setVisible(!text.isEmpty());
}

void FormDialog::Run(const std::function<void()>& command) {
  Note({});
  RunCommand(prompts_, command);
}

void FormDialog::Warn(const Warning& warning) {
  prompts_.Tell(warning.title, warning.text, Icon::Information);
  FocusOn(warning.field);
}

QStringList FormDialog::Contents() const {
  QStringList contents;
  for (const QWidget* widget : findChildren<QWidget*>()) {
    // A box's line is the box's.
    if (qobject_cast<const QComboBox*>(widget->parentWidget()) != nullptr) continue;
    const QString content = ContentOf(*widget);
    if (!content.isNull()) contents.append(content);
  }
  return contents;
}

void FormDialog::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Cancel)) return QDialog::keyPressEvent(event);
  if (MayDrop(windowTitle())) reject();
}

void FormDialog::FitInto(const QSize& room) {
  if (page_->totalMinimumSize().height() <= room.height()) return;
  page_->setContentsMargins(kMargin, kRhythm, kMargin, kRhythm);
  page_->setSpacing(kRhythm / 2);
  for (int i = 0; i < columns_->count(); ++i) {
    auto* fields = qobject_cast<QFormLayout*>(columns_->itemAt(i)->layout());
    if (fields != nullptr) fields->setVerticalSpacing(kRhythm / 4);
  }
  page_->activate();
  resize(page_->totalSizeHint().boundedTo(room).expandedTo(page_->totalMinimumSize()));
}

void FormDialog::showEvent(QShowEvent* event) {
  // Frame and title are not known before the window is shown.
  FitInto(screen()->availableSize() - QSize(2 * kRhythm, 5 * kRhythm));
  QuietEnd::showEvent(event);
}

void FormDialog::closeEvent(QCloseEvent* event) {
  if (event->spontaneous() && !MayDrop(windowTitle())) return event->ignore();
  QDialog::closeEvent(event);
}

bool FormDialog::MayDrop(const QString& title) {
  return !IsEdited() ||
         prompts_.Ask(FromQt(title), "What you have typed is not saved. Do you wish to drop it?");
}

}  // namespace corvanta::inline controls
