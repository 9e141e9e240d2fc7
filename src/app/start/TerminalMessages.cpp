#include "app/start/TerminalMessages.h"

#include "platform/ShownText.h"

#include <QString>
#include <QtGlobal>

#include <cstdio>
#include <string>

namespace corvanta::inline app {
namespace {

void Tell(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  const QString line = qFormatLogMessage(type, context, message);
  if (!line.isNull()) TellTerminal(line.toStdString());  // the person may want some left out
}

}  // namespace

void TellTerminal(std::string_view line) {
  std::fputs((ShownText(line) + '\n').c_str(), stderr);
}

void TellTerminalWhatIsNoted() {
  qInstallMessageHandler(Tell);
}

}  // namespace corvanta::inline app
