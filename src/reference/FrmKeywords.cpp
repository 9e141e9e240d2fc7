#include "reference/FrmKeywords.h"

#include "controls/QtText.h"
#include "platform/Platform.h"

#include <QLineEdit>

namespace corvanta {

FrmKeywords::FrmKeywords(Platform& platform, clsCorvanta& ledger, QWidget* parent)
    : EditorDialog(QStringLiteral("FrmKeywords"), tr("Keyword"), platform.prompts, parent),
      editor_(ledger, platform.prompts),
      txtKeyword_(new QLineEdit(this)) {
  AddField(tr("&Keyword:"), txtKeyword_, "txtKeyword");
  AddButtons();
}

bool FrmKeywords::Load(std::int64_t key) {
  const auto row = editor_.Load(key);
  if (row) Show(*row);
  return row.has_value();
}

bool FrmKeywords::Delete() {
  const Deletion deletion = editor_.Delete(Key());
  Note(ToQt(deletion.Notice()));
  return deletion.isGone;
}

QString FrmKeywords::ItemName() const {
  return txtKeyword_->text().trimmed();
}

void FrmKeywords::Show(const KeywordRecord& row) {
  txtKeyword_->setText(ToQt(row.keyword));
}

KeywordRecord FrmKeywords::Form() const {
  KeywordRecord form;
  form.keywordId = Key();
  form.keyword = FromQt(txtKeyword_->text());
  return form;
}

}  // namespace corvanta
