// The sections of the dialog "Options" and the fields in them.
#include "app/options/FrmOptions.h"
#include "app/options/OptionsWords.h"
#include "app/options/ucColourButton.h"
#include "controls/ChoiceRow.h"
#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline app {
namespace {

constexpr int kSmallestHeight = 16 * kRhythm;

// A tool tip in lines: one of plain text is never broken.
QString TipOf(const OptionWords& words) {
  return QStringLiteral("<qt>") + ToQt(words.tip).toHtmlEscaped() + QStringLiteral("</qt>");
}

QString LabelOf(const OptionWords& words) {
  return QObject::tr(words.label.data());
}

std::uint32_t NumberOf(std::string_view text) {
  return ReadColour(text).value_or(0);
}

}  // namespace

QWidget* FrmOptions::MakeHead() {
  auto* head = new QWidget(this);
  auto* row = new QHBoxLayout(head);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kRhythm);
  txtFind_ = new QLineEdit(head);
  txtFind_->setObjectName(QStringLiteral("txtFind"));
  txtFind_->setPlaceholderText(tr("A word of what you want to change"));
  txtFind_->setClearButtonEnabled(true);
  // What is looked for is nothing to be saved.
  txtFind_->setProperty("content", QString());
  auto* label = new QLabel(tr("&Find:"), head);
  label->setBuddy(txtFind_);
  row->addWidget(label);
  row->addWidget(txtFind_, 1);
  head->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  return head;
}

QWidget* FrmOptions::MakeSections() {
  auto* area = new QWidget(this);
  auto* columns = new QHBoxLayout(area);
  columns->setContentsMargins(0, 0, 0, 0);
  columns->setSpacing(2 * kRhythm);
  lvSections_ = new QListWidget(area);
  lvSections_->setObjectName(QStringLiteral("lvSections"));
  lvSections_->setAccessibleName(tr("Sections"));
  lvSections_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* content = new QWidget;
  auto* page = new QVBoxLayout(content);
  page->setContentsMargins(0, 0, kRhythm, 0);
  page->setSpacing(2 * kRhythm);
  for (const OptionSection& section : OptionSections()) {
    auto* entry = new QListWidgetItem(tr(section.title.data()), lvSections_);
    entry->setSizeHint(QSize(0, fontMetrics().height() + kRhythm));
    pages_.push_back({&section, MakePage(section)});
    page->addWidget(pages_.back().widget);
  }
  auto* nothing = new MutedLabel(content);
  nothing->setObjectName(QStringLiteral("lblNothing"));
  nothing->setWordWrap(true);
  nothing->setText(
      tr("No option has these words. The password is in the File menu, the tip at the start in the "
         "Help menu."));
  page->addWidget(nothing);
  page->addStretch(1);
  nothing_ = nothing;
  auto* scroll = new QScrollArea(area);
  scroll->setObjectName(QStringLiteral("scOptions"));
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setWidget(content);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setMinimumWidth(content->sizeHint().width() +
                          scroll->verticalScrollBar()->sizeHint().width());
  area->setMinimumHeight(kSmallestHeight);
  columns->addWidget(lvSections_);
  columns->addWidget(scroll, 1);
  int widest = 0;
  for (const OptionSection& section : OptionSections()) {
    widest = std::max(widest, fontMetrics().horizontalAdvance(tr(section.title.data())));
  }
  lvSections_->setFixedWidth(widest + 4 * kRhythm);
  return area;
}

QWidget* FrmOptions::MakePage(const OptionSection& section) {
  auto* page = new QWidget(this);
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kRhythm);
  auto* title = new QLabel(tr(section.title.data()), page);
  title->setFont(ScaledFont(1, QFont::DemiBold));
  column->addWidget(title);
  auto* form = new QFormLayout;
  form->setVerticalSpacing(kRhythm);
  form->setHorizontalSpacing(2 * kRhythm);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->setRowWrapPolicy(QFormLayout::DontWrapRows);
  column->addLayout(form);
  for (const OptionWords& words : section.options) MakeField(section, words, *form);
  return page;
}

