#pragma once

#include "controls/QuietEnd.h"

#include <QDialog>

#include <functional>
#include <string>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace corvanta {

struct Platform;

// Asks for the login password ("Password"). In the mode "LOGIN" it stands before the program, in
// the mode "DELETE" before something that cannot be undone.
class FrmPassword : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  enum class Mode { Login, Delete };
  // True when the typed text is right; may throw what RunCommand tells.
  using Check = std::function<bool(const std::string&)>;

  // `isNew` says that no password is kept yet: what is typed becomes it.
  FrmPassword(Mode mode, bool isNew, Platform& platform, Check check, QWidget* parent);

 private:
  void Accept();

  Platform& platform_;
  Check check_;
  QLineEdit* txtPassword_;
  QCheckBox* chkShowPwd_;
  QCheckBox* chkEnableLogin_;
};

}  // namespace corvanta
