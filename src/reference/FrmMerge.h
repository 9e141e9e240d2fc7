#pragma once

#include "controls/QuietEnd.h"
#include "reference/MergeEditor.h"

#include <QDialog>

#include <cstdint>

class QLayout;

namespace corvanta::inline controls {
class PickBox;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline reference {

// Merges one payee or category into another one. It closes accepted once records have moved.
class FrmMerge : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  // Throws StoreError when the names cannot be read.
  FrmMerge(MergeKind kind, std::int64_t source, Platform& platform, clsCorvanta& ledger,
           QWidget* parent);

 private:
  QWidget* Explanation();
  QLayout* Fields();
  QLayout* Buttons();
  void Accept();

  Platform& platform_;
  MergeEditor editor_;
  std::int64_t source_;
  PickBox* cmbMerge_;
};

}  // namespace corvanta::inline reference
