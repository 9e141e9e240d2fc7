#include "app/start/StartOptions.h"
#include "app/start/StartUp.h"
#include "app/start/TerminalMessages.h"
#include "controls/CommandEdge.h"
#include "controls/OutlinedStyle.h"
#include "controls/SvgIcon.h"
#include "platform/PlatformError.h"

#include <QApplication>

#include <cstdio>
#include <vector>

namespace {

constexpr int kWrongUsage = 2;
constexpr int kNoDataFile = 3;
constexpr int kMachineFailed = 4;

int Start(const corvanta::StartOptions& options) {
  try {
    corvanta::StartUp start(options);
    if (start.HandOver()) return 0;
    if (!start.Run()) return kNoDataFile;
    return QApplication::exec();
  } catch (const corvanta::PlatformError& error) {
    corvanta::QtPrompts().Tell("Application Error", error.what(), corvanta::Icon::Error);
    return kMachineFailed;
  }
}

// Wrong usage, help and the version must not need a display: a program without one ends as soon as
// it asks for windows.
corvanta::StartOptions ReadOptions(int argc, char** argv) {
  std::vector<char*> copy(argv, argv + argc);
  copy.push_back(nullptr);
  const QCoreApplication console(argc, copy.data());
  return corvanta::ReadStartOptions(corvanta::WithoutWindowOptions(QCoreApplication::arguments()));
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication::setApplicationName(QStringLiteral("corvanta"));
  QCoreApplication::setApplicationVersion(QStringLiteral(CORVANTA_VERSION));
  corvanta::TellTerminalWhatIsNoted();
  const corvanta::StartOptions options = ReadOptions(argc, argv);
  if (options.error) {
    corvanta::TellTerminal("Wrong usage: " + options.error->toStdString());
    return kWrongUsage;
  }
  if (options.answer) {
    std::fputs(qUtf8Printable(*options.answer), stdout);
    return 0;
  }
  const QApplication application(argc, argv);
  QApplication::setStyle(new corvanta::OutlinedStyle);
  QGuiApplication::setDesktopFileName(QStringLiteral("corvanta"));
  corvanta::InitPictures();
  return Start(options);
}
