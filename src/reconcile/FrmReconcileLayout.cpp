// How the window that balances an account is put together.
#include "controls/CommandEdge.h"
#include "controls/EmptyState.h"
#include "controls/MutedLabel.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Platform.h"
#include "platform/Settings.h"
#include "reconcile/FrmReconcile.h"
#include "reconcile/QtReconcileDelegate.h"
#include "reconcile/QtReconcileModel.h"
#include "reconcile/QtReconcileProgress.h"
#include "reconcile/ucReconcileStatement.h"
#include "reconcile/ucReconcileTable.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>

namespace corvanta::inline reconcile {
namespace {

constexpr int kMargin = 2 * kRhythm;
constexpr QSize kComfortable(116 * kRhythm, 76 * kRhythm);

}  // namespace

QPushButton* FrmReconcile::MakeButton(const char* name, const QString& caption,
                                      const QString& toolTip, void (FrmReconcile::*command)()) {
  auto* button = new QPushButton(caption, content_);
  button->setObjectName(QLatin1String(name));
  button->setToolTip(toolTip);
  connect(button, &QPushButton::clicked, this, command);
  return button;
}

QLabel* FrmReconcile::MakeLabel(const char* name, const QString& text) {
  auto* label = new QLabel(text, content_);
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  return label;
}

void FrmReconcile::MakeList() {
  lvBalance_->setObjectName(QStringLiteral("lvBalance"));
  lvBalance_->setAccessibleName(tr("Transactions to balance"));
  lvBalance_->setModel(model_);
  const QFontMetrics metrics = fontMetrics();
  const auto wide = [&](const char* text) {
    return metrics.horizontalAdvance(QLatin1String(text)) + 3 * kRhythm;
  };
  const int date = QtReconcileDelegate::MarksWidth(*lvBalance_) + wide("00/00/00000");
  lvBalance_->SetColumns({{date, 0},
                          {wide("A payee name"), 7, wide("Abc...")},
                          {wide("Category:S"), 18, wide("Abc...")},
                          {wide("0000"), 0, 0, 1},
                          {wide("Description"), 2, wide("Abc..."), 2},
                          {wide("Status"), 0, 0, 3},
                          {wide("00,000.00"), 1},
                          {wide("00,000.00"), 1}});
  lvBalance_->SetSorted({QtReconcileModel::kDate, false});
  const Settings settings(platform_.registry);
  lvBalance_->SetWidths(ToQt(settings.Text(Setting::chR)));
  pages_->setFrameShape(QFrame::StyledPanel);
  pages_->addWidget(lvBalance_);
  pages_->addWidget(empty_);
}

QWidget* FrmReconcile::MakeHead() {
  auto* head = new QWidget(content_);
  lblAccount_->setFont(ScaledFont(1, QFont::DemiBold));
  auto* hint = new MutedLabel(head);
  hint->setText(tr("Tick what is on the statement until the current balance is the statement's."));
  hint->setWordWrap(true);
  auto* lines = new QVBoxLayout(head);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(kRhythm / 2);
  lines->addWidget(lblAccount_);
  lines->addWidget(hint);
  return head;
}

QWidget* FrmReconcile::MakeCommands() {
  auto* commands = new QWidget(content_);
  auto* row = new QHBoxLayout(commands);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kRhythm);
  row->addWidget(MakeButton("cmdAddTransaction", tr("Add &Transaction"), tr("Add Transaction"),
                            &FrmReconcile::AddTransaction));
  row->addSpacing(kRhythm);
  cmdShowAll_ = MakeButton("cmdShowAll", tr("&Show All"), tr("Show All Transactions"),
                           &FrmReconcile::ShowAll);
  cmdUnReconciled_ =
      MakeButton("cmdUnReconciled", tr("&Show Unreconciled"), tr("Show Unreconciled Transactions"),
                 &FrmReconcile::ShowUnreconciled);
  for (QPushButton* button : {cmdShowAll_, cmdUnReconciled_}) {
    button->setCheckable(true);
    row->addWidget(button);
  }
  row->addSpacing(kRhythm);
  row->addWidget(
      MakeButton("cmdSelect", tr("&Select All"), tr("Select All"), &FrmReconcile::SelectAll));
  row->addWidget(
      MakeButton("cmdDSelect", tr("Clea&r All"), tr("Clear All"), &FrmReconcile::ClearAll));
  row->addWidget(
      MakeButton("cmdInvert", tr("&Invert"), tr("Invert Selected"), &FrmReconcile::Invert));
  row->addStretch(1);
  row->addWidget(MakeButton("cmdPrint", tr("&Print"), tr("Print"), &FrmReconcile::Print));
  return commands;
}

