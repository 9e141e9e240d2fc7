#pragma once

#include "controls/FormDialog.h"
#include "invest/InvestDialogs.h"

namespace corvanta::inline invest {

// What the dialogs of stored prices and of exchange rates have in common: a list, below it the
// fields of one entry, and commands that download one, enter another, delete and save.
class QtEntryListDialog : public FormDialog {
  Q_OBJECT

 protected:
  QtEntryListDialog(const QString& name, const InvestPlace& place);

  // The buttons. `more` stand between the download and the data sources.
  void MakeCommands(const QString& downloads, const std::vector<QPushButton*>& more = {});
  virtual void New() = 0;
  virtual void Accept() = 0;
  virtual void Delete() = 0;
  virtual void Download() = 0;
  void AllowDelete(bool allow);
  // Where to look next when nothing was downloaded.
  void LeadToSources();
  [[nodiscard]] const InvestPlace& Place() const { return place_; }

 private:
  void OpenDataSources();

  InvestPlace place_;
  QPushButton* cmdDelete_ = nullptr;
  QPushButton* cmdSources_ = nullptr;
};

}  // namespace corvanta::inline invest
