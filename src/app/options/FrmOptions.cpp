#include "app/options/FrmOptions.h"

#include "app/options/OptionsWords.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Platform.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>

#include <algorithm>

namespace corvanta::inline app {
namespace {
constexpr int kShownHeight = 54 * kRhythm;
}

FrmOptions::FrmOptions(Platform& platform, const std::string& dataFile, QWidget* parent)
    : FormDialog(QStringLiteral("FrmOptions"), platform.prompts, parent),
      editor_(platform, dataFile) {
  setWindowTitle(tr("Options"));
  auto* sections = MakeSections();
  AddAbove(sections);
  AddAbove(MakeHead());
  MakeCommands();
  setTabOrder(txtFind_, lvSections_);
  Run([this] { Fill(editor_.Load()); });
  Connect();
  lvSections_->setCurrentRow(0);
  ShowFound();
  KeepContents();
  txtFind_->setFocus();
  const int room = screen()->availableSize().height() - 6 * kRhythm;
  resize(minimumSizeHint().width(), std::min(kShownHeight, room));
}

void FrmOptions::MakeCommands() {
  auto* defaults = MakeButton(tr("&Defaults"), "cmdDefaults");
  defaults->setToolTip(tr("Put every option back to what it was at first; Save keeps it"));
  auto* columns = MakeButton(tr("Reset Co&lumns"), "cmdReset");
  columns->setToolTip(
      tr("Forget the widths of all columns, how lists are sorted and the days of the register"));
  auto* accept = MakeButton(tr("&Save"), "cmdAccept");
  accept->setDefault(true);
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  AddButtonRow({defaults, columns}, {accept, cancel});
  connect(defaults, &QPushButton::clicked, this, &FrmOptions::ApplyDefaults);
  connect(columns, &QPushButton::clicked, this, &FrmOptions::ResetColumns);
  connect(accept, &QPushButton::clicked, this, &FrmOptions::Accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmOptions::Connect() {
  connect(txtFind_, &QLineEdit::textChanged, this, &FrmOptions::ShowFound);
  connect(lvSections_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row < 0) return;
    txtFind_->clear();
    ShowFound();
  });
  auto* updates = findChild<QCheckBox*>(QStringLiteral("chkUpdateScheduleDate"));
  auto* ahead = findChild<QComboBox*>(QStringLiteral("cmbScheduled"));
  // By the person alone: what is loaded is no choice.
  connect(updates, &QCheckBox::clicked, this,
          [this](bool isOn) { editor_.AdviseOnForecast(isOn); });
  connect(ahead, &QComboBox::activated, this,
          [this, updates] { editor_.AdviseOnForecast(updates->isChecked()); });
}

OptionsForm FrmOptions::Read() const {
  OptionsForm form;
  for (const Field& field : fields_) form[field.words->setting] = field.read();
  return form;
}

void FrmOptions::Fill(const OptionsForm& form) {
  for (const Field& field : fields_) field.write(form.at(field.words->setting));
}

void FrmOptions::Accept() {
  Run([this] {
    const OptionsForm form = Read();
    if (const auto warning = editor_.Check(form)) {
      Uncover(warning->field);
      return Warn(*warning);
    }
    editor_.Save(form);
    accept();
  });
}

void FrmOptions::Browse() {
  Run([this] {
    if (const auto path = editor_.BrowseBackup()) txtBackup_->setText(ToQt(*path));
  });
}

void FrmOptions::ApplyDefaults() {
  Fill(OptionsEditor::Defaults());
  editor_.TellDefaults();
}

void FrmOptions::ResetColumns() {
  Run([this] {
    hasReset_ = true;
    editor_.ResetColumns();
  });
}

void FrmOptions::ShowFound() {
  const QString looked = txtFind_->text().trimmed();
  const int chosen = lvSections_->currentRow();
  bool isAny = false;
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    bool isShown = false;
    for (const Field& field : fields_) {
      if (field.section != pages_[i].section) continue;
      const bool isFound = IsFound(*field.section, *field.words, FromQt(looked));
      for (QWidget* part : field.row) part->setVisible(isFound);
      isShown = isShown || isFound;
    }
    if (looked.isEmpty()) isShown = static_cast<int>(i) == chosen;
    pages_[i].widget->setVisible(isShown);
    isAny = isAny || isShown;
  }
  nothing_->setVisible(!isAny);
  lvSections_->setEnabled(looked.isEmpty());
}

void FrmOptions::Uncover(const std::string& control) {
  txtFind_->clear();
  const auto field = std::ranges::find_if(
      fields_, [&](const Field& known) { return known.words->control == control; });
  if (field == fields_.end()) return;
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    if (pages_[i].section == field->section) lvSections_->setCurrentRow(static_cast<int>(i));
  }
}

// Escape first gives up what is looked for.
void FrmOptions::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Cancel) && !txtFind_->text().isEmpty()) {
    txtFind_->clear();
    txtFind_->setFocus();
    return;
  }
  FormDialog::keyPressEvent(event);
}

}  // namespace corvanta::inline app
