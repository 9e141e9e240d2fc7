#pragma once

#include "exchange/csv/CsvPreview.h"

#include <QAbstractTableModel>

#include <vector>

namespace corvanta::inline exchange {

// The first rows of a CSV file as a list: as they stand there, or as they will be read.
class QtImportPreviewModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum class Side { File, Read };
  // The columns of Side::Read; those of a description and a reference only where they are mapped.
  enum Column { kRow, kDate, kPayee, kCategory, kAmount, kDescription, kReference, kRemark };
  // No statement has more; a file that does is shown by its first ones.
  static constexpr int kMaxColumns = 200;

  QtImportPreviewModel(Side side, QObject* parent);

  void Show(CsvPreview preview);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  [[nodiscard]] QString Text(const CsvPreviewRow& row, int section) const;
  [[nodiscard]] QString Title(int section) const;
  [[nodiscard]] QString ReadText(const CsvPreviewRow& row, Column column) const;
  [[nodiscard]] QVariant Colour(const CsvPreviewRow& row, int section) const;
  [[nodiscard]] bool IsNumber(int section) const;
  [[nodiscard]] Column ReadColumn(int section) const {
    return columns_[static_cast<std::size_t>(section)];
  }

  Side side_;
  CsvPreview preview_;
  std::vector<Column> columns_;  // that are shown of Side::Read
};

// What the lists of columns and the heads call a column, counted from 1.
[[nodiscard]] QString CsvColumnName(int column);

}  // namespace corvanta::inline exchange
