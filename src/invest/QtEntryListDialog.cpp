#include "invest/QtEntryListDialog.h"

#include "platform/Platform.h"

#include <QPushButton>

namespace corvanta::inline invest {

QtEntryListDialog::QtEntryListDialog(const QString& name, const InvestPlace& place)
    : FormDialog(name, place.platform.prompts, place.parent), place_(place) {}

void QtEntryListDialog::MakeCommands(const QString& downloads,
                                     const std::vector<QPushButton*>& more) {
  auto* download = MakeButton(tr("Do&wnload"), "cmdDownload");
  download->setToolTip(downloads);
  cmdSources_ = MakeButton(tr("Data So&urces..."), "cmdSources");
  cmdSources_->setToolTip(tr("See and change where prices and exchange rates come from"));
  std::vector<QPushButton*> tools{download};
  tools.insert(tools.end(), more.begin(), more.end());
  tools.push_back(cmdSources_);
  AddTools(tools);
  auto* another = MakeButton(tr("&New"), "cmdNew");
  cmdDelete_ = MakeButton(tr("&Delete"), "cmdDelete");
  cmdDelete_->setEnabled(false);
  auto* accept = MakeButton(tr("&Save"), "cmdAccept");
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  accept->setDefault(true);
  AddButtonRow({another, cmdDelete_}, {accept, cancel});
  connect(download, &QPushButton::clicked, this, &QtEntryListDialog::Download);
  connect(cmdSources_, &QPushButton::clicked, this, &QtEntryListDialog::OpenDataSources);
  connect(another, &QPushButton::clicked, this, &QtEntryListDialog::New);
  connect(cmdDelete_, &QPushButton::clicked, this, &QtEntryListDialog::Delete);
  connect(accept, &QPushButton::clicked, this, &QtEntryListDialog::Accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void QtEntryListDialog::AllowDelete(bool allow) {
  cmdDelete_->setEnabled(allow);
}

void QtEntryListDialog::LeadToSources() {
  cmdSources_->setFocus();
}

void QtEntryListDialog::OpenDataSources() {
  Run([this] { OpenSources({place_.platform, place_.ledger, place_.rates, this}); });
}

}  // namespace corvanta::inline invest
