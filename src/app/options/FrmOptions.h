#pragma once

#include "app/options/OptionsEditor.h"
#include "controls/FormDialog.h"

#include <functional>
#include <vector>

class QComboBox;
class QFormLayout;
class QLineEdit;
class QListWidget;

namespace corvanta::inline app {

struct OptionSection;
struct OptionWords;

// The dialog "Options": everything that can be set, in sections, with a box that narrows them to
// what is looked for.
class FrmOptions : public FormDialog {
  Q_OBJECT

 public:
  // `dataFile` is the path of the open data file; empty for none.
  FrmOptions(Platform& platform, const std::string& dataFile, QWidget* parent);

  // Whether columns and sorting were reset, however the dialog ended.
  [[nodiscard]] bool HasReset() const { return hasReset_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  // An option with the widgets of its row.
  struct Field {
    const OptionSection* section;
    const OptionWords* words;
    std::vector<QWidget*> row;
    std::function<std::string()> read;
    std::function<void(const std::string&)> write;
  };
  struct Page {
    const OptionSection* section;
    QWidget* widget;
  };

  QWidget* MakeHead();
  QWidget* MakeSections();
  QWidget* MakePage(const OptionSection& section);
  void MakeField(const OptionSection& section, const OptionWords& words, QFormLayout& form);
  QWidget* MakeControl(const OptionWords& words, Field& field);
  QWidget* MakeTick(const OptionWords& words, Field& field);
  QWidget* MakeChoice(const OptionWords& words, Field& field);
  QWidget* MakeStatusRow(const OptionWords& words, Field& field);
  QWidget* MakeColour(const OptionWords& words, Field& field);
  QWidget* MakePath(const OptionWords& words, Field& field);
  void MakeCommands();
  void Connect();
  // Shows the chosen section, or what is looked for in any.
  void ShowFound();
  // Brings the field into view, whatever was looked for.
  void Uncover(const std::string& control);

  [[nodiscard]] OptionsForm Read() const;
  void Fill(const OptionsForm& form);
  void Accept();
  void Browse();
  void ApplyDefaults();
  void ResetColumns();

  OptionsEditor editor_;
  QLineEdit* txtFind_ = nullptr;
  QListWidget* lvSections_ = nullptr;
  QWidget* nothing_ = nullptr;
  QLineEdit* txtBackup_ = nullptr;
  std::vector<Field> fields_;
  std::vector<Page> pages_;
  bool hasReset_ = false;
};

}  // namespace corvanta::inline app
