// Starts and ends as soon as something is drawn, for the script "start" to time from outside:
//   corvanta-start-probe empty            an empty window of Qt
//   corvanta-start-probe window FOLDER    the program on the data file in FOLDER, up to its list
//   corvanta-start-probe overview FOLDER  the same, up to the overview
//   corvanta-start-probe whole FOLDER     the same, up to all figures of the overview
//   corvanta-start-probe fill FOLDER N    makes that data file with N transactions
#include "app/ViewCommand.h"
#include "app/overview/OverviewView.h"
#include "app/start/StartOptions.h"
#include "app/start/StartUp.h"
#include "controls/SvgIcon.h"
#include "platform/ConsolePrompts.h"
#include "platform/Platform.h"
#include "platform/Progress.h"
#include "platform/Registry.h"
#include "platform/Settings.h"
#include "platform/SystemPlatform.h"
#include "store/datafile/OpenDataFile.h"
#include "store/sql/SqlText.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEvent>
#include <QMainWindow>

#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>

namespace {

using namespace corvanta;

// Ends the program behind the first drawing of what the mode waits for.
class FirstPaint : public QObject {
 public:
  explicit FirstPaint(std::string mode) : mode_(std::move(mode)) {}

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint && IsWanted(object)) End();
    return false;
  }

  // Runs the program until then; what was drawn on the way there has no event loop to end.
  int Await() const { return isOver_ ? 0 : QApplication::exec(); }

 private:
  void End() {
    isOver_ = true;
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
  }

  bool IsWanted(QObject* object) {
    if (mode_ == "empty") return true;
    if (mode_ == "window") {
      const auto* list = qobject_cast<QAbstractItemView*>(object->parent());
      return list != nullptr && list->objectName() == "lvbank" && list->model()->rowCount() > 0;
    }
    if (object->objectName() != "tileBalances") return false;
    if (mode_ == "overview") return true;
    // The rest comes behind it.
    for (; object != nullptr; object = object->parent()) {
      const auto* view = qobject_cast<OverviewView*>(object);
      if (view != nullptr && !isAwaited_)
        isAwaited_ = connect(view, &OverviewView::ReadWhole, this, &FirstPaint::End);
    }
    return false;
  }

  std::string mode_;
  bool isAwaited_ = false;
  bool isOver_ = false;
};

void Fill(const std::string& folder, int count) {
  SilentProgress progress;
  ConsolePrompts prompts({}, std::cerr);
  SystemPlatform platform({folder + "/profile", {}, {}}, prompts, progress);
  DataFileOpener opener(platform.Get(), "the benchmark");
  opener.SetDataPath(folder + "/data");
  const DataFile file = opener.CreateNew(false);
  Transaction rows = file.connection->Begin();
  const Date first = *Date::FromYmd(2016, 1, 1);
  for (int i = 0; i < count; ++i) {
    file.connection->Execute(
        "INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,[Amount],Description,"
        "[Date],BankChk,BankRec) VALUES (1," +
        std::to_string(3 + i % 120) + ",2," + std::to_string(1 + i % 11) + "," +
        SqlNumber((i % 2000 - 1200) / 10.0) + ",'Row " + std::to_string(i) + "'," +
        SqlDate(first.AddDays(static_cast<std::int32_t>(i * 3650LL / count))) + ",1,0)");
  }
  rows.Commit();
}

// Whether the program begins with the overview, or with the list of an account.
void BeginWith(const std::string& folder, const char* overview) {
  SilentProgress progress;
  ConsolePrompts prompts({}, std::cerr);
  SystemPlatform platform({folder + "/profile", {}, {}}, prompts, progress);
  platform.Get().registry.Write(Hive::CurrentUser, kSettingsKey, "ShowOverview", overview);
  Settings(platform.Get().registry).SetText(Setting::View, std::string(kTransactionShow));
}

}  // namespace

int main(int argc, char** argv) {
  const std::string mode = argc > 1 ? argv[1] : "";
  const std::string folder = argc > 2 ? argv[2] : "";
  if (mode == "fill" && argc > 3) {
    Fill(folder, std::atoi(argv[3]));
    return 0;
  }
  QApplication application(argc, argv);
  FirstPaint paint(mode);
  application.installEventFilter(&paint);
  if (mode == "empty") {
    QMainWindow window;
    window.resize(1280, 800);
    window.show();
    return paint.Await();
  }
  InitPictures();
  BeginWith(folder, mode == "window" ? "0" : "1");
  StartOptions options;
  options.profileFolder = folder + "/profile";
  options.dataPath = folder + "/data";
  StartUp start(options);
  return start.Run() ? paint.Await() : 1;
}
