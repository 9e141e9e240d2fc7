#pragma once

#include "controls/QuietEnd.h"
#include "ledger/Warning.h"

#include <QDialog>

#include <functional>
#include <optional>
#include <string>

class QCheckBox;
class QFormLayout;
class QLineEdit;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline app {

// What the password dialog does to the data file. May throw what RunCommand tells.
struct PasswordActions {
  std::function<bool(const std::string&)> matches;  // whether that is the present password
  std::function<void(const std::string&)> set;      // another one; an empty one for none
};

// The dialog "Password". In the mode "LOGIN" it stands before the program, in the mode "DELETE"
// before something that cannot be undone, in the mode "REVEAL" before a secret, and in the mode
// "CHANGE" it sets the password, changes it and switches it off. A new one is typed twice.
class FrmPassword : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  enum class Mode { Login, Delete, Reveal, Change };

  // `isNew` says that no password is kept yet: in the mode "LOGIN" what is typed becomes it.
  FrmPassword(Mode mode, bool isNew, Platform& platform, PasswordActions actions, QWidget* parent);

 private:
  void MakeFields(bool isNew);
  void AddField(QFormLayout& form, const QString& label, QLineEdit* field);
  void Show(bool show);
  void Accept();
  // Does what the dialog is for; the rule that stands against it otherwise.
  std::optional<Warning> Finish();
  [[nodiscard]] bool IsWanted() const;

  Mode mode_;
  Platform& platform_;
  PasswordActions actions_;
  QLineEdit* txtPassword_ = nullptr;       // the present one; null when there is none
  QLineEdit* txtNewPassword_ = nullptr;    // null unless one is set here
  QLineEdit* txtPasswordAgain_ = nullptr;  // likewise
  QCheckBox* chkShowPwd_;
  QCheckBox* chkEnableLogin_;
};

}  // namespace corvanta::inline app
