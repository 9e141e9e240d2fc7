#pragma once

#include <QString>
#include <QStringList>

namespace corvanta::inline app {

// The file of tips in the program's folder, or in the folder of its shared files.
[[nodiscard]] QString TipsFile();

// The tips of the file, one a line; blank lines and those that begin with "#" are none. Without the
// file there is one tip, which says so.
[[nodiscard]] QStringList ReadTips(const QString& path);

}  // namespace corvanta::inline app
