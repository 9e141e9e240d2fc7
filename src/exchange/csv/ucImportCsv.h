#pragma once

#include "exchange/import/ImportEditor.h"

#include <QWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLineEdit;

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline exchange {

class ucEncodingBox;
class ucImportPreview;
class ucSavedMappings;

// The page of the import window that says which column of a CSV file holds what, with what comes of
// it shown below.
class ucImportCsv : public QWidget {
  Q_OBJECT

 public:
  ucImportCsv(ImportEditor& editor, Prompts& prompts, QWidget* parent);

  // Proposes the columns of the file that the editor has open.
  void Propose(const ImportForm& form);
  // Shows the file as it is now by the columns that are chosen.
  void Refresh();
  // Puts what is chosen into the form.
  void ReadInto(ImportForm& form) const;

 Q_SIGNALS:
  // What has happened to a saved mapping; empty for nothing.
  void Noted(const QString& text);

 private:
  static constexpr std::size_t kColumnBoxes = 9;

  void MakeMapping(QGridLayout& grid);
  void MakeFileFields(QGridLayout& grid);
  void MakeColumns(QGridLayout& grid);
  void MakeWords(QGridLayout& grid);
  void AddField(QGridLayout& grid, int row, int group, const QString& label, QWidget* field,
                const char* name);
  void OrderTabs();

  void Show(const ImportForm& form);
  void ShowColumnCount(int columns);
  void ChangeDates();
  // Reads the file again as the chosen encoding says.
  void ChangeEncoding();
  void ChooseMapping(const QString& name);

  ImportEditor& editor_;
  Prompts& prompts_;
  ImportForm form_;  // with what this page does not choose
  bool isOrderChosen_ = false;

  ucSavedMappings* mappings_;
  QLineEdit* txtSeparator_;
  QLineEdit* txtSkip_;
  QComboBox* cmbDateOrder_;
  QComboBox* cmbNumbers_;
  std::array<QComboBox*, kColumnBoxes> columns_{};
  ucEncodingBox* cmbEncoding_;
  QCheckBox* chkZeroIsEmpty_;
  QLineEdit* txtDebitWords_;
  QLineEdit* txtCreditWords_;
  ucImportPreview* preview_;
};

}  // namespace corvanta::inline exchange
