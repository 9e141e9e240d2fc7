#include "app/filter/FrmFilter.h"

#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline app {
namespace {

constexpr int kGroupRole = Qt::UserRole;
constexpr int kItemRole = Qt::UserRole + 1;
constexpr int kWhole = -1;  // the item of a whole group
constexpr int kWidth = 52 * kRhythm;
constexpr int kHeight = 64 * kRhythm;

Qt::CheckState StateOf(const FilterChoice::Group& group) {
  const std::size_t ticked = group.TickedCount();
  if (ticked == 0) return Qt::Unchecked;
  return ticked == group.items.size() ? Qt::Checked : Qt::PartiallyChecked;
}

QString ItemText(const FilterChoice::Group& group, const FilterChoice::Item& item) {
  if (!group.IsDivided()) return ToQt(item.title);
  // The category itself, beside its sub-categories.
  return item.title == group.name ? FrmFilter::tr("%1, without a sub-category").arg(ToQt(item.name))
                                  : ToQt(item.name);
}

}  // namespace

FrmFilter::FrmFilter(FilterChoice& choice, Prompts& prompts, QWidget* parent)
    : FormDialog(QStringLiteral("FrmFilter"), prompts, parent),
      choice_(choice),
      txtFind_(new QLineEdit(this)),
      lvFilter_(new QTreeWidget(this)),
      lblChosen_(new MutedLabel(this)) {
  setWindowTitle(QLatin1String(FilterCaption(choice.Kind())));
  setProperty("mode", QLatin1String(FilterMode(choice.Kind())));
  AddAbove(MakeList());
  MakeButtons();
  Fill();
  ShowTicks();
  SetFirstField(txtFind_);
  FocusFirstField();
  const QSize room = screen()->availableSize();
  resize(std::min(kWidth, room.width()), std::min(kHeight, room.height() - 8 * kRhythm));
}

QWidget* FrmFilter::MakeList() {
  auto* area = new QWidget(this);
  auto* label = new QLabel(tr("&Find:"), area);
  label->setBuddy(txtFind_);
  txtFind_->setObjectName(QStringLiteral("txtFind"));
  txtFind_->setAccessibleName(tr("Find in the list"));
  txtFind_->setPlaceholderText(tr("Part of a name"));
  txtFind_->setClearButtonEnabled(true);
  txtFind_->setMaxLength(100);
  txtFind_->installEventFilter(this);
  lvFilter_->setObjectName(QStringLiteral("lvFilter"));
  lvFilter_->setAccessibleName(windowTitle());
  lvFilter_->setHeaderHidden(true);
  lvFilter_->setUniformRowHeights(true);
  lvFilter_->setTabKeyNavigation(false);
  lvFilter_->setMinimumHeight(16 * kRhythm);
  lblChosen_->setObjectName(QStringLiteral("lblChosen"));
  auto* line = new QHBoxLayout;
  line->setSpacing(kRhythm);
  line->addWidget(label);
  line->addWidget(txtFind_, 1);
  auto* column = new QVBoxLayout(area);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kRhythm);
  column->addLayout(line);
  column->addWidget(lvFilter_, 1);
  column->addWidget(lblChosen_);
  connect(txtFind_, &QLineEdit::textChanged, this, &FrmFilter::Search);
  connect(lvFilter_, &QTreeWidget::itemChanged, this, &FrmFilter::ApplyTick);
  return area;
}

