// Files in and out of the data file.
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/RegisterView.h"
#include "controls/QtText.h"
#include "exchange/ExchangeDialogs.h"
#include "exchange/ImportKind.h"
#include "platform/Platform.h"

#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace corvanta {
namespace {

// The file that is dropped, where it is one that could be imported; empty otherwise.
QString DroppedFile(const QDropEvent& event) {
  const QList<QUrl> urls = event.mimeData()->urls();
  if (urls.size() != 1 || !urls.constFirst().isLocalFile()) return {};
  const QString path = urls.constFirst().toLocalFile();
  return HasImportEnding(FromQt(path)) ? path : QString();
}

}  // namespace

void FrmMain::ConnectExchange() {
  setAcceptDrops(true);
  On(actions_->mnuFileImport, [this] { ImportFile({}); });
  On(actions_->mnuFileExport, [this] { ExportRegister(); });
}

void FrmMain::ImportFile(const std::string& path) {
  const std::int64_t account = EntryAccount();
  const ImportResult result = OpenImport(account, path, {platform_, session_.Ledger(), this});
  if (!result.isChanged) return;
  Reload();
  const bool isShown = shown_.name == kTransactionShow && shown_.accountId == result.accountId;
  if (result.accountId != 0 && !isShown) ShowView(kTransactionShow, result.accountId);
}

void FrmMain::ExportRegister() {
  ExportView view;
  view.accountId = shown_.name == kTransactionShow ? shown_.accountId : 0;
  view.filter = shown_.Filter();
  view.period = shown_.RegisterPeriod();
  if (view.accountId != 0) view.order = registerView_->ShownKeys();
  OpenExport(view, {platform_, session_.Ledger(), this});
}

void FrmMain::dragEnterEvent(QDragEnterEvent* event) {
  const bool isFree = session_.IsOpen() && QApplication::activeModalWidget() == nullptr;
  if (isFree && !DroppedFile(*event).isEmpty()) event->acceptProposedAction();
}

void FrmMain::dropEvent(QDropEvent* event) {
  const QString path = DroppedFile(*event);
  if (path.isEmpty()) return;
  event->acceptProposedAction();
  // The program that the file comes from waits until the drop is over.
  QMetaObject::invokeMethod(
      this, [this, path] { Guard([this, path] { ImportFile(FromQt(path)); }); },
      Qt::QueuedConnection);
}

}  // namespace corvanta
