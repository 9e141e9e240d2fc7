#pragma once

#include <QStringList>

class QMimeData;

namespace corvanta::inline controls {

// The paths of the files that are dragged or dropped, as far as they lie on this machine.
[[nodiscard]] QStringList DroppedFiles(const QMimeData& data);

}  // namespace corvanta::inline controls
