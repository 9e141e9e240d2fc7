#include "exchange/FrmImportPreviewModel.h"

#include "controls/QtText.h"
#include "controls/Style.h"

#include <QGuiApplication>

#include <algorithm>

namespace corvanta {

QString CsvColumnName(int column) {
  return QStringLiteral("col") + QString::number(column);
}

void FrmImportPreviewModel::Show(CsvPreview preview) {
  beginResetModel();
  preview_ = std::move(preview);
  endResetModel();
}

int FrmImportPreviewModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(preview_.rows.size());
}

int FrmImportPreviewModel::columnCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return side_ == Side::Read ? int{kReadColumns} : 1 + std::min(preview_.columns, kMostColumns);
}

bool FrmImportPreviewModel::IsNumber(int column) const {
  return column == kRow || (side_ == Side::Read && column == kAmount);
}

QString FrmImportPreviewModel::ReadText(const CsvPreviewRow& row, int column) const {
  switch (column) {
    case kDate:
      return ToQt(row.date);
    case kPayee:
      return ToQt(row.payee);
    case kCategory:
      return ToQt(row.category);
    case kAmount:
      return ToQt(row.amount);
    case kRemark:
      return row.isSkipped ? tr("Left out") : ToQt(row.problem);
    default:
      return {};
  }
}

QString FrmImportPreviewModel::Text(const CsvPreviewRow& row, int column) const {
  if (column == kRow) return QString::number(row.number);
  if (side_ == Side::Read) return ReadText(row, column);
  const auto cell = static_cast<std::size_t>(column - 1);
  if (cell >= row.cells.size()) return {};
  // One line each, as the rows are high.
  return ToQt(row.cells[cell]).simplified();
}

QVariant FrmImportPreviewModel::Colour(const CsvPreviewRow& row, int column) const {
  const QPalette palette = QGuiApplication::palette();
  if (row.isSkipped) return MutedText(palette);
  if (side_ == Side::File) return {};
  const bool isOut = column == kAmount && row.amount.starts_with('-');
  return column == kRemark || isOut ? QVariant(MoneyOutColour(palette)) : QVariant();
}

QVariant FrmImportPreviewModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const CsvPreviewRow& row = preview_.rows[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return Text(row, index.column());
    case Qt::ForegroundRole:
      return Colour(row, index.column());
    case Qt::TextAlignmentRole:
      return QVariant((IsNumber(index.column()) ? Qt::AlignRight : Qt::AlignLeft) |
                      Qt::AlignVCenter);
    default:
      return {};
  }
}

QVariant FrmImportPreviewModel::headerData(int section, Qt::Orientation orientation,
                                           int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) {
    return QVariant((IsNumber(section) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole) return {};
  if (section == kRow) return tr("Row");
  if (side_ == Side::File) return CsvColumnName(section);
  switch (section) {
    case kDate:
      return tr("Date");
    case kPayee:
      return tr("Payee");
    case kCategory:
      return tr("Category");
    case kAmount:
      return tr("Amount");
    default:
      return tr("Remark");
  }
}

}  // namespace corvanta
