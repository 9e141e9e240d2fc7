#pragma once

#include "controls/FormDialog.h"
#include "notes/AttachmentEditor.h"
#include "notes/NoteDialogs.h"

#include <optional>
#include <vector>

class QAction;
class QComboBox;
class QLabel;
class QStackedWidget;
class QStandardItemModel;

namespace corvanta::inline controls {
class EmptyState;
class ListTable;
}  // namespace corvanta::inline controls

namespace corvanta::inline notes {

class ucPicture;

// The files attached to a transaction: which, where they are kept, and a picture of the chosen one
// where it is one. A file that is dropped on the window is attached.
class FrmAttachments : public FormDialog {
  Q_OBJECT

 public:
  FrmAttachments(std::int64_t transactionId, const NotePlace& place);

 protected:
  bool event(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void done(int result) override;

 private:
  void MakeList();
  void MakeLayout();
  void MakeButtons();
  void Fill(std::int64_t chosen);
  void ShowPicture();
  void EnableButtons();
  [[nodiscard]] const AttachmentRecord* Chosen() const;
  void Add();
  void AddFiles(const QStringList& paths);
  void Remove();
  void Keep();
  // Runs the command on the chosen file.
  void OnChosen(const std::function<void(const AttachmentRecord&)>& command);
  void TakeBack();

  NotePlace place_;
  AttachmentEditor editor_;
  std::vector<AttachmentRecord> rows_;
  QStackedWidget* pages_;
  ListTable* lvAttachments_;
  EmptyState* empty_;
  QStandardItemModel* model_;
  ucPicture* picture_;
  QComboBox* cmbKeep_;
  QAction* addAction_;
  std::vector<QPushButton*> ofOne_;  // what needs a chosen file
};

}  // namespace corvanta::inline notes
