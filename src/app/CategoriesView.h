#pragma once

#include "app/ReferenceView.h"
#include "ledger/ReferenceRecords.h"

namespace corvanta {

class Locale;

// The view of "CategoryShow": the categories, each main one above its sub-categories, with what is
// budgeted for them.
class CategoriesView : public ReferenceView {
  Q_OBJECT

 public:
  // `addAction` is what a data file without categories offers.
  CategoriesView(const Locale& locale, QAction* addAction, QWidget* parent);

  void ShowCategories(const std::vector<CategoryRecord>& categories,
                      const std::vector<PeriodRecord>& periods);

 private:
  QAction* addAction_;
  const Locale& locale_;
};

}  // namespace corvanta
