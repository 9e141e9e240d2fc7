#include "app/start/QtWindowBell.h"

#include "controls/QtText.h"

#include <QCryptographicHash>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>

#include <chrono>
#include <filesystem>
#include <utility>

namespace corvanta::inline app {
namespace {

constexpr std::chrono::milliseconds kPatience{1000};
constexpr qint64 kLongestPath = 4096;

// The same for every way of writing the path; empty without a runtime folder.
QString PlaceOf(const std::string& dataFile) {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  std::error_code error;
  const auto path =
      std::filesystem::weakly_canonical(std::filesystem::absolute(dataFile, error), error);
  if (folder.isEmpty() || error) return {};
  const QByteArray whole = QByteArray::fromStdString(path.string());
  const QByteArray name = QCryptographicHash::hash(whole, QCryptographicHash::Sha256).toHex();
  return folder + QStringLiteral("/corvanta-") + QString::fromLatin1(name.left(32));
}

}  // namespace

QtWindowBell::QtWindowBell(QObject* parent) : QObject(parent) {}

void QtWindowBell::ListenFor(const std::string& dataFile) {
  const QString place = dataFile.empty() ? QString() : PlaceOf(dataFile);
  if (place == place_) return;
  delete std::exchange(server_, nullptr);
  place_ = place;
  if (place.isEmpty()) return;
  // What a killed window has left is nobody's: the lock is held here.
  QLocalServer::removeServer(place);
  server_ = new QLocalServer(this);
  server_->setSocketOptions(QLocalServer::UserAccessOption);
  connect(server_, &QLocalServer::newConnection, this, &QtWindowBell::Answer);
  if (!server_->listen(place)) qWarning("No other window can find this one.");
}

void QtWindowBell::Answer() {
  while (QLocalSocket* caller = server_->nextPendingConnection()) {
    const auto take = [this, caller] {
      const QByteArray told = caller->read(kLongestPath);
      caller->deleteLater();
      Q_EMIT Rung(QString::fromUtf8(told));
    };
    // It may have said all and gone before anybody listened.
    if (caller->state() == QLocalSocket::UnconnectedState) {
      take();
    } else {
      connect(caller, &QLocalSocket::disconnected, this, take);
    }
  }
}

bool QtWindowBell::Ring(const std::string& dataFile, const std::string& importPath) {
  const QString place = PlaceOf(dataFile);
  if (place.isEmpty()) return false;
  const auto patience = static_cast<int>(kPatience.count());
  QLocalSocket socket;
  socket.connectToServer(place, QIODevice::WriteOnly);
  if (!socket.waitForConnected(patience)) return false;
  if (!importPath.empty()) {
    socket.write(importPath.c_str());
    if (!socket.waitForBytesWritten(patience)) return false;
  }
  socket.disconnectFromServer();
  return true;
}

}  // namespace corvanta::inline app
