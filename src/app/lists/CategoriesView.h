#pragma once

#include "app/lists/ReferenceView.h"

namespace corvanta::inline app {

// The view of "CategoryShow": the categories, each main one above its sub-categories, with what is
// budgeted for them.
class CategoriesView : public ReferenceView {
  Q_OBJECT

 public:
  CategoriesView(const ViewPlace& place, QWidget* parent);

  void Show(const ViewCommand& command) override;
};

}  // namespace corvanta::inline app
