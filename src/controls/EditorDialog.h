#pragma once

#include "controls/FormDialog.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace corvanta::inline controls {

// What the editors of single rows have in common: the mode ("ADD" a new row, "EDIT" an existing
// one) and the row of buttons. Saving in "ADD" clears the dialog for the next row (unless the
// dialog says otherwise), in "EDIT" it closes it; Ctrl and Enter save and go on with a new row in
// both. A row that is deleted closes the dialog, too.
//
// A derived dialog makes its fields in its constructor and calls AddButtons() behind them.
class EditorDialog : public FormDialog {
  Q_OBJECT

 public:
  // `name` is the dialog's name ("FrmPayees"), `what` what it edits ("Payee").
  EditorDialog(const QString& name, const QString& what, Prompts& prompts, QWidget* parent);

  // Shows the row of that key, or a new one for 0. False when there is no such row.
  bool Open(std::int64_t key);

  [[nodiscard]] bool IsNew() const { return key_ == 0; }
  // The row that was saved last; 0 when none was, or it was deleted.
  [[nodiscard]] std::int64_t SavedKey() const { return savedKey_; }

 protected:
  // A button that is offered for an existing row alone.
  void AddEditButton(QPushButton* button);
  void AddButtons(bool canDelete = true);
  // From now on saving closes the dialog in "ADD", too.
  void CloseWhenSaved() { closesWhenSaved_ = true; }

  [[nodiscard]] std::int64_t Key() const { return key_; }
  // Checks and writes the row; false when it was not saved, which the person knows.
  bool SaveRow();
  // A dialog of this one has saved that row.
  void MarkSaved(std::int64_t key);

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
  // The row was saved, and the dialog closes.
  virtual void Finish() { accept(); }
  // What stands over the dialog in its mode.
  [[nodiscard]] virtual QString Title() const;

 private:
  void ShowMode();
  void Accept();
  void AcceptAndGoOn();
  void GoOn();
  void StartNew();
  void DeleteItem();

  QString what_;
  std::int64_t key_ = 0;
  std::int64_t savedKey_ = 0;
  bool closesWhenSaved_ = false;
  std::vector<QPushButton*> editButtons_;
};

}  // namespace corvanta::inline controls
