#include "app/QtPrompts.h"

#include "app/FrmMessage.h"
#include "controls/LongText.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/PlatformError.h"
#include "platform/Registry.h"
#include "platform/SettingsTable.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

namespace corvanta::inline app {
namespace {

constexpr std::string_view kLastFolder = "LastFolder";

QMessageBox::Icon BoxIcon(Icon icon) {
  switch (icon) {
    case Icon::Question:
      return QMessageBox::Question;
    case Icon::Warning:
      return QMessageBox::Warning;
    case Icon::Error:
      return QMessageBox::Critical;
    case Icon::Information:
      break;
  }
  return QMessageBox::Information;
}

void Fill(QMessageBox& box, const std::string& title, const std::string& text, Icon icon) {
  box.setWindowTitle(ToQt(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(Breakable(ToQt(text)));
  box.setIcon(BoxIcon(icon));
}

// The library's own dialog asks for more room than a small screen has.
void FitScreen(QDialog& dialog) {
  constexpr QSize kFrame(2 * kRhythm, 5 * kRhythm);
  const QSize room = dialog.screen()->availableSize() - kFrame;
  dialog.resize(dialog.sizeHint().boundedTo(room));
}

}  // namespace

QWidget* QtPrompts::Parent() const {
  QWidget* active = QApplication::activeModalWidget();
  return active != nullptr ? active : parent_;
}

void QtPrompts::Tell(const std::string& title, const std::string& text, Icon icon) {
  if (icon == Icon::Information && FrmMessage::IsLong(ToQt(text))) {
    FrmMessage(ToQt(title), ToQt(text), Parent()).exec();
    return;
  }
  QMessageBox box(Parent());
  Fill(box, title, text, icon);
  box.exec();
}

bool QtPrompts::Ask(const std::string& title, const std::string& text, Icon icon) {
  QMessageBox box(Parent());
  Fill(box, title, text, icon);
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  const bool isGrave = icon == Icon::Warning || icon == Icon::Error;
  box.setDefaultButton(isGrave ? QMessageBox::No : QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

std::optional<std::size_t> QtPrompts::Choose(const std::string& title, const std::string& text,
                                             const std::vector<std::string>& answers) {
  QMessageBox box(Parent());
  Fill(box, title, text, Icon::Question);
  std::vector<QPushButton*> buttons;
  for (const std::string& answer : answers) {
    buttons.push_back(box.addButton(ToQt(answer), QMessageBox::ActionRole));
  }
  box.setEscapeButton(box.addButton(QMessageBox::Cancel));
  if (!buttons.empty()) box.setDefaultButton(buttons.front());
  box.exec();
  for (std::size_t index = 0; index < buttons.size(); ++index) {
    if (box.clickedButton() == buttons[index]) return index;
  }
  return std::nullopt;
}

std::optional<std::string> QtPrompts::AskText(const std::string& title, const std::string& text,
                                              bool secret, const std::string& typed) {
  bool accepted = false;
  const QString answer = QInputDialog::getText(Parent(), ToQt(title), ToQt(text),
                                               secret ? QLineEdit::Password : QLineEdit::Normal,
                                               ToQt(typed), &accepted);
  if (!accepted) return std::nullopt;
  return FromQt(answer);
}

std::optional<std::string> QtPrompts::OpenFile(const FileQuestion& question) {
  return AskFile(question, false);
}

std::optional<std::string> QtPrompts::SaveFile(const FileQuestion& question) {
  return AskFile(question, true);
}

QString QtPrompts::LastFolder() const {
  if (registry_ != nullptr) {
    const auto last = registry_->Read(Hive::CurrentUser, kSettingsKey, kLastFolder);
    if (last && QDir(ToQt(*last)).exists()) return ToQt(*last);
  }
  return QDir::homePath();
}

void QtPrompts::KeepFolder(const QString& folder) {
  if (registry_ == nullptr) return;
  try {
    registry_->Write(Hive::CurrentUser, kSettingsKey, kLastFolder, FromQt(folder));
  } catch (const PlatformError& error) {
    qWarning("The last folder was not kept: %s", error.what());
  }
}

std::optional<std::string> QtPrompts::AskFile(const FileQuestion& question, bool save) {
  QString filter =
      ToQt(question.filterName) + QStringLiteral(" (") + ToQt(question.filterPattern) + u')';
  // What a file is shows in its content: a name of the person's own bars none.
  if (!save) {
    filter += QStringLiteral(";;") + QCoreApplication::translate("QtPrompts", "All Files") +
              QStringLiteral(" (*)");
  }
  const QString folder = question.folder.empty() ? LastFolder() : ToQt(question.folder);
  QFileDialog dialog(Parent(), ToQt(question.title), folder, filter);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setDefaultSuffix(ToQt(question.defaultExtension));
  FitScreen(dialog);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  const QString path = dialog.selectedFiles().constFirst();
  KeepFolder(QFileInfo(path).absolutePath());
  return FromQt(path);
}

}  // namespace corvanta::inline app
