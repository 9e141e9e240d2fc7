#include "entry/ucCategoryBoxes.h"

#include "controls/CommandEdge.h"
#include "controls/PickBox.h"
#include "controls/QtText.h"
#include "ledger/reference/CategoryPath.h"

#include <QLineEdit>

namespace corvanta::inline entry {
namespace {

std::vector<PickItem> ItemsOf(const std::vector<std::string>& names) {
  std::vector<PickItem> items;
  for (const std::string& name : names) items.push_back({0, ToQt(name)});
  return items;
}

// In the letters of the list where the name is there.
void SetName(PickBox& box, const std::string& name) {
  const int item = box.findText(ToQt(name), Qt::MatchFixedString);
  box.setEditText(item >= 0 ? box.itemText(item) : ToQt(name));
}

}  // namespace

ucCategoryBoxes::ucCategoryBoxes(clsCorvanta& ledger, Prompts& prompts, PickBox& category,
                                 PickBox& subCategory, QObject* parent)
    : QObject(parent),
      ledger_(ledger),
      prompts_(prompts),
      category_(category),
      subCategory_(subCategory) {
  connect(&category, &QComboBox::activated, this, &ucCategoryBoxes::ApplyCategory);
  connect(category.lineEdit(), &QLineEdit::editingFinished, this, &ucCategoryBoxes::ApplyCategory);
}

void ucCategoryBoxes::Show(const std::string& category, const std::string& subCategory) {
  category_.SetItems(ItemsOf(CategoryNames(ledger_)));
  category_.setEditText(ToQt(category));
  subCategory_.setEditText(ToQt(subCategory));
  FillSubCategories();
}

std::string ucCategoryBoxes::Category() const {
  return FromQt(category_.currentText());
}

std::string ucCategoryBoxes::SubCategory() const {
  return FromQt(subCategory_.currentText());
}

void ucCategoryBoxes::FillSubCategories() {
  subCategory_.SetItems(ItemsOf(SubCategoryNames(ledger_, Category())));
}

// What was typed as lists show it goes into the two boxes.
bool ucCategoryBoxes::ApplyPath() {
  const std::string typed = Category();
  const CategoryName name = CategoryOf(ledger_, typed, SubCategory());
  if (name.category == typed) return false;
  SetName(category_, name.category);
  FillSubCategories();
  SetName(subCategory_, name.subCategory);
  return true;
}

// A sub-category that was picked below another category goes; one that was typed stays.
void ucCategoryBoxes::ApplyCategory() {
  RunCommand(prompts_, [this] {
    if (ApplyPath()) return;
    const QString former = subCategory_.currentText();
    const bool wasPicked = subCategory_.findText(former, Qt::MatchFixedString) >= 0;
    FillSubCategories();
    const bool isThere = subCategory_.findText(former, Qt::MatchFixedString) >= 0;
    if (wasPicked && !isThere) subCategory_.clearEditText();
  });
}

}  // namespace corvanta::inline entry
