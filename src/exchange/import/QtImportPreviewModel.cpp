#include "exchange/import/QtImportPreviewModel.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/TableHead.h"

#include <QGuiApplication>

#include <algorithm>

namespace corvanta::inline exchange {

QString CsvColumnName(int column) {
  return QStringLiteral("col") + QString::number(column);
}

QtImportPreviewModel::QtImportPreviewModel(Side side, QObject* parent)
    : QAbstractTableModel(parent), side_(side) {
  Show({});
}

void QtImportPreviewModel::Show(CsvPreview preview) {
  beginResetModel();
  preview_ = std::move(preview);
  columns_ = {kRow, kDate, kPayee, kCategory, kAmount};
  if (preview_.hasDescriptions) columns_.push_back(kDescription);
  if (preview_.hasReferences) columns_.push_back(kReference);
  columns_.push_back(kRemark);
  endResetModel();
}

int QtImportPreviewModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(preview_.rows.size());
}

int QtImportPreviewModel::columnCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return side_ == Side::Read ? static_cast<int>(columns_.size())
                             : 1 + std::min(preview_.columns, kMaxColumns);
}

bool QtImportPreviewModel::IsNumber(int section) const {
  return section == 0 || (side_ == Side::Read && ReadColumn(section) == kAmount);
}

QString QtImportPreviewModel::ReadText(const CsvPreviewRow& row, Column column) const {
  switch (column) {
    case kDate:
      return ToQt(row.date);
    case kPayee:
      return ToQt(row.payee);
    case kCategory:
      return ToQt(row.category);
    case kAmount:
      return ToQt(row.amount);
    case kDescription:
      return ToQt(row.description).simplified();
    case kReference:
      return ToQt(row.reference).simplified();
    case kRemark:
      return row.isSkipped ? tr("Left out") : ToQt(row.problem);
    default:
      return {};
  }
}

QString QtImportPreviewModel::Text(const CsvPreviewRow& row, int section) const {
  if (section == 0) return QString::number(row.number);
  if (side_ == Side::Read) return ReadText(row, ReadColumn(section));
  const auto cell = static_cast<std::size_t>(section - 1);
  if (cell >= row.cells.size()) return {};
  // One line each, as the rows are high.
  return ToQt(row.cells[cell]).simplified();
}

QVariant QtImportPreviewModel::Colour(const CsvPreviewRow& row, int section) const {
  const QPalette palette = QGuiApplication::palette();
  if (row.isSkipped) return MutedText(palette);
  if (side_ == Side::File) return {};
  const Column column = ReadColumn(section);
  const bool isOut = column == kAmount && row.amount.starts_with('-');
  return column == kRemark || isOut ? QVariant(MoneyOutColour(palette)) : QVariant();
}

QVariant QtImportPreviewModel::data(const QModelIndex& index, int role) const {
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

QVariant QtImportPreviewModel::headerData(int section, Qt::Orientation orientation,
                                          int role) const {
  return HeadData(orientation, role, IsNumber(section), Title(section));
}

QString QtImportPreviewModel::Title(int section) const {
  if (section == 0) return tr("Row");
  if (side_ == Side::File) return CsvColumnName(section);
  switch (ReadColumn(section)) {
    case kDate:
      return tr("Date");
    case kPayee:
      return tr("Payee");
    case kCategory:
      return tr("Category");
    case kAmount:
      return tr("Amount");
    case kDescription:
      return tr("Description");
    case kReference:
      return tr("Reference");
    default:
      return tr("Remark");
  }
}

}  // namespace corvanta::inline exchange
