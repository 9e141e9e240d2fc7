#pragma once

#include "controls/FormDialog.h"

class QCheckBox;
class QLineEdit;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline app {

// A passphrase for the data file in place of the key of this installation, another one, or back to
// the key. The dialog only finds out which is wanted.
class FrmPassphrase : public FormDialog {
  Q_OBJECT

 public:
  // `isSet` says that the data file has a passphrase now.
  FrmPassphrase(bool isSet, Platform& platform, QWidget* parent);

  // What the person typed, once the dialog was accepted: empty for the installation's key.
  [[nodiscard]] const std::string& Passphrase() const { return chosen_; }

 private:
  void MakeFields(bool isSet);
  [[nodiscard]] QLineEdit* MakeSecret();
  void Show(bool show);
  void Accept();

  std::string chosen_;
  QLineEdit* txtPassphrase_;
  QLineEdit* txtPassphraseAgain_;
  QCheckBox* chkShowPwd_;
  QCheckBox* chkKey_;  // back to the installation's key
};

}  // namespace corvanta::inline app
