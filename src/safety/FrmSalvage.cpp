#include "safety/FrmSalvage.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/WaitCursor.h"
#include "invest/ucEntryList.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

namespace corvanta::inline safety {
namespace {

constexpr int kPathWidth = 48 * kRhythm;
constexpr QSize kSmallestList(48 * kRhythm, 14 * kRhythm);
constexpr QSize kComfortable(84 * kRhythm, 56 * kRhythm);

}  // namespace

FrmSalvage::FrmSalvage(SalvageEditor& editor, const std::string& damaged, const SafetyPlace& place)
    : FormDialog(QStringLiteral("FrmSalvage"), place.platform.prompts, place.parent),
      place_(place),
      editor_(editor),
      txtDamaged_(new QLineEdit(this)),
      txtSalvaged_(new QLineEdit(this)),
      lvTables_(new ucEntryList("lvTables", tr("What was read"),
                                {{tr("Table"), "tblTransactions", 1, false, true},
                                 {tr("Rows"), "0,000,000", 0, true},
                                 {tr("Keys lost"), "000000-000000, 000000", 2, false, true}},
                                this)) {
  setWindowTitle(tr("Salvage"));
  lvTables_->setMinimumSize(kSmallestList);
  lvTables_->setSelectionMode(QAbstractItemView::SingleSelection);
  AddAbove(lvTables_);
  auto* damagedBrowse = MakeButton(tr("B&rowse..."), "cmdBrowse");
  auto* targetBrowse = MakeButton(tr("Bro&wse..."), "cmdBrowseTarget");
  for (QLineEdit* field : {txtDamaged_, txtSalvaged_}) field->setMinimumWidth(kPathWidth);
  txtDamaged_->setToolTip(tr("It is only read, and stays as it is"));
  AddField(tr("&Damaged file:"), txtDamaged_, "txtDamaged", damagedBrowse);
  AddField(tr("&New file:"), txtSalvaged_, "txtSalvaged", targetBrowse);
  cmdAccept_ = MakeButton(tr("&Salvage"), "cmdAccept");
  cmdOpen_ = MakeButton(tr("&Open New File"), "cmdOpen");
  cmdOpen_->setEnabled(false);
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  AddButtonRow({cmdOpen_}, {cmdAccept_, cancel});
  cmdAccept_->setDefault(true);
  connect(damagedBrowse, &QPushButton::clicked, this, &FrmSalvage::BrowseDamaged);
  connect(targetBrowse, &QPushButton::clicked, this, &FrmSalvage::BrowseTarget);
  connect(cmdAccept_, &QPushButton::clicked, this, &FrmSalvage::Salvage);
  connect(cmdOpen_, &QPushButton::clicked, this, &FrmSalvage::OpenNew);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  Fill(damaged);
  Note(tr("What can still be read comes into a new data file; what cannot is listed here."));
  resize(sizeHint().expandedTo(kComfortable).boundedTo(screen()->availableSize()));
  FocusFirstField();
}

void FrmSalvage::Fill(const std::string& damaged) {
  const SalvageForm form = SalvageEditor::Load(damaged);
  txtDamaged_->setText(ToQt(form.damaged));
  txtSalvaged_->setText(ToQt(form.path));
}

void FrmSalvage::BrowseDamaged() {
  const auto path = place_.platform.prompts.OpenFile(
      {"Select Damaged Data File", "Data Files", "*.dat", "dat", std::string()});
  if (path) Fill(*path);
}

void FrmSalvage::BrowseTarget() {
  const auto path = place_.platform.prompts.SaveFile(
      {"Save Salvaged Data File As", "Data Files", "*.dat", "dat", std::string()});
  if (path) txtSalvaged_->setText(ToQt(*path));
}

void FrmSalvage::Salvage() {
  Run([this] {
    const SalvageForm form{FromQt(txtDamaged_->text().trimmed()),
                           FromQt(txtSalvaged_->text().trimmed())};
    if (const auto warning = SalvageEditor::Check(form)) return Warn(*warning);
    lvTables_->Clear();
    const WaitCursor waiting;
    const auto salvaged = editor_.Salvage(form);
    if (!salvaged) return;
    ShowTables(salvaged->tables);
    made_ = form.path;
    MarkChanged();
    cmdOpen_->setEnabled(true);
    cmdOpen_->setDefault(true);
    cmdOpen_->setFocus();
    Note(ToQt(SalvagedText(salvaged->tables, place_.platform)));
    if (salvaged->missing.empty()) return;
    place_.platform.prompts.Tell("Salvage", salvaged->missing, Icon::Warning);
  });
}

void FrmSalvage::ShowTables(const std::vector<SalvagedTable>& tables) {
  for (const SalvagedTable& table : tables) {
    const std::string rows =
        place_.platform.locale.FormatNumber(static_cast<double>(table.rows), 0);
    lvTables_->AddRow({ToQt(table.table), ToQt(rows), ToQt(LostText(table.lost))});
  }
}

void FrmSalvage::OpenNew() {
  wanted_ = made_;
  accept();
}

}  // namespace corvanta::inline safety
