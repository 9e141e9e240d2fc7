#include "app/TransactionClip.h"

#include <QClipboard>
#include <QDataStream>
#include <QGuiApplication>
#include <QIODevice>
#include <QList>
#include <QMimeData>

namespace corvanta {
namespace {
constexpr const char* kFormat = "application/x-corvanta-transactions";
}

QMimeData* ToClip(const QString& dataFile, const std::vector<std::int64_t>& keys,
                  const QString& text) {
  QByteArray bytes;
  QDataStream out(&bytes, QIODevice::WriteOnly);
  QList<qint64> list;
  for (const std::int64_t key : keys) list.append(key);
  out << dataFile << list;
  auto* clip = new QMimeData;
  clip->setText(text);
  clip->setData(QLatin1String(kFormat), bytes);
  return clip;
}

std::vector<std::int64_t> FromClip(const QString& dataFile) {
  const QMimeData* clip = QGuiApplication::clipboard()->mimeData();
  if (clip == nullptr || !clip->hasFormat(QLatin1String(kFormat))) return {};
  QDataStream in(clip->data(QLatin1String(kFormat)));
  QString file;
  QList<qint64> list;
  in >> file >> list;
  if (in.status() != QDataStream::Ok || file != dataFile) return {};
  return {list.begin(), list.end()};
}

}  // namespace corvanta
