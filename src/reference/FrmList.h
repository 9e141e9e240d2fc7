#pragma once

#include "controls/QuietEnd.h"
#include "reference/ListEditor.h"

#include <QDialog>

#include <cstdint>

class QAction;
class QPushButton;
class QStackedWidget;
class QStandardItemModel;

namespace corvanta::inline controls {
class EmptyState;
class ListTable;
class MutedLabel;
}  // namespace corvanta::inline controls

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline reference {

// The list of payment types, banks, account groups, keywords or currencies, from which they are
// added, edited and deleted.
class FrmList : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  FrmList(ListKind kind, Platform& platform, clsCorvanta& ledger, QWidget* parent);

  // Whether the data file was changed while the dialog stood.
  [[nodiscard]] bool IsChanged() const { return isChanged_; }

 private:
  void MakeTable();
  void MakeLayout();
  void Fill(std::int64_t chosen);
  [[nodiscard]] std::int64_t ChosenKey() const;
  void New();
  void Edit();
  void Delete();
  void OpenEditor(std::int64_t key);
  void EnableButtons();

  Platform& platform_;
  clsCorvanta& ledger_;
  ListEditor editor_;
  bool isChanged_ = false;
  QStackedWidget* pages_;
  ListTable* lvList_;
  EmptyState* empty_;
  QStandardItemModel* model_;
  MutedLabel* lblNote_;
  QAction* newAction_;
  QPushButton* cmdNew_;
  QPushButton* cmdEdit_;
  QPushButton* cmdDelete_;
};

}  // namespace corvanta::inline reference
