#include "reference/FrmMerge.h"

#include "controls/CommandEdge.h"
#include "controls/LongText.h"
#include "controls/MutedLabel.h"
#include "controls/PickBox.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvanta::inline reference {
namespace {
constexpr int kTextWidth = 52 * kRhythm;
}

FrmMerge::FrmMerge(MergeKind kind, std::int64_t source, Platform& platform, clsCorvanta& ledger,
                   QWidget* parent)
    : QuietEnd(parent),
      platform_(platform),
      editor_(kind, ledger, platform.prompts),
      source_(source),
      cmbMerge_(new PickBox(this)) {
  setObjectName(QStringLiteral("FrmMerge"));
  setWindowTitle(ToQt(editor_.Caption()));
  setModal(true);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(2 * kRhythm, 2 * kRhythm, 2 * kRhythm, 2 * kRhythm);
  page->setSpacing(2 * kRhythm);
  page->addWidget(Explanation());
  page->addLayout(Fields());
  page->addStretch(1);
  page->addLayout(Buttons());
  cmbMerge_->setFocus();
}

QWidget* FrmMerge::Explanation() {
  auto* explanation = new MutedLabel(this);
  explanation->setText(
      tr("All transactions and schedules move over. What they came from stays in "
         "the list, unused, and can be deleted then."));
  explanation->setWordWrap(true);
  explanation->setFixedWidth(kTextWidth);
  explanation->setMinimumHeight(explanation->heightForWidth(kTextWidth));
  return explanation;
}

QLayout* FrmMerge::Fields() {
  auto* name = new QLabel(this);
  name->setObjectName(QStringLiteral("lblSource"));
  name->setTextFormat(Qt::PlainText);
  name->setWordWrap(true);
  std::vector<PickItem> items;
  for (const MergeItem& item : editor_.Items()) {
    items.push_back({item.key, ToQt(item.name)});
    if (item.key == source_) name->setText(Breakable(ToQt(item.name)));
  }
  cmbMerge_->setObjectName(QStringLiteral("cmbMerge"));
  cmbMerge_->setAccessibleName(ToQt(editor_.TargetLabel()));
  cmbMerge_->SetItems(items);
  cmbMerge_->SetKey(0);
  auto* fields = new QFormLayout;
  fields->setVerticalSpacing(kRhythm);
  fields->setHorizontalSpacing(2 * kRhythm);
  fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  fields->addRow(ToQt(editor_.Word() + " to Merge:"), name);
  QString caption = ToQt(editor_.TargetLabel());
  auto* label =
      new QLabel(caption.replace(QStringLiteral("into"), QStringLiteral("&into")) + u':', this);
  label->setBuddy(cmbMerge_);
  fields->addRow(label, cmbMerge_);
  return fields;
}

QLayout* FrmMerge::Buttons() {
  auto* accept = new QPushButton(tr("&Merge"), this);
  accept->setObjectName(QStringLiteral("cmdAccept"));
  accept->setDefault(true);
  auto* cancel = new QPushButton(tr("&Close"), this);
  cancel->setObjectName(QStringLiteral("cmdCancel"));
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(kRhythm);
  buttons->addStretch(1);
  buttons->addWidget(accept);
  buttons->addWidget(cancel);
  connect(accept, &QPushButton::clicked, this, &FrmMerge::Accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  return buttons;
}

void FrmMerge::Accept() {
  RunCommand(platform_.prompts, [this] {
    const std::int64_t target = cmbMerge_->Key();
    if (const auto warning = editor_.Check(source_, target)) {
      platform_.prompts.Tell(warning->title, warning->text, Icon::Information);
      cmbMerge_->setFocus();
      cmbMerge_->lineEdit()->selectAll();
      return;
    }
    const int index = cmbMerge_->findData(static_cast<qint64>(target));
    if (editor_.Merge(source_, {target, FromQt(cmbMerge_->itemText(index))})) accept();
  });
}

}  // namespace corvanta::inline reference
