#include "controls/EditorDialog.h"

#include "controls/DateField.h"
#include "controls/LongText.h"
#include "controls/QtText.h"

#include <QPushButton>
#include <QShortcut>

namespace corvanta::inline controls {

EditorDialog::EditorDialog(const QString& name, const QString& what, Prompts& prompts,
                           QWidget* parent)
    : FormDialog(name, prompts, parent), what_(what) {}

void EditorDialog::AddEditButton(QPushButton* button) {
  editButtons_.push_back(button);
}

void EditorDialog::AddButtons(bool canDelete) {
  auto* another = MakeButton(tr("Add &New"), "cmdNew");
  if (canDelete) {
    auto* remove = MakeButton(tr("&Delete"), "cmdDelete");
    editButtons_.insert(editButtons_.begin(), remove);
    connect(remove, &QPushButton::clicked, this, &EditorDialog::DeleteItem);
  }
  auto* accept = MakeButton(tr("&Save"), "cmdAccept");
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  accept->setDefault(true);
  accept->setToolTip(tr("Save with Enter; Ctrl+Enter saves and goes on with a new one"));
  std::vector<QPushButton*> left = editButtons_;
  left.insert(left.begin(), another);
  AddButtonRow(left, {accept, cancel});
  connect(accept, &QPushButton::clicked, this, &EditorDialog::Accept);
  connect(another, &QPushButton::clicked, this, &EditorDialog::StartNew);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* goOn = new QShortcut(QKeySequence(Qt::ControlModifier | key), this);
    connect(goOn, &QShortcut::activated, this, &EditorDialog::AcceptAndGoOn);
  }
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

QString EditorDialog::Title() const {
  return IsNew() ? tr("Add %1").arg(what_) : tr("Edit %1").arg(what_);
}

void EditorDialog::ShowMode() {
  setWindowTitle(Title());
  for (QPushButton* button : editButtons_) button->setVisible(!IsNew());
  FocusFirstField();
  KeepContents();
}

bool EditorDialog::SaveRow() {
  if (const auto warning = Check()) {
    Warn(*warning);
    return false;
  }
  // The day from before would be saved in place of what stands in the field.
  for (const auto* day : findChildren<DateField*>()) {
    if (day->IsDay()) continue;
    Warn({"Save Warning", "You need to enter a valid Date", FromQt(day->objectName())});
    return false;
  }
  const std::int64_t key = Save();
  if (key == 0) return false;
  MarkSaved(key);
  return true;
}

void EditorDialog::MarkSaved(std::int64_t key) {
  savedKey_ = key;
  MarkChanged();
}

void EditorDialog::Accept() {
  Run([this] {
    if (!SaveRow()) return;
    if (closesWhenSaved_ || !IsNew()) return Finish();
    GoOn();
  });
}

void EditorDialog::AcceptAndGoOn() {
  Run([this] {
    if (SaveRow()) GoOn();
  });
}

void EditorDialog::GoOn() {
  const QString name = Shortened(ItemName());
  Clear();
  key_ = 0;
  ShowMode();
  Note(tr("“%1” was saved.").arg(name));
}

void EditorDialog::StartNew() {
  Run([this] {
    if (!MayDrop(tr("Add New?"))) return;
    Clear();
    key_ = 0;
    ShowMode();
  });
}

void EditorDialog::DeleteItem() {
  Run([this] {
    if (!Delete()) return;
    MarkChanged();
    savedKey_ = 0;
    accept();
  });
}

}  // namespace corvanta::inline controls
