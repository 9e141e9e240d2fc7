#include "notes/FrmKeywordChoice.h"

#include "controls/LongText.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <utility>

namespace corvanta::inline notes {
namespace {

Qt::CheckState StateOf(KeywordUse use) {
  if (use == KeywordUse::Some) return Qt::PartiallyChecked;
  return use == KeywordUse::All ? Qt::Checked : Qt::Unchecked;
}

KeywordUse UseOf(Qt::CheckState state) {
  if (state == Qt::PartiallyChecked) return KeywordUse::Some;
  return state == Qt::Checked ? KeywordUse::All : KeywordUse::None;
}

}  // namespace

FrmKeywordChoice::FrmKeywordChoice(KeywordChoice choice, const NotePlace& place)
    : FormDialog(QStringLiteral("FrmKeywordChoice"), place.platform.prompts, place.parent),
      choice_(std::move(choice)),
      place_(place),
      txtKeyword_(new QLineEdit(this)),
      lvKeywords_(new QListWidget(this)) {
  setWindowTitle(choice_.Count() == 1 ? tr("Transaction Keywords")
                                      : tr("Keywords of %1 Transactions").arg(choice_.Count()));
  MakeLayout();
  Run([this] { Fill(); });
  FocusFirstField();
}

void FrmKeywordChoice::MakeLayout() {
  SetSmallestField(30 * kRhythm);
  txtKeyword_->setPlaceholderText(tr("Type a keyword"));
  auto* add = MakeButton(tr("A&dd"), "cmdAdd");
  add->setToolTip(tr("Tick the keyword, which is made where it is new"));
  AddField(tr("&Find or add:"), txtKeyword_, "txtKeyword", add);
  lvKeywords_->setMinimumHeight(18 * kRhythm);
  lvKeywords_->setSpacing(kRhythm / 4);
  AddField(tr("&Keywords:"), lvKeywords_, "lvKeywords");
  auto* accept = MakeButton(tr("&Save"), "cmdAccept");
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  accept->setDefault(true);
  AddButtonRow({}, {accept, cancel});
  connect(txtKeyword_, &QLineEdit::textChanged, this, &FrmKeywordChoice::Narrow);
  connect(add, &QPushButton::clicked, this, &FrmKeywordChoice::Add);
  connect(accept, &QPushButton::clicked, this, &FrmKeywordChoice::Accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmKeywordChoice::Fill() {
  for (const KeywordMark& mark : choice_.Marks()) AddItem(ToQt(mark.keyword), StateOf(mark.use));
  before_ = Ticks();
  if (lvKeywords_->count() > 0) lvKeywords_->setCurrentRow(0);
}

void FrmKeywordChoice::AddItem(const QString& name, Qt::CheckState state) {
  auto* item = new QListWidgetItem(name, lvKeywords_);
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
  item->setCheckState(state);
  if (state == Qt::PartiallyChecked) item->setToolTip(tr("Some of the transactions have it"));
}

void FrmKeywordChoice::Narrow() {
  const QString wanted = txtKeyword_->text().trimmed();
  for (int row = 0; row < lvKeywords_->count(); ++row) {
    QListWidgetItem* item = lvKeywords_->item(row);
    item->setHidden(!item->text().contains(wanted, Qt::CaseInsensitive));
  }
}

QListWidgetItem* FrmKeywordChoice::Find(const QString& name) const {
  const auto found = lvKeywords_->findItems(name, Qt::MatchFixedString);
  return found.isEmpty() ? nullptr : found.constFirst();
}

void FrmKeywordChoice::Add() {
  Run([this] {
    const QString name = txtKeyword_->text().trimmed();
    QListWidgetItem* item = Find(name);
    if (item == nullptr) {
      if (const auto warning = choice_.CheckNew(FromQt(name))) return Warn(*warning);
      AddItem(name, Qt::Checked);
      item = Find(name);
      Note(tr("“%1” is new, and is made when you save.").arg(Shortened(name)));
    }
    item->setCheckState(Qt::Checked);
    txtKeyword_->clear();
    lvKeywords_->setCurrentItem(item);
    lvKeywords_->scrollToItem(item);
    txtKeyword_->setFocus();
  });
}

QStringList FrmKeywordChoice::Ticks() const {
  QStringList ticks;
  for (int row = 0; row < lvKeywords_->count(); ++row) {
    const QListWidgetItem& item = *lvKeywords_->item(row);
    ticks.append(item.text() + QString::number(item.checkState()));
  }
  return ticks;
}

void FrmKeywordChoice::Accept() {
  Run([this] {
    std::vector<KeywordMark> marks;
    for (int row = 0; row < lvKeywords_->count(); ++row) {
      const QListWidgetItem& item = *lvKeywords_->item(row);
      marks.push_back({FromQt(item.text()), UseOf(item.checkState())});
    }
    if (choice_.Save(marks)) MarkChanged();
    accept();
  });
}

bool FrmKeywordChoice::MayLeave() {
  return Ticks() == before_ ||
         place_.platform.prompts.Ask(FromQt(windowTitle()),
                                     "What you have ticked is not saved. Do you wish to drop it?");
}

void FrmKeywordChoice::closeEvent(QCloseEvent* event) {
  if (event->spontaneous() && !MayLeave()) return event->ignore();
  FormDialog::closeEvent(event);
}

// Enter in the line adds what is typed there, and saves once the line is empty.
void FrmKeywordChoice::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isEnter && txtKeyword_->hasFocus() && !txtKeyword_->text().trimmed().isEmpty()) return Add();
  if (event->matches(QKeySequence::Cancel) && !MayLeave()) return;
  FormDialog::keyPressEvent(event);
}

}  // namespace corvanta::inline notes
