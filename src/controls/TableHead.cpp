#include "controls/TableHead.h"

namespace corvanta::inline controls {

QVariant HeadData(Qt::Orientation orientation, int role, bool isNumber, const QString& title) {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole && isNumber) {
    return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
  }
  return role == Qt::DisplayRole ? QVariant(title) : QVariant();
}

}  // namespace corvanta::inline controls
