#pragma once

#include "controls/EditorDialog.h"
#include "ledger/ReferenceRecords.h"
#include "reference/KeywordEditor.h"

class QLineEdit;

namespace corvanta {

struct Platform;

// The editor of keywords.
class FrmKeywords : public EditorDialog {
  Q_OBJECT

 public:
  FrmKeywords(Platform& platform, clsCorvanta& ledger, QWidget* parent);

 protected:
  void Clear() override { Show({}); }
  bool Load(std::int64_t key) override;
  [[nodiscard]] std::optional<Warning> Check() override { return editor_.Check(Form()); }
  std::int64_t Save() override { return editor_.Save(Form()); }
  bool Delete() override;
  [[nodiscard]] QString ItemName() const override;

 private:
  void Show(const KeywordRecord& row);
  [[nodiscard]] KeywordRecord Form() const;

  KeywordEditor editor_;
  QLineEdit* txtKeyword_;
};

}  // namespace corvanta
