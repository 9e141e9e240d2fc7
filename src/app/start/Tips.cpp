#include "app/start/Tips.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

namespace corvanta::inline app {

QString TipsFile() {
  const QString folder = QCoreApplication::applicationDirPath();
  const QString beside = folder + QStringLiteral("/tips.txt");
  if (QFileInfo::exists(beside)) return beside;
  const QString shared = folder + QStringLiteral("/../share/corvanta/tips.txt");
  return QFileInfo::exists(shared) ? shared : beside;
}

QStringList ReadTips(const QString& path) {
  QStringList tips;
  QFile file(path);
  // A pipe that nobody writes to would never open.
  if (QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly | QIODevice::Text)) {
    QTextStream lines(&file);
    while (!lines.atEnd()) {
      const QString line = lines.readLine().trimmed();
      if (!line.isEmpty() && !line.startsWith(u'#')) tips.append(line);
    }
  }
  if (tips.isEmpty()) {
    tips.append(QStringLiteral("That the ") + QFileInfo(path).fileName() +
                QStringLiteral(" file was not found? "));
  }
  return tips;
}

}  // namespace corvanta::inline app
