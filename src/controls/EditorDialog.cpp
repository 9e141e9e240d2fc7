#include "controls/EditorDialog.h"

#include "controls/CommandEdge.h"
#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Prompts.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvanta {
namespace {

constexpr int kSmallestField = 38 * kRhythm;
constexpr int kMargin = 2 * kRhythm;

// A label's text as it is read out.
QString Plain(QString label) {
  return label.remove(u'&').remove(u':');
}

QPushButton* MakeButton(const QString& text, const char* name, QWidget* parent) {
  auto* button = new QPushButton(text, parent);
  button->setObjectName(QLatin1String(name));
  return button;
}

void FocusOn(QWidget& field) {
  field.setFocus(Qt::OtherFocusReason);
  auto* line = qobject_cast<QLineEdit*>(&field);
  if (auto* box = qobject_cast<QComboBox*>(&field)) line = box->lineEdit();
  if (line != nullptr) line->selectAll();
}

}  // namespace

EditorDialog::EditorDialog(const QString& name, const QString& what, Prompts& prompts,
                           QWidget* parent)
    : QDialog(parent),
      what_(what),
      prompts_(prompts),
      page_(new QVBoxLayout(this)),
      fields_(new QFormLayout),
      buttons_(new QHBoxLayout) {
  setObjectName(name);
  setModal(true);
  fields_->setVerticalSpacing(kRhythm);
  fields_->setHorizontalSpacing(2 * kRhythm);
  fields_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  fields_->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  buttons_->setSpacing(kRhythm);
  page_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  page_->setSpacing(kRhythm + kRhythm / 2);
  page_->addLayout(fields_);
}

void EditorDialog::AddField(const QString& label, QWidget* field, const char* name) {
  field->setObjectName(QLatin1String(name));
  field->setAccessibleName(Plain(label));
  field->setMinimumWidth(kSmallestField);
  fields_->addRow(label, field);
  if (first_ == nullptr) first_ = field;
}

void EditorDialog::AddField(const QString& label, QWidget* field, const char* name,
                            QPushButton* button) {
  field->setObjectName(QLatin1String(name));
  field->setAccessibleName(Plain(label));
  auto* caption = new QLabel(label, this);
  caption->setBuddy(field);
  auto* row = new QHBoxLayout;
  row->setSpacing(kRhythm);
  row->addWidget(field, 1);
  row->addWidget(button);
  fields_->addRow(caption, row);
  if (first_ == nullptr) first_ = field;
}

void EditorDialog::AddTick(QWidget* tick, const char* name) {
  tick->setObjectName(QLatin1String(name));
  fields_->addRow(QString(), tick);
}

void EditorDialog::AddEditButton(QPushButton* button) {
  editButtons_.push_back(button);
}

void EditorDialog::AddButtons() {
  lblNote_ = new MutedLabel(this);
  lblNote_->setObjectName(QStringLiteral("lblNote"));
  lblNote_->setTextFormat(Qt::PlainText);
  lblNote_->setWordWrap(true);
  lblNote_->hide();
  page_->addWidget(lblNote_);
  page_->addStretch(1);
  auto* accept = MakeButton(tr("&Save"), "cmdAccept", this);
  auto* another = MakeButton(tr("Add &New"), "cmdNew", this);
  auto* remove = MakeButton(tr("&Delete"), "cmdDelete", this);
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel", this);
  accept->setDefault(true);
  editButtons_.insert(editButtons_.begin(), remove);
  std::vector<QPushButton*> row = editButtons_;
  row.insert(row.begin(), another);
  for (QPushButton* button : row) buttons_->addWidget(button);
  buttons_->addSpacing(2 * kRhythm);
  buttons_->addStretch(1);
  buttons_->addWidget(accept);
  buttons_->addWidget(cancel);
  // Buttons may have been made before the last fields and still come behind them.
  row.insert(row.end(), {accept, cancel});
  for (std::size_t next = 1; next < row.size(); ++next) setTabOrder(row[next - 1], row[next]);
  page_->addSpacing(kRhythm / 2);
  page_->addLayout(buttons_);
  connect(accept, &QPushButton::clicked, this, &EditorDialog::Accept);
  connect(another, &QPushButton::clicked, this, &EditorDialog::StartNew);
  connect(remove, &QPushButton::clicked, this, &EditorDialog::DeleteItem);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

bool EditorDialog::Open(std::int64_t key) {
  Note({});
  if (key == 0) {
    Clear();
  } else if (!Load(key)) {
    return false;
  }
  key_ = key;
  ShowMode();
  return true;
}

void EditorDialog::ShowMode() {
  setWindowTitle(IsNew() ? tr("Add %1").arg(what_) : tr("Edit %1").arg(what_));
  for (QPushButton* button : editButtons_) button->setVisible(!IsNew());
  FocusFirstField();
}

void EditorDialog::FocusFirstField() {
  if (first_ != nullptr) FocusOn(*first_);
}

void EditorDialog::Note(const QString& text) {
  lblNote_->setText(text);
  lblNote_->setVisible(!text.isEmpty());
}

void EditorDialog::Run(const std::function<void()>& command) {
  Note({});
  RunCommand(prompts_, command);
}

void EditorDialog::Warn(const Warning& warning) {
  prompts_.Tell(warning.title, warning.text, Icon::Information);
  if (auto* field = findChild<QWidget*>(ToQt(warning.field))) FocusOn(*field);
}

void EditorDialog::Accept() {
  Run([this] {
    if (const auto warning = Check()) return Warn(*warning);
    const std::int64_t key = Save();
    if (key == 0) return;
    savedKey_ = key;
    isChanged_ = true;
    if (!IsNew()) return accept();
    const QString name = ItemName();
    Clear();
    ShowMode();
    Note(tr("“%1” was saved.").arg(name));
  });
}

void EditorDialog::StartNew() {
  Run([this] {
    Clear();
    key_ = 0;
    ShowMode();
  });
}

void EditorDialog::DeleteItem() {
  Run([this] {
    if (!Delete()) return;
    isChanged_ = true;
    savedKey_ = 0;
    accept();
  });
}

}  // namespace corvanta
