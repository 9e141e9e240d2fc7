#include "controls/DroppedFiles.h"

#include <QMimeData>
#include <QUrl>

namespace corvanta::inline controls {

QStringList DroppedFiles(const QMimeData& data) {
  QStringList paths;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) paths.append(url.toLocalFile());
  }
  return paths;
}

}  // namespace corvanta::inline controls
