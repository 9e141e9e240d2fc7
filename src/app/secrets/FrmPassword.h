#pragma once

#include "controls/QuietEnd.h"
#include "ledger/Warning.h"

#include <QDialog>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

class QCheckBox;
class QFormLayout;
class QLineEdit;
class QPushButton;
class QTimer;

namespace corvanta::inline controls {
class MutedLabel;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline app {

// What the password dialog does to the data file. May throw what RunCommand tells.
struct PasswordActions {
  std::function<bool(const std::string&)> matches;  // whether that is the present password
  std::function<void(const std::string&)> set;      // another one; an empty one for none
  // In how many seconds one may be tried, 0 for at once; without it always at once.
  std::function<std::int64_t()> wait = {};
};

// The dialog "Password". In the mode "LOGIN" it stands before the program, in the mode "DELETE" it
// switches the password off, in the mode "REVEAL" it stands before a secret, and in the mode
// "CHANGE" it sets the password and changes it. A new one is typed twice.
class FrmPassword : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  enum class Mode { Login, Delete, Reveal, Change };
  // How it ends in the mode "CHANGE" when the mode "DELETE" is wanted instead.
  static constexpr int kSwitchOff = 2;

  // `isNew` says that no password is kept yet: in the mode "LOGIN" what is typed becomes it. In the
  // modes "DELETE" and "REVEAL" there must be one.
  FrmPassword(Mode mode, bool isNew, Platform& platform, PasswordActions actions, QWidget* parent);

 private:
  void MakeFields(bool isNew);
  void MakeButtons();
  QLineEdit* AddField(QFormLayout& form, const QString& label, const char* name);
  // Counts down, and offers to go on when it is over.
  void ShowWait();
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
  MutedLabel* lblWait_;
  QPushButton* cmdAccept_ = nullptr;
  QTimer* wait_;
};

}  // namespace corvanta::inline app
