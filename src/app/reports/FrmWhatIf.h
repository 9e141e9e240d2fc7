#pragma once

#include "controls/FormDialog.h"
#include "reports/query/WhatIfForm.h"

#include <optional>
#include <vector>

class QLineEdit;

namespace corvanta::inline controls {
class AmountEdit;
class ChoiceRow;
class DateField;
class PickBox;
}  // namespace corvanta::inline controls

namespace corvanta::inline ledger {
struct AccountRow;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline app {

// A payment that a forecast counts as if it were expected. It is stored nowhere.
class FrmWhatIf : public FormDialog {
  Q_OBJECT

 public:
  // `former` is the one to be changed; nullopt for another one.
  FrmWhatIf(const std::optional<WhatIf>& former, const std::vector<AccountRow>& accounts,
            Platform& platform, QWidget* parent);

  // As it was accepted.
  [[nodiscard]] WhatIf Payment() const { return WhatIfOf(Form()); }

 private:
  void MakeFields();
  void Show(const WhatIfForm& form);
  [[nodiscard]] WhatIfForm Form() const;
  void Accept();

  Platform& platform_;
  DateField* dtWhatIf_;
  PickBox* cmbAccount_;
  ChoiceRow* opKind_;
  AmountEdit* txtAmount_;
  QLineEdit* txtText_;
};

}  // namespace corvanta::inline app
