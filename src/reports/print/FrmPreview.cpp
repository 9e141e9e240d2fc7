#include "reports/print/FrmPreview.h"

#include "controls/CommandEdge.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"
#include "platform/Platform.h"
#include "reports/print/PrintDocument.h"
#include "reports/print/QtPrinting.h"
#include "reports/print/ucPrintPage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <array>

namespace corvanta::inline reports {
namespace {

constexpr int kMargin = 2 * kRhythm;
constexpr int kWidth = 112 * kRhythm;
constexpr int kHeight = 90 * kRhythm;

// As data of the size list: a share of the size on paper, or one of these.
constexpr double kWholePage = 0;
constexpr double kPageWidth = -1;
constexpr std::array<double, 7> kSizes = {0.5, 0.75, 1, 1.25, 1.5, 2, 3};

QToolButton* MakeStep(const char* name, const QString& icon, const QString& text, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setObjectName(QLatin1String(name));
  button->setIcon(SvgIcon(icon));
  button->setToolTip(text);
  button->setAccessibleName(text);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

QPushButton* MakeButton(const char* name, const QString& text, QWidget* parent) {
  auto* button = new QPushButton(text, parent);
  button->setObjectName(QLatin1String(name));
  return button;
}

}  // namespace

FrmPreview::FrmPreview(PrintTable table, const PrintPlace& place)
    : QuietEnd(place.parent), table_(std::move(table)), place_(place) {
  setObjectName(QStringLiteral("FrmPreview"));
  setWindowTitle(tr("Print Preview"));
  setModal(true);
  place_.parent = this;
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  page->setSpacing(kRhythm + kRhythm / 2);
  MakePageBar(*page);
  MakePaper(*page);
  MakeButtons(*page);
  MakeShortcuts();
  LayOut();
  ShowPage(1);
  const QSize room = QGuiApplication::primaryScreen()->availableSize();
  // On a large screen a page is looked at, not its outline.
  resize(QSize(kWidth, kHeight).expandedTo(room * 0.6).boundedTo(room * 0.9));
}

void FrmPreview::MakePageBar(QBoxLayout& page) {
  cmdPrevious_ = MakeStep("cmdPrevious", QStringLiteral("back"), tr("Page before"), this);
  cmdNext_ = MakeStep("cmdNext", QStringLiteral("forward"), tr("Page after"), this);
  txtPage_ = new QSpinBox(this);
  txtPage_->setObjectName(QStringLiteral("txtPage"));
  txtPage_->setKeyboardTracking(false);
  txtPage_->installEventFilter(this);
  auto* caption = new QLabel(tr("P&age:"), this);
  caption->setBuddy(txtPage_);
  txtPage_->setAccessibleName(tr("Page"));
  lblPages_ = new QLabel(this);
  lblPages_->setObjectName(QStringLiteral("lblPages"));
  cmbZoom_ = new QComboBox(this);
  cmbZoom_->setObjectName(QStringLiteral("cmbZoom"));
  cmbZoom_->setAccessibleName(tr("Size"));
  cmbZoom_->addItem(tr("Whole page"), kWholePage);
  cmbZoom_->addItem(tr("Page width"), kPageWidth);
  for (const double size : kSizes) cmbZoom_->addItem(tr("%1 %").arg(size * 100), size);
  auto* size = new QLabel(tr("Si&ze:"), this);
  size->setBuddy(cmbZoom_);
  chkLandscape_ = new QCheckBox(tr("&Landscape"), this);
  chkLandscape_->setObjectName(QStringLiteral("chkLandscape"));
  chkLandscape_->setToolTip(tr("Print across the wide side of the paper"));
  ShowOrientation();

  auto* row = new QHBoxLayout;
  row->setSpacing(kRhythm);
  for (QWidget* widget :
       std::initializer_list<QWidget*>{caption, cmdPrevious_, txtPage_, lblPages_, cmdNext_}) {
    row->addWidget(widget);
  }
  row->addSpacing(2 * kRhythm);
  row->addWidget(size);
  row->addWidget(cmbZoom_);
  row->addSpacing(2 * kRhythm);
  row->addWidget(chkLandscape_);
  row->addStretch(1);
  page.addLayout(row);

  connect(cmdPrevious_, &QToolButton::clicked, this, [this] { ShowPage(picPreview_->Page() - 1); });
  connect(cmdNext_, &QToolButton::clicked, this, [this] { ShowPage(picPreview_->Page() + 1); });
  connect(txtPage_, &QSpinBox::valueChanged, this, &FrmPreview::ShowPage);
  connect(cmbZoom_, &QComboBox::currentIndexChanged, this, &FrmPreview::ApplyZoom);
  connect(chkLandscape_, &QCheckBox::toggled, this, [this](bool isLandscape) {
    turned_ = isLandscape ? PrintOrientation::Landscape : PrintOrientation::Portrait;
    LayOut();
  });
}

void FrmPreview::MakePaper(QBoxLayout& page) {
  scroll_ = new QScrollArea(this);
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setAccessibleName(tr("The page"));
  scroll_->setAlignment(Qt::AlignCenter);
  scroll_->setBackgroundRole(QPalette::Mid);
  scroll_->setMinimumSize(40 * kRhythm, 30 * kRhythm);
  picPreview_ = new ucPrintPage(scroll_);
  scroll_->setWidget(picPreview_);
  scroll_->viewport()->installEventFilter(this);
  page.addWidget(scroll_, 1);
}

void FrmPreview::MakeButtons(QBoxLayout& page) {
  auto* print = MakeButton("cmdPrint", tr("&Print..."), this);
  auto* save = MakeButton("cmdSave", tr("&Save as PDF..."), this);
  auto* setup = MakeButton("cmdPageSetup", tr("Page Set&up..."), this);
  setup->setToolTip(tr("Choose the paper, how it lies, and its margins"));
  auto* cancel = MakeButton("cmdCancel", tr("&Close"), this);
  print->setDefault(true);
  auto* row = new QHBoxLayout;
  row->setSpacing(kRhythm);
  row->addWidget(print);
  row->addWidget(save);
  row->addWidget(setup);
  row->addStretch(1);
  row->addWidget(cancel);
  page.addLayout(row);
  connect(print, &QPushButton::clicked, this,
          [this] { Run([this] { PrintList(table_, place_, Setup()); }); });
  connect(save, &QPushButton::clicked, this,
          [this] { Run([this] { SavePdf(table_, place_.platform, Setup()); }); });
  connect(setup, &QPushButton::clicked, this, &FrmPreview::SetUp);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmPreview::SetUp() {
  if (!OpenPageSetup(place_)) return;
  ShowOrientation();
  LayOut();
}

// What is set for all lists decides; this one may be turned while it is looked at.
void FrmPreview::ShowOrientation() {
  const QSignalBlocker quiet(chkLandscape_);
  turned_.reset();
  chkLandscape_->setChecked(OrientationOf(ReadPageSetup(place_.platform), table_.orientation) ==
                            PrintOrientation::Landscape);
}

PageSetup FrmPreview::Setup() const {
  PageSetup setup = ReadPageSetup(place_.platform);
  if (turned_) setup.orientation = turned_;
  return setup;
}

void FrmPreview::MakeShortcuts() {
  const auto on = [this](const QKeySequence& keys, auto act) {
    auto* shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, this, act);
  };
  on(Qt::Key_PageUp, [this] { ShowPage(picPreview_->Page() - 1); });
  on(Qt::Key_PageDown, [this] { ShowPage(picPreview_->Page() + 1); });
  on(Qt::CTRL | Qt::Key_Home, [this] { ShowPage(1); });
  on(Qt::CTRL | Qt::Key_End, [this] { ShowPage(picPreview_->PageCount()); });
  on(Qt::CTRL | Qt::Key_Plus, [this] { StepZoom(true); });
  on(Qt::CTRL | Qt::Key_Equal, [this] { StepZoom(true); });
  on(Qt::CTRL | Qt::Key_Minus, [this] { StepZoom(false); });
}

void FrmPreview::LayOut() {
  picPreview_->SetTable(table_, PrintDate(place_.platform),
                        PageLayoutOf(Setup(), table_.orientation));
  const int pages = picPreview_->PageCount();
  txtPage_->setRange(1, pages);
  lblPages_->setText(tr("of %1").arg(pages));
  ApplyZoom();
  ShowPage(picPreview_->Page());
}

void FrmPreview::ShowPage(int number) {
  picPreview_->SetPage(number);
  const int page = picPreview_->Page();
  txtPage_->setValue(page);
  cmdPrevious_->setEnabled(page > 1);
  cmdNext_->setEnabled(page < picPreview_->PageCount());
  scroll_->verticalScrollBar()->setValue(0);
}

void FrmPreview::ApplyZoom() {
  const double size = cmbZoom_->currentData().toDouble();
  if (size > 0) return picPreview_->SetZoom(size);
  // A bar that comes and goes with the size would change the size again.
  const QSize room =
      scroll_->maximumViewportSize() -
      (picPreview_->sizeHint() - (picPreview_->FullSize() * picPreview_->Zoom()).toSize());
  const QSizeF full = picPreview_->FullSize();
  const double width =
      (room.width() - scroll_->verticalScrollBar()->sizeHint().width()) / full.width();
  const double height = room.height() / full.height();
  picPreview_->SetZoom(std::max(0.1, size == kPageWidth ? width : std::min(width, height)));
}

void FrmPreview::StepZoom(bool larger) {
  const double now = picPreview_->Zoom();
  int chosen = -1;
  for (int index = 0; index < cmbZoom_->count(); ++index) {
    const double size = cmbZoom_->itemData(index).toDouble();
    if (size <= 0) continue;
    if (larger && size > now + 0.01 && chosen < 0) chosen = index;
    if (!larger && size < now - 0.01) chosen = index;
  }
  if (chosen >= 0) cmbZoom_->setCurrentIndex(chosen);
}

bool FrmPreview::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txtPage_) {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    // Enter goes to the page that was typed; the print button must not have it as well.
    txtPage_->interpretText();
    txtPage_->selectAll();
    return true;
  }
  if (event->type() == QEvent::Resize) ApplyZoom();
  if (event->type() == QEvent::Wheel) {
    auto* wheel = static_cast<QWheelEvent*>(event);
    if ((wheel->modifiers() & Qt::ControlModifier) != 0) {
      StepZoom(wheel->angleDelta().y() > 0);
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

void FrmPreview::Run(const std::function<void()>& command) {
  // Printing lets waiting keys and clicks in, which must not print the list again.
  QWidget* const former = focusWidget();
  setEnabled(false);
  RunCommand(place_.platform.prompts, command);
  setEnabled(true);
  if (former != nullptr) former->setFocus();
}

}  // namespace corvanta::inline reports
