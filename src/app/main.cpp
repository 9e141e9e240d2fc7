#include "app/CommandEdge.h"
#include "app/StartOptions.h"
#include "app/StartUp.h"
#include "controls/SvgIcon.h"
#include "platform/PlatformError.h"

#include <QApplication>

#include <cstdio>
#include <memory>
#include <string_view>

namespace {

constexpr int kWrongUsage = 2;
constexpr int kNoDataFile = 3;
constexpr int kMachineFailed = 4;

int Start(const corvanta::StartOptions& options) {
  try {
    corvanta::StartUp start(options);
    if (!start.Run()) return kNoDataFile;
    return QApplication::exec();
  } catch (const corvanta::PlatformError& error) {
    corvanta::QtPrompts().Tell("Application Error", error.what(), corvanta::Icon::Error);
    return kMachineFailed;
  }
}

// Asking for help or the version must not need a display.
std::unique_ptr<QCoreApplication> MakeApplication(int& argc, char** argv) {
  for (int index = 1; index < argc; ++index) {
    const std::string_view argument = argv[index];
    if (argument == "--help" || argument == "-h" || argument == "--version" || argument == "-v") {
      return std::make_unique<QCoreApplication>(argc, argv);
    }
  }
  return std::make_unique<QApplication>(argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication::setApplicationName(QStringLiteral("corvanta"));
  QCoreApplication::setApplicationVersion(QStringLiteral(CORVANTA_VERSION));
  const std::unique_ptr<QCoreApplication> application = MakeApplication(argc, argv);
  const corvanta::StartOptions options = corvanta::ReadStartOptions(QCoreApplication::arguments());
  if (options.error) {
    std::fprintf(stderr, "Wrong usage: %s\n", qUtf8Printable(*options.error));
    return kWrongUsage;
  }
  if (options.answer) {
    std::fputs(qUtf8Printable(*options.answer), stdout);
    return 0;
  }
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Corvanta Personal Finance"));
  QGuiApplication::setDesktopFileName(QStringLiteral("corvanta"));
  corvanta::InitPictures();
  return Start(options);
}
