#pragma once

#include "exchange/import/QtImportPreviewModel.h"

#include <QWidget>

namespace corvanta::inline controls {
class HairSplitter;
class ListTable;
class MutedLabel;
}  // namespace corvanta::inline controls

namespace corvanta::inline exchange {

// The first rows of a CSV file twice: as they stand there, and as they will be read. The two lists
// move together, one above the other or, where there is little height, side by side. Below them
// stands in words what is to be seen.
class ucImportPreview : public QWidget {
  Q_OBJECT

 public:
  explicit ucImportPreview(QWidget* parent);

  void Show(const CsvPreview& preview);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  ListTable* MakeList(QtImportPreviewModel* model, const char* name, const QString& title);
  static void SetWidths(ListTable& list);
  static void Follow(ListTable& list, ListTable& other);

  QtImportPreviewModel* file_;
  QtImportPreviewModel* read_;
  HairSplitter* lists_;
  ListTable* lvFile_;
  ListTable* lvRead_;
  MutedLabel* lblPreview_;
};

}  // namespace corvanta::inline exchange
