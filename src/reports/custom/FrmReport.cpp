#include "reports/custom/FrmReport.h"

#include "controls/EmptyState.h"
#include "controls/ListTable.h"
#include "controls/QtText.h"
#include "controls/Style.h"

#include <QAction>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QStandardItemModel>

#include <algorithm>

namespace corvanta::inline reports {
namespace {
constexpr int kWidth = 66 * kRhythm;
constexpr int kHeight = 54 * kRhythm;
}  // namespace

FrmReport::FrmReport(Registry& registry, Prompts& prompts, QWidget* parent)
    : FormDialog(QStringLiteral("FrmReport"), prompts, parent),
      editor_(registry, prompts),
      pages_(new QStackedWidget(this)),
      lvReports_(new ListTable(pages_)),
      empty_(new EmptyState(pages_)),
      model_(new QStandardItemModel(this)) {
  setWindowTitle(QStringLiteral("Custom Reports"));
  MakeList();
  MakeButtons();
  Run([this] { Fill(); });
  SetFirstField(lvReports_);
  FocusFirstField();
  const QSize room = screen()->availableSize();
  resize(std::min(kWidth, room.width()), std::min(kHeight, room.height() - 8 * kRhythm));
}

void FrmReport::MakeList() {
  const int width = fontMetrics().horizontalAdvance(QStringLiteral("A name of some length"));
  model_->setHorizontalHeaderLabels({tr("Name"), tr("Report")});
  lvReports_->setObjectName(QStringLiteral("lvReports"));
  lvReports_->setAccessibleName(windowTitle());
  lvReports_->setSelectionMode(QAbstractItemView::SingleSelection);
  lvReports_->setAlternatingRowColors(true);
  lvReports_->setModel(model_);
  lvReports_->SetColumns({{width, 3}, {width, 2}});
  auto* remove = new QAction(this);
  remove->setShortcut(QKeySequence::Delete);
  remove->setShortcutContext(Qt::WidgetShortcut);
  connect(remove, &QAction::triggered, this, &FrmReport::Delete);
  lvReports_->addAction(remove);
  connect(lvReports_, &QAbstractItemView::activated, this, &FrmReport::Open);
  pages_->addWidget(lvReports_);
  pages_->addWidget(empty_);
  pages_->setFrameShape(QFrame::StyledPanel);
  AddAbove(pages_);
}

void FrmReport::MakeButtons() {
  cmdDelete_ = MakeButton(tr("&Delete"), "cmdDelete");
  cmdOpen_ = MakeButton(tr("&Open"), "cmdAccept");
  cmdOpen_->setDefault(true);
  auto* close = MakeButton(tr("&Close"), "cmdCancel");
  for (QPushButton* button : {cmdDelete_, close}) button->setAutoDefault(false);
  AddButtonRow({cmdDelete_}, {cmdOpen_, close});
  connect(cmdDelete_, &QPushButton::clicked, this, &FrmReport::Delete);
  connect(cmdOpen_, &QPushButton::clicked, this, &FrmReport::Open);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

// The row that took the place of a deleted one is chosen.
void FrmReport::Fill() {
  const int former = std::max(0, lvReports_->currentIndex().row());
  model_->setRowCount(0);
  for (const ReportEditor::Item& item : editor_.Items()) {
    auto* report = new QStandardItem(item.report.empty() ? tr("not known") : ToQt(item.report));
    if (item.report.empty()) report->setForeground(MutedText(palette()));
    model_->appendRow({new QStandardItem(ToQt(item.name)), report});
  }
  const int count = model_->rowCount();
  if (count == 0) {
    empty_->Show(QStringLiteral("reports"), tr("No saved reports"),
                 tr("Show a report as you like it, with its filters, columns and days, and save it "
                    "under a name: Reports, Save Report As."),
                 nullptr);
  } else {
    lvReports_->setCurrentIndex(model_->index(std::min(former, count - 1), 0));
  }
  pages_->setCurrentIndex(count == 0 ? 1 : 0);
  cmdOpen_->setEnabled(count > 0);
  cmdDelete_->setEnabled(count > 0);
}

std::string FrmReport::Chosen() const {
  const QModelIndex index = lvReports_->currentIndex();
  return index.isValid() ? FromQt(index.siblingAtColumn(0).data().toString()) : std::string();
}

void FrmReport::Open() {
  const std::string name = Chosen();
  if (name.empty()) return;
  Run([&] { opened_ = editor_.Open(name); });
  if (opened_) accept();
}

void FrmReport::Delete() {
  const std::string name = Chosen();
  if (name.empty()) return;
  Run([&] {
    if (!editor_.Delete(name)) return;
    Fill();
    Note(tr("\"%1\" was deleted").arg(ToQt(name)));
  });
}

}  // namespace corvanta::inline reports
