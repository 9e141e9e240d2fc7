#include "reference/FrmReference.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/reference/ReferenceTables.h"
#include "platform/Platform.h"
#include "reference/ReferenceDialogs.h"
#include "reference/ReferenceWords.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace corvanta::inline reference {
namespace {

QWidget* NewField(int lines, QWidget* parent) {
  if (lines == 1) return new QLineEdit(parent);
  auto* area = new QPlainTextEdit(parent);
  area->setTabChangesFocus(true);
  area->setFixedHeight(lines * parent->fontMetrics().lineSpacing() + 2 * kRhythm);
  return area;
}

void SetText(QWidget* field, const QString& text) {
  if (auto* line = qobject_cast<QLineEdit*>(field)) line->setText(text);
  if (auto* area = qobject_cast<QPlainTextEdit*>(field)) area->setPlainText(text);
}

QString TextOf(const QWidget* field) {
  const auto* area = qobject_cast<const QPlainTextEdit*>(field);
  if (area != nullptr) return area->toPlainText();
  return qobject_cast<const QLineEdit*>(field)->text();
}

}  // namespace

template <typename Record>
FrmReference<Record>::FrmReference(Platform& platform, clsCorvanta& ledger, QWidget* parent)
    : EditorDialog(QLatin1String(kReferenceWords<Record>.form), tr(kReferenceTable<Record>.what),
                   platform.prompts, parent),
      platform_(platform),
      ledger_(ledger),
      editor_(ledger, platform.prompts),
      name_(new QLineEdit(this)) {
  constexpr const auto& table = kReferenceTable<Record>;
  AddField(u'&' + tr(table.what) + u':', name_, ControlOf(table.name.column).c_str());
  for (const auto& text : table.texts) {
    const TextWords& words = WordsOf(text.column);
    texts_.push_back(NewField(words.lines, this));
    AddField(tr(words.label), texts_.back(), ControlOf(text.column).c_str());
  }
  if (kReferenceWords<Record>.merge) AddMerge();
  AddButtons();
}

template <typename Record>
void FrmReference<Record>::AddMerge() {
  auto* merge = new QPushButton(tr("&Merge..."), this);
  merge->setObjectName(QStringLiteral("cmdMerge"));
  merge->setToolTip(tr("Move everything of this %1 to another one")
                        .arg(tr(kReferenceTable<Record>.what).toLower()));
  connect(merge, &QPushButton::clicked, this, [this] { Merge(); });
  AddEditButton(merge);
}

template <typename Record>
void FrmReference<Record>::Merge() {
  Run([this] {
    const DialogPlace place{platform_, ledger_, this};
    if (OpenMerge(*kReferenceWords<Record>.merge, Key(), place)) MarkChanged();
  });
}

template <typename Record>
bool FrmReference<Record>::Load(std::int64_t key) {
  const auto row = editor_.Load(key);
  if (row) Show(*row);
  return row.has_value();
}

template <typename Record>
bool FrmReference<Record>::Delete() {
  const Deletion deletion = editor_.Delete(Key());
  Note(ToQt(deletion.Notice()));
  return deletion.isGone;
}

template <typename Record>
QString FrmReference<Record>::ItemName() const {
  return name_->text().trimmed();
}

template <typename Record>
void FrmReference<Record>::Show(const Record& row) {
  constexpr const auto& table = kReferenceTable<Record>;
  name_->setText(ToQt(row.*table.name.member));
  for (std::size_t text = 0; text < texts_.size(); ++text) {
    SetText(texts_[text], ToQt(row.*table.texts[text].member));
  }
}

template <typename Record>
Record FrmReference<Record>::Form() const {
  constexpr const auto& table = kReferenceTable<Record>;
  Record form;
  form.*table.key = Key();
  form.*table.name.member = FromQt(name_->text());
  for (std::size_t text = 0; text < texts_.size(); ++text) {
    form.*table.texts[text].member = FromQt(TextOf(texts_[text]));
  }
  return form;
}

template class FrmReference<AccountGroupRecord>;
template class FrmReference<BankRecord>;
template class FrmReference<PayeeRecord>;
template class FrmReference<PaymentRecord>;
template class FrmReference<CurrencyRecord>;
template class FrmReference<KeywordRecord>;

}  // namespace corvanta::inline reference
