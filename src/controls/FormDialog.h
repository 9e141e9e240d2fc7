#pragma once

#include "controls/QuietEnd.h"
#include "ledger/Warning.h"

#include <QDialog>
#include <QStringList>

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QFormLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline controls {

class MutedLabel;

// What dialogs with fields have in common: labels in one column and fields in another, a line that
// says what has happened, rows of buttons, and commands that end in words when they fail.
class FormDialog : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  // `name` is the dialog's name ("FrmPayees").
  FormDialog(const QString& name, Prompts& prompts, QWidget* parent);

  // On a small screen its rows come closer to each other, so that none is cut off. `room` is what
  // the screen has for the dialog.
  void FitInto(const QSize& room);

  // Whether the data file was changed while the dialog stood.
  [[nodiscard]] bool IsChanged() const { return isChanged_; }

 protected:
  // Escape, and the window's own way to close, ask before they drop what was typed.
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;

  // A row of the form. The label carries the mnemonic; the name for assistive tools follows it. The
  // first field is where the dialog begins.
  QLabel* AddField(const QString& label, QWidget* field, const char* name);
  // A field with something at its side.
  QLabel* AddField(const QString& label, QWidget* field, const char* name, QWidget* beside);
  QLabel* AddField(const QString& label, QWidget* field, const char* name,
                   const std::vector<QWidget*>& beside);
  // The label is of another field from now on.
  static void Relabel(QLabel& label, const QString& text, QWidget& field);
  // A tick, in the column of the fields.
  void AddTick(QWidget* tick, const char* name);
  // The fields that follow stand in a column of their own, at the right of those before them.
  void StartColumn();
  // What takes the height that is over, at the top of the dialog.
  void AddAbove(QWidget* area);
  [[nodiscard]] QPushButton* MakeButton(const QString& text, const char* name);
  // A row of buttons of second rank, above those of AddButtonRow.
  void AddTools(const std::vector<QPushButton*>& tools);
  // The last row: commands at its left, how the dialog ends at its right.
  void AddButtonRow(const std::vector<QPushButton*>& left, const std::vector<QPushButton*>& right);

  // The fields that follow may be as narrow as that, in pixels.
  void SetSmallestField(int width) { smallestField_ = width; }
  void SetFirstField(QWidget* field) { first_ = field; }
  void FocusFirstField();
  // With its text chosen, ready to be typed over.
  static void FocusOn(QWidget& field);
  // The same for the field of that name, where there is one.
  void FocusOn(const std::string& name);

  // The lists behind follow it.
  void MarkChanged();
  // A line above the buttons that says what has happened; empty for none.
  void Note(const QString& text);
  // Runs a command of the dialog; what the data file refuses is told, and the fields stay.
  void Run(const std::function<void()>& command);
  void Warn(const Warning& warning);

  // What the fields hold now counts as not typed by the person.
  void KeepContents() { kept_ = Contents(); }
  [[nodiscard]] bool IsEdited() const { return kept_ && Contents() != *kept_; }
  // Whether what the fields hold may be replaced: nothing was typed, or the person says so.
  [[nodiscard]] bool MayDrop(const QString& title);

 private:
  [[nodiscard]] QStringList Contents() const;
  void AddNote();
  // Tab comes to the widget behind those that were added before it, whenever it was made.
  void AddToOrder(QWidget* widget);

  Prompts& prompts_;
  bool isChanged_ = false;
  int smallestField_;
  std::optional<QStringList> kept_;
  QVBoxLayout* page_;
  QHBoxLayout* columns_;
  QFormLayout* fields_ = nullptr;
  MutedLabel* lblNote_ = nullptr;
  QWidget* first_ = nullptr;
  std::vector<QWidget*> order_;
};

}  // namespace corvanta::inline controls