void FrmFilter::MakeButtons() {
  auto* all = MakeButton(tr("&Select Shown"), "cmdSelect");
  all->setToolTip(tr("Tick everything that the list shows"));
  auto* none = MakeButton(tr("&Deselect All"), "cmdDSelect");
  none->setToolTip(tr("Take all ticks away: everything is shown then"));
  auto* accept = MakeButton(tr("&OK"), "cmdAccept");
  accept->setDefault(true);
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  for (QPushButton* button : {all, none, cancel}) button->setAutoDefault(false);
  AddButtonRow({all, none}, {accept, cancel});
  connect(all, &QPushButton::clicked, this, &FrmFilter::TickShown);
  connect(none, &QPushButton::clicked, this, [this] {
    choice_.Clear();
    ShowTicks();
  });
  connect(accept, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

QTreeWidgetItem* FrmFilter::AddItem(QTreeWidgetItem* above, const QString& text, int group,
                                    int item) {
  auto* line = new QTreeWidgetItem(QStringList(text));
  line->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
  line->setData(0, kGroupRole, group);
  line->setData(0, kItemRole, item);
  line->setCheckState(0, Qt::Unchecked);
  line->setToolTip(0, text);
  // Boxes that touch are hard to tell apart.
  line->setSizeHint(0, QSize(0, lvFilter_->fontMetrics().height() + kRhythm / 2));
  if (above == nullptr) {
    lvFilter_->addTopLevelItem(line);
  } else {
    above->addChild(line);
  }
  return line;
}

void FrmFilter::Fill() {
  const QSignalBlocker quiet(lvFilter_);
  bool isTree = false;
  int place = 0;
  for (const FilterChoice::Group& group : choice_.Groups()) {
    if (group.IsDivided()) {
      QTreeWidgetItem* whole = AddItem(nullptr, ToQt(group.name), place, kWhole);
      int item = 0;
      for (const auto& one : group.items) AddItem(whole, ItemText(group, one), place, item++);
      isTree = true;
      // What is ticked in it is in sight.
      whole->setExpanded(StateOf(group) == Qt::PartiallyChecked);
    } else {
      AddItem(nullptr, ItemText(group, group.items.front()), place, 0);
    }
    ++place;
  }
  lvFilter_->setRootIsDecorated(isTree);
  if (place > 0) lvFilter_->setCurrentItem(lvFilter_->topLevelItem(0));
}

void FrmFilter::ApplyTick(QTreeWidgetItem* item) {
  const auto group = static_cast<std::size_t>(item->data(0, kGroupRole).toInt());
  const int one = item->data(0, kItemRole).toInt();
  const bool isTicked = item->checkState(0) == Qt::Checked;
  if (one == kWhole) {
    choice_.TickGroup(group, isTicked);
  } else {
    choice_.Tick(group, static_cast<std::size_t>(one), isTicked);
  }
  ShowTicksOf(static_cast<int>(group));
  ShowCount();
}

void FrmFilter::ShowTicks() {
  for (int group = 0; group < lvFilter_->topLevelItemCount(); ++group) ShowTicksOf(group);
  ShowCount();
}

void FrmFilter::ShowTicksOf(int group) {
  const QSignalBlocker quiet(lvFilter_);
  const FilterChoice::Group& of = choice_.Groups().at(static_cast<std::size_t>(group));
  QTreeWidgetItem* whole = lvFilter_->topLevelItem(group);
  whole->setCheckState(0, StateOf(of));
  for (int item = 0; item < whole->childCount(); ++item) {
    const bool isTicked = of.items.at(static_cast<std::size_t>(item)).isTicked;
    whole->child(item)->setCheckState(0, isTicked ? Qt::Checked : Qt::Unchecked);
  }
  // The list was told nothing that it would draw.
  lvFilter_->viewport()->update();
}

void FrmFilter::ShowCount() {
  const std::size_t ticked = choice_.TickedCount();
  if (choice_.Count() == 0) {
    lblChosen_->setText(tr("There is nothing to choose yet"));
  } else if (FirstShown() == nullptr) {
    lblChosen_->setText(tr("Nothing in the list has these letters"));
  } else if (ticked == 0) {
    lblChosen_->setText(tr("Nothing is ticked: all rows are shown"));
  } else {
    lblChosen_->setText(tr("%1 of %2 ticked")
                            .arg(locale().toString(static_cast<qulonglong>(ticked)),
                                 locale().toString(static_cast<qulonglong>(choice_.Count()))));
  }
}

void FrmFilter::Search() {
  const std::string text = FromQt(txtFind_->text());
  const bool isSearch = !txtFind_->text().trimmed().isEmpty();
  lvFilter_->setUpdatesEnabled(false);
  for (int group = 0; group < lvFilter_->topLevelItemCount(); ++group) {
    QTreeWidgetItem* whole = lvFilter_->topLevelItem(group);
    const std::size_t count = choice_.Groups().at(static_cast<std::size_t>(group)).items.size();
    bool isAny = false;
    for (std::size_t item = 0; item < count; ++item) {
      const bool fits = choice_.Matches(static_cast<std::size_t>(group), item, text);
      isAny = isAny || fits;
      if (auto* line = whole->child(static_cast<int>(item))) line->setHidden(!fits);
    }
    whole->setHidden(!isAny);
    if (isSearch) whole->setExpanded(isAny);
  }
  lvFilter_->setUpdatesEnabled(true);
  if (QTreeWidgetItem* first = FirstShown()) lvFilter_->setCurrentItem(FirstFound(first));
  ShowCount();
}

void FrmFilter::TickShown() {
  for (int group = 0; group < lvFilter_->topLevelItemCount(); ++group) {
    const QTreeWidgetItem* whole = lvFilter_->topLevelItem(group);
    if (whole->isHidden()) continue;
    const auto of = static_cast<std::size_t>(group);
    if (whole->childCount() == 0) choice_.TickGroup(of, true);
    for (int item = 0; item < whole->childCount(); ++item) {
      if (!whole->child(item)->isHidden()) choice_.Tick(of, static_cast<std::size_t>(item), true);
    }
  }
  ShowTicks();
}

QTreeWidgetItem* FrmFilter::FirstShown() const {
  for (int group = 0; group < lvFilter_->topLevelItemCount(); ++group) {
    QTreeWidgetItem* whole = lvFilter_->topLevelItem(group);
    if (!whole->isHidden()) return whole;
  }
  return nullptr;
}

// A space ticks what was looked for: the whole where it has the letters, or else the one of its
// items.
QTreeWidgetItem* FrmFilter::FirstFound(QTreeWidgetItem* whole) const {
  if (whole->text(0).contains(txtFind_->text().trimmed(), Qt::CaseInsensitive)) return whole;
  for (int item = 0; item < whole->childCount(); ++item) {
    if (!whole->child(item)->isHidden()) return whole->child(item);
  }
  return whole;
}

bool FrmFilter::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txtFind_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    // From what was typed straight into what was found.
    if ((key == Qt::Key_Down || key == Qt::Key_PageDown) && FirstShown() != nullptr) {
      lvFilter_->setFocus(Qt::OtherFocusReason);
      return true;
    }
  }
  return FormDialog::eventFilter(watched, event);
}

}  // namespace corvanta::inline app
