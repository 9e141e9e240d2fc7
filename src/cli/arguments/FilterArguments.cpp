#include "cli/arguments/FilterArguments.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/NamedItem.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/CategoryPath.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/transactions/KeywordBook.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"
#include "store/sql/SqlText.h"

#include <algorithm>

namespace corvanta::inline cli {
namespace {

// The names that may be given of one kind.
struct Choices {
  const char* title;
  const char* word;  // for one of them in a message
  std::vector<NamedItem> items;
};

// The keys of the typed names; nullopt for one that is none.
std::optional<std::vector<std::int64_t>> TypedKeys(const std::vector<std::string>& typed,
                                                   const Choices& choices, Session& session) {
  std::vector<std::int64_t> keys;
  for (const std::string& name : typed) {
    const auto item = FindItem(choices.items, name, choices.title, choices.word, session);
    if (!item) return std::nullopt;
    keys.push_back(item->key);
  }
  return keys;
}

Choices PayeesOf(clsCorvanta& ledger) {
  Choices choices{"Payee", "payee", {}};
  for (const PayeeRecord& row : ledger.References().Payees()) {
    choices.items.push_back({row.payeeId, row.payee});
  }
  return choices;
}

Choices InvestmentsOf(clsCorvanta& ledger) {
  Choices choices{"Investment", "investment", {}};
  for (const InvestmentDetails& row : ledger.Investments().ListInvestments()) {
    choices.items.push_back({row.investmentId, row.investment});
  }
  return choices;
}

Choices KeywordsOf(clsCorvanta& ledger) {
  Choices choices{"Keyword", "keyword", {}};
  for (const KeywordRecord& row : ledger.Notes().Keywords()) {
    choices.items.push_back({row.keywordId, row.keyword});
  }
  return choices;
}

// A main category stands for its sub-categories, too.
std::vector<std::int64_t> WithSubCategories(const std::vector<std::int64_t>& keys,
                                            const std::vector<CategoryRecord>& categories) {
  std::vector<std::int64_t> all;
  for (const CategoryRecord& chosen : categories) {
    if (std::ranges::find(keys, chosen.categoryId) == keys.end()) continue;
    all.push_back(chosen.categoryId);
    if (!chosen.subCategory.empty()) continue;
    for (const CategoryRecord& row : categories) {
      if (EqualFolded(row.category, chosen.category)) all.push_back(row.categoryId);
    }
  }
  return all;
}

}  // namespace

void FilterArguments::Declare(Parser& command) {
  const auto add = [&](const char* name, std::vector<std::string>& values, const char* help) {
    command.AddOption(name, values, help)->TypeName("NAME")->Repeated()->Check(EmptyFault);
  };
  add("--category", categories_,
      "Of that category alone, a main one with its sub-categories; may be given several times");
  add("--payee", payees_, "Of that payee alone; may be given several times");
  add("--investment", investments_, "Of that investment alone; may be given several times");
  add("--keyword", keywords_, "With that keyword alone; may be given several times");
  command.AddOption("--text", text_, "With that text in amount, description, reference or names")
      ->Check(EmptyFault);
}

std::optional<RowFilter> FilterArguments::Find(clsCorvanta& ledger, Session& session) const {
  RowFilter filter;
  if (!categories_.empty()) {
    Choices choices{"Category", "category", {}};
    const std::vector<CategoryRecord> rows = ledger.Categories().Categories();
    for (const CategoryRecord& row : rows) {
      choices.items.push_back({row.categoryId, CategoryPath(row.category, row.subCategory)});
    }
    const auto keys = TypedKeys(categories_, choices, session);
    if (!keys) return std::nullopt;
    filter.SetKeys(FilterKind::Category, WithSubCategories(*keys, rows));
  }
  const auto set = [&](FilterKind kind, const std::vector<std::string>& typed, auto choicesOf) {
    if (typed.empty()) return true;
    const auto keys = TypedKeys(typed, choicesOf(ledger), session);
    if (keys) filter.SetKeys(kind, *keys);
    return keys.has_value();
  };
  if (!set(FilterKind::Payee, payees_, PayeesOf) ||
      !set(FilterKind::Investment, investments_, InvestmentsOf) ||
      !set(FilterKind::Keyword, keywords_, KeywordsOf)) {
    return std::nullopt;
  }
  filter.SetSearch(ReadSearchText(text_, false, session.Machine().locale));
  return filter;
}

std::optional<KeySet> FilterArguments::KeysOf(clsCorvanta& ledger, const RowFilter& filter,
                                              std::int64_t accountId) {
  if (filter.IsEmpty()) return std::nullopt;
  return FilteredKeys(ledger.Store(), filter,
                      accountId == 0 ? "" : " AND T.AccountID = " + SqlNumber(accountId));
}

}  // namespace corvanta::inline cli
