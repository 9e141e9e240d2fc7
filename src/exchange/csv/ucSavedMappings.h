#pragma once

#include "ledger/Warning.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <string>

class QComboBox;
class QPushButton;

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline exchange {

class SavedMappings;

// The mappings of CSV columns that were saved under a name: one is chosen, what a dialog shows is
// saved as another one, one is deleted.
class ucSavedMappings : public QWidget {
  Q_OBJECT

 public:
  // Keeps what the dialog shows now under that name; what is not saved so is told, with the focus
  // on the control that it is about.
  using Save = std::function<std::optional<Warning>(const std::string& name)>;

  // `title` is that of its questions. Mappings and prompts outlive it.
  ucSavedMappings(SavedMappings& mappings, Prompts& prompts, std::string title, Save save,
                  QWidget* parent);

  // Reads the names again and shows that one as chosen; empty for none.
  void ShowNames(const std::string& chosen);
  [[nodiscard]] QComboBox* Box() const { return cmbMapping_; }

 Q_SIGNALS:
  void Chosen(const QString& name);
  // What has happened to a mapping.
  void Noted(const QString& text);

 private:
  void Choose(int index);
  void SaveAs();
  void Delete();
  // Whether there is none of that name, or the person lets it go.
  [[nodiscard]] bool MayReplace(const std::string& name);
  // False where the name will not do; what else is wrong is told and shown.
  [[nodiscard]] bool SaveUnder(const std::string& name);

  SavedMappings& mappings_;
  Prompts& prompts_;
  std::string title_;
  Save save_;
  QComboBox* cmbMapping_;
  QPushButton* cmdDelete_;
};

}  // namespace corvanta::inline exchange
