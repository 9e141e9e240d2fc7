// What the models of tables say of their heads.
#pragma once

#include <QString>
#include <QVariant>

namespace corvanta::inline controls {

// The column's title, which stands at the right above numbers; for QAbstractItemModel::headerData.
[[nodiscard]] QVariant HeadData(Qt::Orientation orientation, int role, bool isNumber,
                                const QString& title);

}  // namespace corvanta::inline controls
