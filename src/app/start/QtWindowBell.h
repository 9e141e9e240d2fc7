#pragma once

#include <QObject>
#include <QString>

#include <string>

class QLocalServer;

namespace corvanta::inline app {

// By it a program that is started on a data file finds the window that has the file open already.
// It hangs in the person's own runtime folder: nobody else can ring it.
class QtWindowBell : public QObject {
  Q_OBJECT

 public:
  explicit QtWindowBell(QObject* parent = nullptr);

  // Answers for that data file from now on, and for no other; for none with an empty path. To be
  // called by who holds the data file's lock.
  void ListenFor(const std::string& dataFile);

  // Asks the window of that data file to come to the front, and to import a file (empty: none).
  // False where there is no such window.
  static bool Ring(const std::string& dataFile, const std::string& importPath);

 Q_SIGNALS:
  void Rung(const QString& importPath);

 private:
  void Answer();

  QLocalServer* server_ = nullptr;
  QString place_;  // empty while it does not listen
};

}  // namespace corvanta::inline app
