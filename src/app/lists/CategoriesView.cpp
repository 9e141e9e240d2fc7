#include "app/lists/CategoriesView.h"

#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/ViewCommand.h"
#include "app/lists/ListWidths.h"
#include "controls/QtText.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/Locale.h"
#include "platform/Platform.h"

#include <map>

namespace corvanta::inline app {
namespace {

std::vector<ListColumn> Columns(const Locale& locale) {
  const ListWidths widths(locale);
  const auto text = [&](const QString& sample) { return widths.Text(sample); };
  const int money = widths.Figure(-999999.99);
  const int name = text(QStringLiteral("A category's name"));
  return {{CategoriesView::tr("Category"), name, 3},
          {CategoriesView::tr("Sub Category"), name, 3},
          {CategoriesView::tr("Budget"), money, 0, true, 4},
          {CategoriesView::tr("Period"), text(QStringLiteral("Every 4 Weeks")), 1, false, 2},
          {CategoriesView::tr("Type"), text(QStringLiteral("Expense")), 0, false, 3},
          {CategoriesView::tr("Description"), text(QStringLiteral("Description")), 2, false, 1}};
}

ListTraits Traits(const ViewPlace& place) {
  const MainActions& actions = place.actions;
  return {kCategoryShow,
          actions.mnuViewCategories,
          "lvcategory",
          "chC",
          CategoriesView::tr("Categories"),
          Columns(place.platform.locale),
          {0, false},
          actions.mnuCategoryAdd,
          actions.mnuCategoryEdit,
          actions.mnuCategoryDelete};
}

}  // namespace

CategoriesView::CategoriesView(const ViewPlace& place, QWidget* parent)
    : ReferenceView(place, ReferenceKind::Category, Traits(place), parent) {}

void CategoriesView::Show(const ViewCommand& /*command*/) {
  clsCorvanta& ledger = Place().session.Ledger();
  const Locale& money = Place().platform.locale;
  std::map<std::int64_t, QString> periodNames;
  for (const PeriodRecord& period : ledger.References().Periods()) {
    periodNames[period.periodId] = ToQt(period.description);
  }
  std::vector<ListRow> rows;
  for (const CategoryRecord& category : ledger.Categories().Categories()) {
    const bool isMain = category.subCategory.empty();
    const bool hasBudget = category.budget != 0;
    ListCell budget;
    if (hasBudget) budget = {ToQt(money.FormatNumber(category.budget)), category.budget};
    rows.push_back({category.categoryId,
                    {{ToQt(category.category), std::nullopt, isMain, !isMain},
                     {ToQt(category.subCategory)},
                     budget,
                     {hasBudget ? periodNames[category.periodId] : QString()},
                     {category.type > 0 ? tr("Income") : tr("Expense")},
                     {ToQt(category.description)}},
                    {}});
  }
  const auto count = static_cast<qulonglong>(rows.size());
  Fill(std::move(rows), tr("What money is earned by and spent on, and how much is planned for it"),
       count == 1 ? tr("1 category") : tr("%1 categories").arg(locale().toString(count)), {},
       {QStringLiteral("categories"), tr("No categories in this data file"),
        tr("Categories say what money is earned by and spent on. Add the first one here.")});
}

}  // namespace corvanta::inline app
