#include "reports/custom/DefinitionKeys.h"

#include "ledger/register/FilterChoice.h"
#include "platform/Locale.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"

#include <algorithm>

namespace corvanta::inline reports {
namespace {

struct KindWords {
  const char* one;
  const char* several;
};
KindWords WordsOf(FilterKind kind) {
  // In the order of FilterKind.
  static constexpr KindWords kWords[] = {{"account", "accounts"},
                                         {"category", "categories"},
                                         {"payee", "payees"},
                                         {"investment", "investments"},
                                         {"keyword", "keywords"}};
  return kWords[static_cast<std::size_t>(kind)];
}

std::string GoneText(const KindWords& words, std::size_t count, bool isAll) {
  std::string text = count == 1
                         ? std::string("One ") + words.one + " that it names is"
                         : std::to_string(count) + ' ' + words.several + " that it names are";
  text += " not in this data file any more.";
  if (isAll) text += std::string(" It names no other ") + words.one + ", so nothing is shown.";
  return text;
}

bool Has(const std::vector<std::int64_t>& keys, std::int64_t key) {
  return std::ranges::find(keys, key) != keys.end();
}

// The categories that stand in the list, and all of each whole one.
std::vector<std::int64_t> CategoriesOf(const ReportDefinition& definition, Connection& store) {
  FilterChoice choice(store, FilterKind::Category, definition.filter.Keys(FilterKind::Category));
  for (std::size_t group = 0; group < choice.Groups().size(); ++group) {
    const auto& items = choice.Groups()[group].items;
    const bool isWhole = std::ranges::any_of(items, [&](const FilterChoice::Item& item) {
      return Has(definition.wholeCategories, item.key);
    });
    if (isWhole) choice.TickGroup(group, true);
  }
  return choice.Keys();
}

std::vector<std::int64_t> ExistingKeys(FilterKind kind, const ReportDefinition& definition,
                                       Connection& store) {
  if (kind == FilterKind::Category) return CategoriesOf(definition, store);
  return FilterChoice(store, kind, definition.filter.Keys(kind)).Keys();
}

// All that the definition names of the kind.
std::vector<std::int64_t> NamedKeys(FilterKind kind, const ReportDefinition& definition) {
  std::vector<std::int64_t> keys = definition.filter.Keys(kind);
  if (kind != FilterKind::Category) return keys;
  for (const std::int64_t key : definition.wholeCategories) {
    if (!Has(keys, key)) keys.push_back(key);
  }
  return keys;
}

// They stay as they are: where none of them is left, no row has one.
void NotePaymentTypes(OpenedDefinition& opened, Connection& store) {
  const std::vector<std::int64_t>& keys = opened.definition.paymentTypes;
  if (keys.empty()) return;
  const std::string query =
      "Select Count(*) from tblPayments WHERE PaymentID IN (" + JoinKeys(keys) + ")";
  const auto left = static_cast<std::size_t>(store.QueryValue(query).Int());
  if (left == keys.size()) return;
  opened.troubles.push_back(
      GoneText({"payment type", "payment types"}, keys.size() - left, left == 0));
}

}  // namespace

OpenedDefinition OpenDefinition(const ReadDefinition& read, Connection& store,
                                const Locale& locale) {
  OpenedDefinition opened{read.definition, {}, read.troubles};
  RowFilter& filter = opened.definition.filter;
  for (const FilterKind kind : kFilterKinds) {
    const std::vector<std::int64_t> named = NamedKeys(kind, read.definition);
    if (named.empty()) continue;
    const std::vector<std::int64_t> existing = ExistingKeys(kind, read.definition, store);
    filter.SetKeys(kind, existing);
    const auto gone =
        std::ranges::count_if(named, [&](std::int64_t key) { return !Has(existing, key); });
    if (existing.empty()) opened.emptied.push_back(kind);
    if (gone > 0) {
      opened.troubles.push_back(
          GoneText(WordsOf(kind), static_cast<std::size_t>(gone), existing.empty()));
    }
  }
  if (std::string& currency = opened.definition.currency; !currency.empty()) {
    const std::string query =
        "Select Count(*) from tblCurrency WHERE Currency = " + SqlText(currency);
    if (store.QueryValue(query).Int() == 0) {
      opened.troubles.push_back("There is no currency \"" + currency +
                                "\" in this data file. Amounts are not converted.");
      currency.clear();
    }
  }
  NotePaymentTypes(opened, store);
  filter.SetSearch(ReadSearchText(filter.Search().text, filter.Search().isTextOnly, locale));
  return opened;
}

std::string TroubleText(const OpenedDefinition& opened) {
  std::string text =
      "Not all of the saved report \"" + opened.definition.name + "\" could be taken over.\n";
  for (const std::string& trouble : opened.troubles) text += "\n- " + trouble;
  text += "\n\nThe saved report itself stays as it is until you save it again.";
  return text;
}

std::vector<std::int64_t> WholeCategoriesOf(const RowFilter& filter, Connection& store) {
  std::vector<std::int64_t> whole;
  const FilterChoice choice(store, FilterKind::Category, filter.Keys(FilterKind::Category));
  for (const FilterChoice::Group& group : choice.Groups()) {
    if (group.TickedCount() == group.items.size()) whole.push_back(group.items.front().key);
  }
  return whole;
}

}  // namespace corvanta::inline reports
