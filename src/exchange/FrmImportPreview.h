#pragma once

#include "exchange/FrmImportPreviewModel.h"

#include <QWidget>

namespace corvanta {

class HairSplitter;
class ListTable;
class MutedLabel;

// The first rows of a CSV file twice: as they stand there, and as they will be read. The two lists
// move together, one above the other or, where there is little height, side by side. Below them
// stands in words what is to be seen.
class FrmImportPreview : public QWidget {
  Q_OBJECT

 public:
  explicit FrmImportPreview(QWidget* parent);

  void Show(const CsvPreview& preview);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  ListTable* MakeList(FrmImportPreviewModel* model, const char* name, const QString& title);
  static void SetWidths(ListTable& list);
  static void Follow(ListTable& list, ListTable& other);

  FrmImportPreviewModel* file_;
  FrmImportPreviewModel* read_;
  HairSplitter* lists_;
  ListTable* lvFile_;
  ListTable* lvRead_;
  MutedLabel* lblPreview_;
};

}  // namespace corvanta
