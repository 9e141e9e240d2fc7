#include "reference/FrmCategory.h"

#include "controls/AmountEdit.h"
#include "controls/PickBox.h"
#include "controls/QtText.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/Platform.h"
#include "reference/ReferenceDialogs.h"

#include <QLineEdit>
#include <QPushButton>

namespace corvanta::inline reference {

FrmCategory::FrmCategory(Platform& platform, clsCorvanta& ledger, QWidget* parent)
    : EditorDialog(QStringLiteral("FrmCategory"), tr("Category"), platform.prompts, parent),
      platform_(platform),
      ledger_(ledger),
      editor_(ledger, platform.prompts),
      cmbCategory_(new PickBox(this)),
      txtSubCategory_(new QLineEdit(this)),
      txtDescription_(new QLineEdit(this)),
      cmbType_(new QComboBox(this)),
      txtBudget_(new AmountEdit(platform.locale, this)),
      cmbPeriod_(new QComboBox(this)) {
  AddField(tr("Cate&gory:"), cmbCategory_, "cmbCategory");
  AddField(tr("Su&b Category:"), txtSubCategory_, "txtSubCategory");
  AddField(tr("Desc&ription:"), txtDescription_, "txtDescription");
  AddField(tr("Budget &Type:"), cmbType_, "cmbType");
  AddField(tr("B&udget:"), txtBudget_, "txtBudget");
  AddField(tr("Budget &Period:"), cmbPeriod_, "cmbPeriod");
  txtSubCategory_->setPlaceholderText(tr("Empty for a main category"));
  cmbType_->setPlaceholderText(tr("Income or expense"));
  cmbType_->addItem(tr("Expense"), -1);
  cmbType_->addItem(tr("Income"), 1);
  auto* merge = new QPushButton(tr("&Merge..."), this);
  merge->setObjectName(QStringLiteral("cmdMerge"));
  merge->setToolTip(tr("Move everything of this category to another one"));
  connect(merge, &QPushButton::clicked, this, &FrmCategory::Merge);
  AddEditButton(merge);
  AddButtons();
}

bool FrmCategory::Load(std::int64_t key) {
  const auto row = editor_.Load(key);
  if (row) Show(*row);
  return row.has_value();
}

bool FrmCategory::Delete() {
  const Deletion deletion = editor_.Delete(Key());
  if (deletion.isChanged) MarkChanged();
  Note(ToQt(deletion.Notice()));
  return deletion.isGone;
}

QString FrmCategory::ItemName() const {
  const QString name = cmbCategory_->currentText().trimmed();
  const QString sub = txtSubCategory_->text().trimmed();
  return sub.isEmpty() ? name : name + u':' + sub;
}

// A main category is no choice for itself: completing would undo a change of its case.
void FrmCategory::FillLists(std::int64_t shown) {
  std::vector<PickItem> mains;
  for (const CategoryRecord& row : ledger_.Categories().Categories()) {
    if (!row.subCategory.empty() || row.categoryId == shown) continue;
    mains.push_back({row.categoryId, ToQt(row.category)});
  }
  cmbCategory_->SetItems(mains);
  cmbPeriod_->clear();
  cmbPeriod_->addItem(tr("none"), 0);
  for (const PeriodRecord& period : ledger_.References().Periods()) {
    cmbPeriod_->addItem(ToQt(period.description), static_cast<qint64>(period.periodId));
  }
}

void FrmCategory::Show(const CategoryForm& row) {
  FillLists(row.categoryId);
  cmbCategory_->setEditText(ToQt(row.category));
  txtSubCategory_->setText(ToQt(row.subCategory));
  txtDescription_->setText(ToQt(row.description));
  cmbType_->setCurrentIndex(cmbType_->findData(row.type));
  txtBudget_->SetAmount(row.budget.value_or(0));
  const int period = cmbPeriod_->findData(static_cast<qint64>(row.periodId));
  cmbPeriod_->setCurrentIndex(period < 0 ? 0 : period);
}

CategoryForm FrmCategory::Form() const {
  CategoryForm form;
  form.categoryId = Key();
  form.category = FromQt(cmbCategory_->currentText());
  form.subCategory = FromQt(txtSubCategory_->text());
  form.type = cmbType_->currentData().toInt();
  form.budget = txtBudget_->Amount();
  form.periodId = cmbPeriod_->currentData().toLongLong();
  form.description = FromQt(txtDescription_->text());
  return form;
}

void FrmCategory::Merge() {
  Run([this] {
    if (OpenMerge(MergeKind::Category, Key(), {platform_, ledger_, this})) MarkChanged();
  });
}

}  // namespace corvanta::inline reference
