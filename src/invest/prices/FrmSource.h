#pragma once

#include "controls/EditorDialog.h"
#include "invest/InvestDialogs.h"
#include "invest/prices/SourceEditor.h"

class QComboBox;
class QLineEdit;
class QTextEdit;

namespace corvanta::inline controls {
class AmountEdit;
class MutedLabel;
}  // namespace corvanta::inline controls

namespace corvanta::inline invest {

// The editor of one source of prices or exchange rates, which can be tried before it is saved.
class FrmSource : public EditorDialog {
  Q_OBJECT

 public:
  explicit FrmSource(const InvestPlace& place);

  // Fills the fields of a new one.
  void Propose(const SourceRow& source, const QString& note);

 protected:
  void Clear() override { Show(SourceEditor::New(kStockSource)); }
  bool Load(std::int64_t key) override;
  [[nodiscard]] std::optional<Warning> Check() override { return editor_.Check(Form()); }
  std::int64_t Save() override { return editor_.Save(Form()); }
  bool Delete() override { return editor_.Delete(Key()); }
  [[nodiscard]] QString ItemName() const override;

 private:
  void MakeFields();
  void MakeTest();
  void Show(const SourceRow& source);
  [[nodiscard]] SourceRow Form() const;
  [[nodiscard]] std::string Type() const;
  [[nodiscard]] AnswerKind Kind() const;
  void EnableFields();
  void Test();

  Platform& platform_;
  SourceEditor editor_;
  QLineEdit* txtName_;
  QComboBox* cmbType_;
  QComboBox* cmbKind_;
  QLineEdit* txtUrl_;
  QLineEdit* txtKey_;
  QLineEdit* txtStart_;
  AmountEdit* txtOccur_;
  QLineEdit* txtField_;
  QLineEdit* txtOwnKey_;
  QLineEdit* txtLookUpUrl_;
  QLineEdit* txtTest_;
  MutedLabel* lblFound_;
  QTextEdit* txtAnswer_;
};

}  // namespace corvanta::inline invest
