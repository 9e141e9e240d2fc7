#pragma once

#include "controls/FormDialog.h"
#include "ledger/register/RowFilter.h"

class QCheckBox;
class QLineEdit;

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

// The text that the rows shown must have.
class FrmTextFilter : public FormDialog {
  Q_OBJECT

 public:
  FrmTextFilter(const SearchText& search, const Locale& locale, Prompts& prompts, QWidget* parent);

  // As it was accepted; with an empty text all rows are to be shown.
  [[nodiscard]] SearchText Search() const;

 private:
  const Locale& locale_;
  QLineEdit* txtSearch_;
  QCheckBox* chkNames_;
};

}  // namespace corvanta::inline app
