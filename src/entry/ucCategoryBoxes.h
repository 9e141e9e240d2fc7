#pragma once

#include "entry/EntryLists.h"

#include <QObject>

#include <string>
#include <vector>

namespace corvanta::inline controls {
class PickBox;
}

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline entry {

// The boxes of a category and its sub-category: the second offers what the first has. A path
// ("Category:SubCategory") that is typed into the first one fills both.
class ucCategoryBoxes : public QObject {
 public:
  // All must outlive this object, but for its parent.
  ucCategoryBoxes(clsCorvanta& ledger, Prompts& prompts, PickBox& category, PickBox& subCategory,
                  QObject* parent);

  // Reads the lists and shows these names. Throws StoreError.
  void Show(const std::string& category, const std::string& subCategory);
  [[nodiscard]] std::string Category() const;
  [[nodiscard]] std::string SubCategory() const;

 private:
  void FillSubCategories();
  void ApplyCategory();
  // Whether the first box held a path.
  bool ApplyPath();

  clsCorvanta& ledger_;
  Prompts& prompts_;
  PickBox& category_;
  PickBox& subCategory_;
};

}  // namespace corvanta::inline entry
