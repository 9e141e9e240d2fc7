#pragma once

#include "platform/Prompts.h"

#include <QString>

class QWidget;

namespace corvanta::inline platform {
class Registry;
}

namespace corvanta::inline app {

// Asks and tells through message boxes and file dialogs of the system. The folder of the last file
// dialog is remembered in the settings.
class QtPrompts : public Prompts {
 public:
  // Where the last folder is remembered; until it is set none is.
  void RememberIn(Registry& registry) { registry_ = &registry; }
  // The window that the boxes stand before; null before there is one. It must outlive its use here.
  void SetParent(QWidget* parent) { parent_ = parent; }

  void Tell(const std::string& title, const std::string& text, Icon icon) override;
  [[nodiscard]] bool Ask(const std::string& title, const std::string& text, Icon icon) override;
  [[nodiscard]] std::optional<std::size_t> Choose(const std::string& title, const std::string& text,
                                                  const std::vector<std::string>& answers) override;
  [[nodiscard]] std::optional<std::string> AskText(const std::string& title,
                                                   const std::string& text, bool secret,
                                                   const std::string& typed = {}) override;
  [[nodiscard]] std::optional<std::string> OpenFile(const FileQuestion& question) override;
  [[nodiscard]] std::optional<std::string> SaveFile(const FileQuestion& question) override;

 private:
  // A box is brought before the window that is in use, such as a dialog that asks.
  [[nodiscard]] QWidget* Parent() const;
  [[nodiscard]] std::optional<std::string> AskFile(const FileQuestion& question, bool save);

  [[nodiscard]] QString LastFolder() const;
  void KeepFolder(const QString& folder);

  Registry* registry_ = nullptr;
  QWidget* parent_ = nullptr;
};

}  // namespace corvanta::inline app
