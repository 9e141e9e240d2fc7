#include "app/register/ItemCommands.h"

#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/MainView.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "controls/DroppedFiles.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "exchange/import/ImportKind.h"
#include "ledger/transactions/KeywordBook.h"
#include "notes/AttachmentEditor.h"
#include "notes/NoteDialogs.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "store/sql/Connection.h"

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QMimeData>

#include <algorithm>

namespace corvanta::inline app {
ItemCommands::ItemCommands(const ViewPlace& place, RegisterView& view, MainView& owner,
                           QObject* parent)
    : QObject(parent), place_(place), view_(view), owner_(owner) {
  const MainActions& actions = place_.actions;
  const auto task = [this](QAction* action, EditTask what) {
    place_.On(action, this, [this, what] {
      if (owner_.Can(what)) owner_.Do(what);
    });
  };
  task(actions.mnuTransDelete, EditTask::Delete);
  task(actions.mnuTransCopy, EditTask::Copy);
  task(actions.mnuTransPaste, EditTask::Paste);
  place_.On(actions.mnuTransKeyword, this, [this] { ChooseKeywords(); });
  place_.On(actions.mnuTransAttachment, this, [this] { ShowAttachments(); });
  view_.Table().viewport()->setAcceptDrops(true);
  view_.Table().viewport()->installEventFilter(this);
  place_.window.installEventFilter(this);
}

void ItemCommands::Mark(bool isShown) {
  const MainActions& actions = place_.actions;
  const bool isOpen = isShown && place_.session.IsOpen();
  const bool isChosen = isOpen && view_.FocusedKey() != 0;
  for (QAction* action : {actions.mnuTransDelete, actions.mnuTransCopy, actions.mnuTransKeyword,
                          actions.mnuTransAttachment}) {
    action->setEnabled(isChosen);
  }
  actions.mnuTransPaste->setEnabled(isOpen && owner_.Can(EditTask::Paste));
}

void ItemCommands::ChooseKeywords() {
  const std::vector<std::int64_t> keys = view_.ChosenKeys();
  if (keys.empty()) return;
  if (OpenKeywords(keys, {place_.platform, place_.session.Ledger(), &place_.window})) {
    place_.host.Reload();
  }
}

void ItemCommands::ShowAttachments() {
  const std::int64_t key = view_.FocusedKey();
  if (key == 0) return;
  if (OpenAttachments(key, {place_.platform, place_.session.Ledger(), &place_.window})) {
    place_.host.Reload();
  }
}

void ItemCommands::TakeBack() {
  if (!place_.session.IsOpen() || QApplication::activeModalWidget() != nullptr) return;
  // What is being written may yet be undone as a whole; it is tried again when the window is next
  // come back to.
  if (place_.session.Ledger().Store().InTransaction()) return;
  place_.host.Guard([this] {
    const auto taken = place_.session.Ledger().Notes().Opened().TakeBack();
    if (taken.empty()) return;
    place_.host.Reload();
    place_.host.Notice(
        tr("“%1” was changed, and is in the data file now").arg(ToQt(taken.front())));
  });
}

std::int64_t ItemCommands::RowAt(const QPoint& place) const {
  const QModelIndex index = view_.Table().indexAt(place);
  if (!index.isValid()) return 0;
  return static_cast<const RegisterModel&>(*view_.Table().model()).Key(index.row());
}

bool ItemCommands::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &place_.window) {
    if (event->type() == QEvent::WindowActivate) TakeBack();
    return QObject::eventFilter(watched, event);
  }
  switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
      auto& drag = static_cast<QDragMoveEvent&>(*event);
      const QStringList files = DroppedFiles(*drag.mimeData());
      const bool isOnRow = RowAt(drag.position().toPoint()) != 0;
      const bool isImport = files.size() == 1 && HasImportEnding(FromQt(files.constFirst()));
      const bool isFree = place_.session.IsOpen() && QApplication::activeModalWidget() == nullptr;
      // What is entered is asked again for every place that is passed.
      const bool isWanted = isOnRow || isImport || event->type() == QEvent::DragEnter;
      drag.setAccepted(isFree && !files.isEmpty() && isWanted);
      if (drag.isAccepted()) drag.setDropAction(Qt::CopyAction);
      return true;
    }
    case QEvent::Drop:
      return Drop(static_cast<QDropEvent&>(*event));
    default:
      return QObject::eventFilter(watched, event);
  }
}

bool ItemCommands::Drop(QDropEvent& event) {
  const QStringList paths = DroppedFiles(*event.mimeData());
  const std::int64_t key = RowAt(event.position().toPoint());
  if (paths.isEmpty()) return true;
  if (key == 0) {
    // Beside the rows it is meant for the window.
    QApplication::sendEvent(&place_.window, &event);
    return true;
  }
  event.setDropAction(Qt::CopyAction);
  event.accept();
  // The program that the files come from waits until the drop is over.
  QMetaObject::invokeMethod(
      this, [this, key, paths] { place_.host.Guard([&] { Attach(key, paths); }); },
      Qt::QueuedConnection);
  return true;
}

void ItemCommands::Attach(std::int64_t transactionId, const QStringList& paths) {
  const std::string first = FromQt(paths.constFirst());
  if (paths.size() == 1 && HasImportEnding(first)) {
    const auto wanted =
        place_.platform.prompts.Choose("Attachment", "What is to be done with \"" + first + "\"?",
                                       {"Attach it to the transaction", "Import it"});
    if (!wanted) return;
    if (*wanted == 1) return place_.host.Import(first);
  }
  AttachmentEditor editor(place_.session.Ledger(), place_.platform, transactionId);
  const auto attached = std::ranges::count_if(
      paths, [&](const QString& path) { return editor.AddFile(FromQt(path)); });
  if (attached == 0) return;
  place_.host.Reload();
  view_.ChooseKey(transactionId);
  place_.host.Notice(attached == 1 ? tr("1 file was attached")
                                   : tr("%1 files were attached").arg(attached));
}

}  // namespace corvanta::inline app
