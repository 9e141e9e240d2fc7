#include "app/start/TerminalMessages.h"

#include <QProcess>
#include <QtGlobal>

#include <gtest/gtest.h>

namespace corvanta {
namespace {

TEST(TerminalMessages, AreShownAndNeverSteer) {
  qSetMessagePattern(QStringLiteral("%{message}"));
  testing::internal::CaptureStderr();
  const QtMessageHandler former = qInstallMessageHandler(nullptr);
  TellTerminalWhatIsNoted();
  qWarning("The recent file was not kept: %s",
           "a\x1b[31m\xc2\x9b"
           "b\xe2\x80\xae"
           "c");
  qInstallMessageHandler(former);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "The recent file was not kept: a\u241b[31m\ufffdb\ufffdc\n");
}

TEST(TerminalMessages, RepeatWrongUsageAsItCanBeShown) {
  QProcess window;
  window.start(CORVANTA_WINDOW, {QStringLiteral("--bad\x1b[31m")});
  ASSERT_TRUE(window.waitForFinished(-1));
  EXPECT_EQ(window.exitCode(), 2);
  const QByteArray said = window.readAllStandardError();
  EXPECT_TRUE(said.contains("Wrong usage: ") && said.contains("bad\u241b[31m"))
      << said.toStdString();
  EXPECT_FALSE(said.contains('\x1b')) << said.toStdString();
}

}  // namespace
}  // namespace corvanta
