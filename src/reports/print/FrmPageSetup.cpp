#include "reports/print/FrmPageSetup.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/Platform.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPushButton>

namespace corvanta::inline reports {
namespace {
constexpr double kWidestMargin = 100;
constexpr double kStep = 5;
constexpr int kFieldWidth = 26 * kRhythm;
}  // namespace

FrmPageSetup::FrmPageSetup(Platform& platform, QWidget* parent)
    : FormDialog(QStringLiteral("FrmPageSetup"), platform.prompts, parent),
      platform_(platform),
      cmbPaper_(new QComboBox(this)),
      cmbOrientation_(new QComboBox(this)) {
  setWindowTitle(tr("Page Setup"));
  SetSmallestField(kFieldWidth);
  for (const PaperSize& paper : PaperSizes()) {
    cmbPaper_->addItem(
        tr("%1 (%2 × %3 mm)").arg(ToQt(paper.name)).arg(paper.width).arg(paper.height));
  }
  cmbOrientation_->addItems({tr("As fits the list"), tr("Portrait"), tr("Landscape")});
  AddField(tr("&Paper:"), cmbPaper_, "cmbPaper");
  AddField(tr("&Orientation:"), cmbOrientation_, "cmbOrientation");
  txtLeft_ = AddMargin(tr("&Left margin:"), "txtLeft");
  txtTop_ = AddMargin(tr("&Top margin:"), "txtTop");
  txtRight_ = AddMargin(tr("&Right margin:"), "txtRight");
  txtBottom_ = AddMargin(tr("&Bottom margin:"), "txtBottom");
  auto* accept = MakeButton(tr("&Accept"), "cmdAccept");
  auto* usual = MakeButton(tr("&Usual"), "cmdUsual");
  auto* cancel = MakeButton(tr("&Cancel"), "cmdCancel");
  usual->setToolTip(tr("The margins and the orientation as they were at first"));
  accept->setDefault(true);
  AddButtonRow({usual}, {accept, cancel});
  connect(accept, &QPushButton::clicked, this, &FrmPageSetup::Accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(usual, &QPushButton::clicked, this, [this] {
    PageSetup setup;
    setup.paper = Form().paper;
    Show(setup);
  });
  Show(ReadPageSetup(platform_));
  KeepContents();
}

QDoubleSpinBox* FrmPageSetup::AddMargin(const QString& label, const char* name) {
  auto* field = new QDoubleSpinBox(this);
  field->setRange(0, kWidestMargin);
  field->setDecimals(1);
  field->setSingleStep(kStep);
  field->setSuffix(tr(" mm"));
  AddField(label, field, name);
  return field;
}

void FrmPageSetup::Show(const PageSetup& setup) {
  cmbPaper_->setCurrentIndex(static_cast<int>(setup.paper));
  cmbOrientation_->setCurrentIndex(!setup.orientation                                 ? 0
                                   : *setup.orientation == PrintOrientation::Portrait ? 1
                                                                                      : 2);
  txtLeft_->setValue(setup.margins.left);
  txtTop_->setValue(setup.margins.top);
  txtRight_->setValue(setup.margins.right);
  txtBottom_->setValue(setup.margins.bottom);
}

PageSetup FrmPageSetup::Form() const {
  PageSetup setup;
  setup.paper = static_cast<std::size_t>(cmbPaper_->currentIndex());
  if (cmbOrientation_->currentIndex() == 1) setup.orientation = PrintOrientation::Portrait;
  if (cmbOrientation_->currentIndex() == 2) setup.orientation = PrintOrientation::Landscape;
  setup.margins = {txtLeft_->value(), txtTop_->value(), txtRight_->value(), txtBottom_->value()};
  return setup;
}

void FrmPageSetup::Accept() {
  const PageSetup setup = Form();
  if (const auto warning = CheckPageSetup(setup)) {
    Warn(*warning);
    return;
  }
  Run([&] {
    KeepPageSetup(setup, platform_);
    accept();
  });
}

}  // namespace corvanta::inline reports
