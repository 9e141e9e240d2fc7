#pragma once

#include "controls/QuietEnd.h"
#include "exchange/import/ImportEditor.h"
#include "platform/Platform.h"

#include <QDialog>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class QPushButton;
class QStackedWidget;

namespace corvanta::inline controls {
class MutedLabel;
}

namespace corvanta::inline exchange {

class ucImportCsv;
class ucImportFile;
class ucImportProgress;
class ucImportSummary;

// Imports a QIF, OFX or CSV file, page by page: the file and the account, the columns of a CSV
// file, the import itself, and what came of it.
class FrmImport : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  // Throws StoreError when the accounts cannot be read.
  FrmImport(Platform& platform, clsCorvanta& ledger, QWidget* parent);
  ~FrmImport() override;

  // Begins with that account and file; 0 and an empty path for none.
  void Open(std::int64_t accountId, const std::string& file);

  // Whether the data file was changed while the dialog stood.
  [[nodiscard]] bool IsChanged() const { return isChanged_; }
  // The account to look at then: the chosen one where it got records, else the one that got most;
  // 0 for none.
  [[nodiscard]] std::int64_t Account() const { return account_; }

  // While the file is imported: stops that. The summary is closed as by its button.
  void reject() override;

 private:
  void MakePages();
  QWidget* MakeButtons();
  QPushButton* MakeButton(const char* name, const QString& caption, void (FrmImport::*command)());
  void ShowPage(QWidget* page);
  // As large as what the page shows.
  void FitTo(QWidget& page);

  void Accept();
  void AcceptCsv();
  void Back();
  void Close();

  void Import();
  void CompleteTransfers();
  void ShowOutcome(const ImportSummary& summary);
  // Returns to the page from which a file was imported in vain.
  void ReturnFrom(const ImportSummary& summary);
  void Warn(const Warning& warning);
  void FocusOn(const std::string& field);
  void Note(const QString& text);

  ucImportProgress* progress_;
  Platform platform_;  // whose progress is shown here
  ImportEditor editor_;
  ImportForm form_;
  std::string proposedFor_;  // the file whose columns are chosen
  ImportSummary summary_;
  QWidget* from_ = nullptr;  // the page that began the import
  bool isBusy_ = false;
  bool isChanged_ = false;
  std::int64_t account_ = 0;

  QStackedWidget* pages_;
  ucImportFile* file_ = nullptr;
  ucImportCsv* csv_ = nullptr;
  ucImportSummary* outcome_ = nullptr;
  MutedLabel* lblNote_;
  QWidget* buttons_ = nullptr;
  QPushButton* cmdBack_ = nullptr;
  QPushButton* cmdAccept_ = nullptr;
  QPushButton* cmdAcceptCSV_ = nullptr;
  QPushButton* cmdClose_ = nullptr;
  QPushButton* cmdCancel_ = nullptr;
};

}  // namespace corvanta::inline exchange
