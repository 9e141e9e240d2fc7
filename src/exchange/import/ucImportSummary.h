#pragma once

#include "exchange/import/ImportSummary.h"

#include <QWidget>

class QFormLayout;
class QLabel;
class QPushButton;
class QStandardItemModel;

namespace corvanta::inline controls {
class ListTable;
class MutedLabel;
}  // namespace corvanta::inline controls

namespace corvanta::inline exchange {

// The last page of the import window: what came of the file.
class ucImportSummary : public QWidget {
  Q_OBJECT

 public:
  explicit ucImportSummary(QWidget* parent);

  // Of that file, whose name stands above.
  void Show(const ImportSummary& summary, const QString& file);

 Q_SIGNALS:
  // The other halves of transfers are to be made.
  void CompletionAsked();

 private:
  void MakeProblems();
  void ShowFigures();
  QLabel* AddFigure(const char* name, const QString& label, std::size_t count);
  void AddAccounts();
  void ShowProblems();
  // The chosen lines that were not understood.
  void CopyChosen() const;
  // All of the summary as text.
  void CopyAll() const;

  ImportSummary summary_;
  QLabel* lblSummary_;
  MutedLabel* lblStop_;
  QFormLayout* figures_;
  QPushButton* cmdComplete_;
  QWidget* problemsArea_;
  QLabel* lblProblems_ = nullptr;
  ListTable* lvProblems_ = nullptr;
  QStandardItemModel* problems_;
};

}  // namespace corvanta::inline exchange