QWidget* FrmReconcile::MakeTotals() {
  auto* totals = new QWidget(content_);
  lblBalNow_->setFont(ScaledFont(0, QFont::DemiBold));
  auto* grid = new QGridLayout(totals);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(4 * kRhythm);
  grid->setVerticalSpacing(kRhythm / 2);
  grid->addWidget(lblBalInitial_, 0, 0);
  grid->addWidget(lblBalNow_, 1, 0);
  grid->addWidget(lblNoPayIn_, 0, 1);
  grid->addWidget(lblNoPayOut_, 1, 1);
  grid->addWidget(lblBalRemaining_, 0, 2);
  grid->setColumnStretch(3, 1);
  return totals;
}

QWidget* FrmReconcile::MakeButtons() {
  auto* buttons = new QWidget(content_);
  auto* accept = MakeButton("cmdAccept", tr("&Apply"), tr("Apply"), &FrmReconcile::Apply);
  accept->setDefault(true);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kRhythm);
  row->addWidget(MakeButton("cmdHelp", tr("&Help"), tr("Help"), &FrmReconcile::Help));
  row->addStretch(1);
  row->addWidget(accept);
  row->addWidget(MakeButton("cmdCancel", tr("&Close"), tr("Close"), &FrmReconcile::reject));
  return buttons;
}

void FrmReconcile::MakeLayout() {
  auto* page = new QVBoxLayout(content_);
  page->setContentsMargins(kMargin, kMargin, kMargin, kRhythm);
  page->setSpacing(kRhythm + kRhythm / 2);
  page->addWidget(MakeHead());
  page->addWidget(MakeCommands());
  page->addWidget(pages_, 1);
  page->addWidget(MakeTotals());
  page->addWidget(statement_);
  page->addWidget(MakeButtons());
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->setSpacing(0);
  whole->addWidget(content_, 1);
  whole->addWidget(StatusBar1_);
  OrderTabs();
}

// As they are read, whatever the order in which they were made.
void FrmReconcile::OrderTabs() {
  QWidget* last = nullptr;
  for (const char* name : {"cmdAddTransaction", "cmdShowAll", "cmdUnReconciled", "cmdSelect",
                           "cmdDSelect", "cmdInvert", "cmdPrint", "lvBalance", "cmdStatement",
                           "txtStatement", "cmdHelp", "cmdAccept", "cmdCancel"}) {
    auto* next = findChild<QWidget*>(QLatin1String(name));
    if (last != nullptr) setTabOrder(last, next);
    last = next;
  }
}

void FrmReconcile::RestoreSize() {
  const Settings settings(platform_.registry);
  const QSize kept(settings.Number(Setting::bWidth), settings.Number(Setting::bHeight));
  const QSize room = screen()->availableSize() - QSize(4 * kRhythm, 6 * kRhythm);
  resize((kept.isEmpty() ? kComfortable : kept).boundedTo(room));
}

void FrmReconcile::done(int result) {
  RunCommand(platform_.prompts, [this] {
    Settings settings(platform_.registry);
    settings.SetNumber(Setting::bHeight, height());
    settings.SetNumber(Setting::bWidth, width());
    settings.SetText(Setting::chR, FromQt(lvBalance_->Widths()));
  });
  QDialog::done(result);
}

}  // namespace corvanta::inline reconcile
