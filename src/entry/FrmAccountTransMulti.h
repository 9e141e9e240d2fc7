#pragma once

#include "controls/FormDialog.h"
#include "entry/EntryDialogs.h"
#include "entry/MultiEditor.h"
#include "ledger/Keys.h"

#include <functional>

class QComboBox;

namespace corvanta::inline controls {
class ChoiceRow;
class PickBox;
}  // namespace corvanta::inline controls

namespace corvanta::inline entry {

class ucCategoryBoxes;

// Changes several transactions at once. What is left empty stays as it is in each of them.
class FrmAccountTransMulti : public FormDialog {
  Q_OBJECT

 public:
  // The keys in the order of the list. Throws StoreError.
  FrmAccountTransMulti(Keys keys, const EntryPlace& place);

 private:
  void MakeFields();
  void MakeButtons();
  [[nodiscard]] MultiEditForm Form() const;
  void Accept();
  bool WhileShut(const std::function<bool()>& change);
  void Delete();
  void Help();

  Platform& platform_;
  clsCorvanta& ledger_;
  MultiEditor editor_;
  std::vector<std::int64_t> keys_;
  PickBox* cmbAccount_;
  QComboBox* cmbType_;
  PickBox* cmbPayment_;
  PickBox* cmbPayee_;
  PickBox* cmbCategory_;
  PickBox* cmbSubCategory_;
  ucCategoryBoxes* categories_;
  ChoiceRow* opPayment_;
};

}  // namespace corvanta::inline entry
