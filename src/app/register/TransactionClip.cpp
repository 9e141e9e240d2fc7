#include "app/register/TransactionClip.h"

#include <QClipboard>
#include <QDataStream>
#include <QGuiApplication>
#include <QIODevice>
#include <QList>
#include <QMimeData>

namespace corvanta::inline app {
namespace {
QString FormatOf(ClipKind kind) {
  return kind == ClipKind::Transactions ? QStringLiteral("application/x-corvanta-transactions")
                                        : QStringLiteral("application/x-corvanta-schedules");
}
}  // namespace

QMimeData* ToClip(ClipKind kind, const QString& dataFile, const std::vector<std::int64_t>& keys,
                  const QString& text) {
  QByteArray bytes;
  QDataStream out(&bytes, QIODevice::WriteOnly);
  QList<qint64> list;
  for (const std::int64_t key : keys) list.append(key);
  out << dataFile << list;
  auto* clip = new QMimeData;
  clip->setText(text);
  clip->setData(FormatOf(kind), bytes);
  return clip;
}

std::vector<std::int64_t> FromClip(ClipKind kind, const QString& dataFile) {
  const QMimeData* clip = QGuiApplication::clipboard()->mimeData();
  if (clip == nullptr || !clip->hasFormat(FormatOf(kind))) return {};
  QDataStream in(clip->data(FormatOf(kind)));
  QString file;
  QList<qint64> list;
  in >> file >> list;
  if (in.status() != QDataStream::Ok || file != dataFile) return {};
  return {list.begin(), list.end()};
}

}  // namespace corvanta::inline app
