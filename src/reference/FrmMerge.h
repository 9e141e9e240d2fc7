#pragma once

#include "controls/QuietEnd.h"
#include "reference/MergeEditor.h"

#include <QDialog>

#include <cstdint>

namespace corvanta {

class PickBox;
struct Platform;

// Merges one payee or category into another one. It closes accepted once records have moved.
class FrmMerge : public QuietEnd<QDialog> {
  Q_OBJECT

 public:
  // Throws StoreError when the names cannot be read.
  FrmMerge(MergeKind kind, std::int64_t source, Platform& platform, clsCorvanta& ledger,
           QWidget* parent);

 private:
  void Accept();

  Platform& platform_;
  MergeEditor editor_;
  std::int64_t source_;
  PickBox* cmbMerge_;
};

}  // namespace corvanta
