#pragma once

#include "controls/FormDialog.h"
#include "invest/InvestDialogs.h"
#include "invest/prices/SourceEditor.h"

namespace corvanta::inline invest {

class ucEntryList;

// The list of the sources of prices and exchange rates, from which they are added, edited, tried
// and deleted, and from which the source that is asked for rates is chosen.
class FrmSources : public FormDialog {
  Q_OBJECT

 public:
  // The source of that key is chosen at first; 0 for the one that is asked for rates.
  FrmSources(const InvestPlace& place, std::int64_t dataId);

 private:
  void MakeCommands();
  void Fill(std::int64_t chosen);
  void EnableCommands();
  // Null while none is chosen.
  [[nodiscard]] const SourceRow* Chosen() const;
  void New();
  void NewFromPreset();
  void Edit();
  void Delete();
  void PutFirst();
  // With the fields filled for a new one.
  void OpenEditor(std::int64_t dataId, const SourceRow* preset);

  InvestPlace place_;
  SourceEditor editor_;
  std::vector<SourceRow> rows_;  // as they are listed
  ucEntryList* lvSources_;
  QPushButton* cmdEdit_ = nullptr;
  QPushButton* cmdDelete_ = nullptr;
  QPushButton* cmdFirst_ = nullptr;
};

}  // namespace corvanta::inline invest
