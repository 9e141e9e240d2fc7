#pragma once

#include "controls/QuietEnd.h"

#include <QDialog>

#include <functional>

class QCommandLinkButton;
class QVBoxLayout;

namespace corvanta::inline app {

// What the page of the first start leads to.
struct WelcomeActions {
  // These close the page first.
  std::function<void()> addAccount;
  std::function<void()> importFile;
  std::function<void()> showSample;
  // These go back to it.
  std::function<void()> showKey;
  std::function<QString()> chooseBackup;  // where backups go from now on; empty as below
};

// The page that greets a new user: how to begin, and what keeps the accounts safe.
class FrmWelcome : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  // `backup` is where backups go; empty where that was not chosen yet.
  FrmWelcome(WelcomeActions actions, const QString& backup, QWidget* parent);

 private:
  void AddTitle(const QString& text, int step);
  QCommandLinkButton* AddWay(const char* name, const char* icon, const QString& title,
                             const QString& text);
  void Leave(const std::function<void()>& action);
  void ShowBackup(const QString& path);

  WelcomeActions actions_;
  QVBoxLayout* page_;
  QCommandLinkButton* cmdBackup_ = nullptr;
};

}  // namespace corvanta::inline app
