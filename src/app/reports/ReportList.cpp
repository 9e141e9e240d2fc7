#include "app/reports/ReportList.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"
#include "reports/query/ReportCatalogue.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <iterator>

namespace corvanta::inline app {
namespace {

constexpr int kNumberRole = Qt::UserRole;  // of a report; 0 for a saved one, absent for a root
constexpr int kNameWidth = 36 * kRhythm;

// What each of the reports answers, in their order.
QString MeaningOf(int number) {
  static const char* const kMeanings[] = {
      QT_TRANSLATE_NOOP("ReportList", "What came in, what went out and what is left, by account"),
      QT_TRANSLATE_NOOP("ReportList", "What came in and went out in each month"),
      QT_TRANSLATE_NOOP("ReportList", "Each transaction with the balance after it"),
      QT_TRANSLATE_NOOP("ReportList", "What was planned for each category, and what became of it"),
      QT_TRANSLATE_NOOP("ReportList", "Income and expense of each category"),
      QT_TRANSLATE_NOOP("ReportList", "The same, month by month"),
      QT_TRANSLATE_NOOP("ReportList", "Income and expense of each payee"),
      QT_TRANSLATE_NOOP("ReportList", "The same, month by month"),
      QT_TRANSLATE_NOOP("ReportList", "Income and expense of each payment type"),
      QT_TRANSLATE_NOOP("ReportList", "What is held of each investment, and what it has gained"),
      QT_TRANSLATE_NOOP("ReportList", "What was bought, sold and paid out"),
      QT_TRANSLATE_NOOP("ReportList", "What you have less what you owe, at the end of each month"),
      QT_TRANSLATE_NOOP("ReportList", "Income and expense of these days beside those before them"),
      QT_TRANSLATE_NOOP("ReportList", "The plan of the month, what was spent, and what is left"),
      QT_TRANSLATE_NOOP("ReportList", "What each account is likely to hold, day by day")};
  const auto place = static_cast<std::size_t>(number) - 1;
  return place < std::size(kMeanings) ? ReportList::tr(kMeanings[place]) : QString();
}

}  // namespace

ReportList::ReportList(QWidget* parent)
    : QTreeWidget(parent),
      root_(AddRoot(QLatin1String(kReportRoot))),
      saved_(AddRoot(tr("Custom Reports"))) {
  setObjectName(QStringLiteral("tvReports"));
  setAccessibleName(tr("Reports"));
  setHeaderHidden(true);
  setColumnCount(2);
  setUniformRowHeights(true);
  setTabKeyNavigation(false);
  setFrameShape(NoFrame);
  header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  header()->setMinimumSectionSize(kNameWidth);
  for (const ReportInfo& info : ReportCatalogue()) {
    AddReport(root_, ToQt(info.name), MeaningOf(info.number), info.number);
  }
  root_->setExpanded(true);
  saved_->setHidden(true);
  setCurrentItem(root_->child(0));
  connect(this, &QTreeWidget::itemClicked, this, &ReportList::Open);
}

QTreeWidgetItem* ReportList::AddRoot(const QString& text) {
  auto* root = new QTreeWidgetItem(this, QStringList(text));
  root->setIcon(0, SvgIcon(QStringLiteral("reports")));
  root->setFont(0, ScaledFont(0, QFont::DemiBold));
  root->setFirstColumnSpanned(true);
  root->setSizeHint(0, QSize(0, fontMetrics().height() + kRhythm));
  return root;
}

void ReportList::AddReport(QTreeWidgetItem* root, const QString& name, const QString& what,
                           int number) {
  auto* item = new QTreeWidgetItem(root, QStringList{name, what});
  item->setData(0, kNumberRole, number);
  item->setForeground(1, MutedText(palette()));
  item->setToolTip(0, name);
  item->setToolTip(1, what);
  item->setSizeHint(0, QSize(0, fontMetrics().height() + kRhythm));
}

void ReportList::SetSaved(const std::vector<std::pair<QString, QString>>& saved) {
  const bool wasHere = currentItem() != nullptr && currentItem()->parent() == saved_;
  const int place = wasHere ? saved_->indexOfChild(currentItem()) : -1;
  qDeleteAll(saved_->takeChildren());
  for (const auto& [name, report] : saved) AddReport(saved_, name, report, 0);
  saved_->setHidden(saved.empty());
  saved_->setExpanded(true);
  if (place < 0) return;
  setCurrentItem(saved.empty() ? root_->child(0)
                               : saved_->child(std::min(place, saved_->childCount() - 1)));
}

void ReportList::Choose(int number) {
  if (QTreeWidgetItem* item = root_->child(number - 1)) setCurrentItem(item);
}

void ReportList::Open(const QTreeWidgetItem* item) {
  if (item == nullptr || !item->data(0, kNumberRole).isValid()) return;
  const int number = item->data(0, kNumberRole).toInt();
  if (number == 0) {
    Q_EMIT SavedChosen(item->text(0));
  } else {
    Q_EMIT ReportChosen(number);
  }
}

void ReportList::Colour() {
  for (QTreeWidgetItem* root : {root_, saved_}) {
    for (int place = 0; place < root->childCount(); ++place) {
      root->child(place)->setForeground(1, MutedText(palette()));
    }
  }
}

void ReportList::changeEvent(QEvent* event) {
  QTreeWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Colour();
}

void ReportList::keyPressEvent(QKeyEvent* event) {
  const bool opens = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (opens) return Open(currentItem());
  QTreeWidget::keyPressEvent(event);
}

}  // namespace corvanta::inline app
