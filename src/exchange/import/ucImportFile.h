#pragma once

#include "exchange/import/ImportEditor.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;

namespace corvanta::inline controls {
class MutedLabel;
class PickBox;
}  // namespace corvanta::inline controls

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline exchange {

class ucEncodingBox;

// The first page of the import window: the file, the account, whose the records are where the file
// names another one, whether its currency may be set aside where it is another one, and how a QIF
// or OFX file writes its dates, numbers and letters.
class ucImportFile : public QWidget {
  Q_OBJECT

 public:
  // Throws StoreError when the accounts cannot be read.
  ucImportFile(ImportEditor& editor, Prompts& prompts, QWidget* parent);

  // An account of 0 and an empty file choose nothing.
  void Open(std::int64_t accountId, const std::string& file);
  // Puts what is chosen into the form. The encoding of a CSV file is chosen with its columns.
  void ReadInto(ImportForm& form) const;
  // The kind of the file; nullopt while there is none that can be imported.
  [[nodiscard]] std::optional<ImportKind> Kind() const { return kind_; }

 Q_SIGNALS:
  void KindChanged();
  void OwnerAsked();  // or no longer, or the currency

 private:
  QLineEdit* MakeFile(QFormLayout& fields);
  PickBox* MakeAccounts(QFormLayout& fields);
  QComboBox* MakeStyles(QFormLayout& fields, const QString& label, const char* name,
                        const QStringList& styles);
  void PlaceOwner();
  void PlaceCurrency(int row);
  [[nodiscard]] std::string File() const;
  void Browse();
  // Asks whose the records are where the file and the chosen account differ.
  void AskForOwner();
  // Asks whether amounts of another currency may be booked as they stand.
  void AskForCurrency();
  // Says what the file is and offers the choices of its kind.
  void Look();
  void ShowKind(const QString& text);

  ImportEditor& editor_;
  Prompts& prompts_;
  QFormLayout* fields_;
  QLineEdit* txtFile_;
  MutedLabel* lblKind_;
  PickBox* cmbAccount_;
  MutedLabel* lblOwner_;
  QComboBox* cmbOwner_;
  bool isOwnerAsked_ = false;
  MutedLabel* lblCurrency_;
  QCheckBox* chkCurrency_;
  QComboBox* cmbDateOrder_;
  QComboBox* cmbNumbers_;
  ucEncodingBox* cmbEncoding_;
  std::string lookedAt_;
  std::optional<ImportKind> kind_;
};

}  // namespace corvanta::inline exchange