void FrmOptions::MakeField(const OptionSection& section, const OptionWords& words,
                           QFormLayout& form) {
  Field field{&section, &words, {}, {}, {}};
  QWidget* control = MakeControl(words, field);
  const bool isTick = InfoOf(words.setting).kind == SettingKind::Check;
  if (isTick) {
    form.addRow(control);
    field.row = {control};
  } else {
    auto* label = new QLabel(LabelOf(words) + u':', this);
    label->setToolTip(TipOf(words));
    label->setBuddy(control);
    form.addRow(label, control);
    field.row = {label, control};
  }
  control->setToolTip(TipOf(words));
  fields_.push_back(std::move(field));
}

QWidget* FrmOptions::MakeControl(const OptionWords& words, Field& field) {
  switch (InfoOf(words.setting).kind) {
    case SettingKind::Check:
      return MakeTick(words, field);
    case SettingKind::Colour:
      return MakeColour(words, field);
    case SettingKind::Choice:
      return words.setting == Setting::Payment ? MakeStatusRow(words, field)
                                               : MakeChoice(words, field);
    default:
      return MakePath(words, field);
  }
}

QWidget* FrmOptions::MakeTick(const OptionWords& words, Field& field) {
  auto* tick = new QCheckBox(LabelOf(words), this);
  tick->setObjectName(ToQt(words.control));
  tick->setAccessibleDescription(ToQt(words.tip));
  field.read = [tick] { return std::string(tick->isChecked() ? "1" : "0"); };
  field.write = [tick](const std::string& text) { tick->setChecked(text == "1"); };
  return tick;
}

QWidget* FrmOptions::MakeChoice(const OptionWords& words, Field& field) {
  auto* box = new QComboBox(this);
  box->setObjectName(ToQt(words.control));
  box->setAccessibleName(LabelOf(words).remove(u'&'));
  box->setAccessibleDescription(ToQt(words.tip));
  const SettingInfo& info = InfoOf(words.setting);
  for (const std::string_view choice : info.choices) box->addItem(ToQt(choice));
  field.read = [box] { return FromQt(box->currentText()); };
  field.write = [box, &info](const std::string& text) {
    box->setCurrentIndex(static_cast<int>(ChoicePosition(info, text).value_or(0)));
  };
  return box;
}

QWidget* FrmOptions::MakeStatusRow(const OptionWords& words, Field& field) {
  const SettingInfo& info = InfoOf(words.setting);
  std::vector<ChoiceRow::Item> items;
  for (const std::string_view choice : info.choices) {
    items.push_back({static_cast<int>(items.size()), ToQt(choice)});
  }
  auto* row = new ChoiceRow(ToQt(words.control), items, this);
  row->setObjectName(ToQt(words.control));
  field.read = [row, &info] {
    return std::string(info.choices[static_cast<std::size_t>(row->Choice().value_or(0))]);
  };
  field.write = [row, &info](const std::string& text) {
    row->SetChoice(static_cast<int>(ChoicePosition(info, text).value_or(0)));
  };
  return row;
}

QWidget* FrmOptions::MakeColour(const OptionWords& words, Field& field) {
  auto* button = new ucColourButton(NumberOf(InfoOf(words.setting).defaultText), this);
  button->setObjectName(ToQt(words.control));
  button->setAccessibleName(LabelOf(words));
  button->setAccessibleDescription(ToQt(words.tip));
  button->setAutoDefault(false);
  field.read = [button] { return std::to_string(button->Number()); };
  field.write = [button](const std::string& text) { button->SetNumber(NumberOf(text)); };
  return button;
}

QWidget* FrmOptions::MakePath(const OptionWords& words, Field& field) {
  auto* place = new QWidget(this);
  auto* row = new QHBoxLayout(place);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kRhythm);
  txtBackup_ = new QLineEdit(place);
  txtBackup_->setObjectName(ToQt(words.control));
  txtBackup_->setPlaceholderText(tr("The folder Backup beside the data file"));
  txtBackup_->setAccessibleName(LabelOf(words));
  txtBackup_->setAccessibleDescription(ToQt(words.tip));
  place->setFocusProxy(txtBackup_);
  auto* browse = MakeButton(tr("&Browse..."), "cmdBrowse");
  row->addWidget(txtBackup_, 1);
  row->addWidget(browse);
  connect(browse, &QPushButton::clicked, this, &FrmOptions::Browse);
  field.read = [this] { return FromQt(txtBackup_->text().trimmed()); };
  field.write = [this](const std::string& text) { txtBackup_->setText(ToQt(text)); };
  return place;
}

}  // namespace corvanta::inline app
