#include "reports/custom/FrmColumns.h"

#include "controls/QtText.h"
#include "controls/Style.h"

#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline reports {
namespace {
constexpr int kWidth = 44 * kRhythm;
constexpr int kHeight = 64 * kRhythm;
}  // namespace

FrmColumns::FrmColumns(const std::vector<std::string>& current, const std::vector<std::string>& own,
                       Prompts& prompts, QWidget* parent)
    : FormDialog(QStringLiteral("FrmColumns"), prompts, parent),
      picker_(current),
      lvColumns_(new QListWidget(this)) {
  setWindowTitle(QStringLiteral("Pick Columns for Report"));
  lvColumns_->setObjectName(QStringLiteral("lvColumns"));
  lvColumns_->setAccessibleName(windowTitle());
  lvColumns_->setMinimumHeight(16 * kRhythm);
  lvColumns_->setUniformItemSizes(true);
  AddAbove(lvColumns_);
  auto* all = MakeButton(tr("&Select All"), "cmdSelect");
  auto* none = MakeButton(tr("&Deselect All"), "cmdDSelect");
  auto* accept = MakeButton(tr("&OK"), "cmdAccept");
  accept->setDefault(true);
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  for (QPushButton* button : {all, none, cancel}) button->setAutoDefault(false);
  AddButtonRow({all, none}, {accept, cancel});
  Fill(own);
  connect(lvColumns_, &QListWidget::itemChanged, this, [this](const QListWidgetItem* item) {
    picker_.Tick(static_cast<std::size_t>(lvColumns_->row(item)),
                 item->checkState() == Qt::Checked);
  });
  connect(all, &QPushButton::clicked, this, [this] { TickAll(true); });
  connect(none, &QPushButton::clicked, this, [this] { TickAll(false); });
  connect(accept, &QPushButton::clicked, this, &FrmColumns::Accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  SetFirstField(lvColumns_);
  FocusFirstField();
  const QSize room = screen()->availableSize();
  resize(std::min(kWidth, room.width()), std::min(kHeight, room.height() - 8 * kRhythm));
}

void FrmColumns::Fill(const std::vector<std::string>& own) {
  QListWidgetItem* first = nullptr;
  for (std::size_t column = 0; column < picker_.Count(); ++column) {
    const std::string& name = picker_.Name(column);
    auto* item = new QListWidgetItem(ToQt(name), lvColumns_);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(picker_.IsTicked(column) ? Qt::Checked : Qt::Unchecked);
    // Boxes that touch are hard to tell apart.
    item->setSizeHint(QSize(0, lvColumns_->fontMetrics().height() + kRhythm / 2));
    const bool isOwn = std::ranges::find(own, name) != own.end();
    if (isOwn && first == nullptr) first = item;
    if (isOwn || own.empty()) continue;
    item->setForeground(MutedText(palette()));
    item->setToolTip(tr("Other reports have this column"));
  }
  lvColumns_->setCurrentItem(first == nullptr ? lvColumns_->item(0) : first);
}

void FrmColumns::TickAll(bool isTicked) {
  for (int row = 0; row < lvColumns_->count(); ++row) {
    lvColumns_->item(row)->setCheckState(isTicked ? Qt::Checked : Qt::Unchecked);
  }
}

void FrmColumns::Accept() {
  if (const auto warning = picker_.Check()) return Warn(*warning);
  accept();
}

}  // namespace corvanta::inline reports
