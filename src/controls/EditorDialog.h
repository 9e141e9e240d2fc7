#pragma once

#include "ledger/Warning.h"

#include <QDialog>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

class QFormLayout;
class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

namespace corvanta {

class MutedLabel;
class Prompts;

// What the editors of single rows have in common: the mode ("ADD" a new row, "EDIT" an existing
// one), labels in one column and fields in another, and the row of buttons. Saving in "ADD" clears
// the dialog for the next row, in "EDIT" it closes it; a row that is deleted closes it, too.
//
// A derived dialog makes its fields in its constructor and calls AddButtons() behind them.
class EditorDialog : public QDialog {
  Q_OBJECT

 public:
  // `name` is the dialog's name ("FrmPayees"), `what` what it edits ("Payee").
  EditorDialog(const QString& name, const QString& what, Prompts& prompts, QWidget* parent);

  // Shows the row of that key, or a new one for 0. False when there is no such row.
  bool Open(std::int64_t key);

  [[nodiscard]] bool IsNew() const { return key_ == 0; }
  // Whether the data file was changed while the dialog stood.
  [[nodiscard]] bool IsChanged() const { return isChanged_; }
  // The row that was saved last; 0 when none was, or it was deleted.
  [[nodiscard]] std::int64_t SavedKey() const { return savedKey_; }

 protected:
  // A row of the form. The label carries the mnemonic; the name for assistive tools follows it.
  void AddField(const QString& label, QWidget* field, const char* name);
  // A field with a button at its side.
  void AddField(const QString& label, QWidget* field, const char* name, QPushButton* button);
  // A tick, in the column of the fields.
  void AddTick(QWidget* tick, const char* name);
  // A button that is offered for an existing row alone.
  void AddEditButton(QPushButton* button);
  void AddButtons();

  [[nodiscard]] std::int64_t Key() const { return key_; }
  void MarkChanged() { isChanged_ = true; }
  // A line above the buttons that says what has happened; empty for none.
  void Note(const QString& text);
  // Runs a command of the dialog; what the data file refuses is told, and the fields stay.
  void Run(const std::function<void()>& command);
  void Warn(const Warning& warning);

  // Fills the fields for a new row.
  virtual void Clear() = 0;
  // Fills the fields with the row; false when there is none.
  virtual bool Load(std::int64_t key) = 0;
  [[nodiscard]] virtual std::optional<Warning> Check() = 0;
  // The key; 0 when nothing was saved, which the person knows.
  virtual std::int64_t Save() = 0;
  // Asks and deletes. True when the row is gone.
  virtual bool Delete() = 0;
  // What the row is called, for the line that says it was saved.
  [[nodiscard]] virtual QString ItemName() const = 0;

 private:
  void ShowMode();
  void Accept();
  void StartNew();
  void DeleteItem();
  void FocusFirstField();

  QString what_;
  Prompts& prompts_;
  std::int64_t key_ = 0;
  std::int64_t savedKey_ = 0;
  bool isChanged_ = false;
  QVBoxLayout* page_;
  QFormLayout* fields_;
  QHBoxLayout* buttons_;
  MutedLabel* lblNote_ = nullptr;
  QWidget* first_ = nullptr;
  std::vector<QPushButton*> editButtons_;
};

}  // namespace corvanta
