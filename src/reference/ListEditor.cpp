#include "reference/ListEditor.h"

#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceTables.h"
#include "reference/ReferenceEditor.h"

namespace corvanta::inline reference {
namespace {

template <typename Record>
std::vector<ListItem> ItemsOf(clsCorvanta& ledger) {
  constexpr const auto& table = kReferenceTable<Record>;
  std::vector<ListItem> items;
  for (const Record& row : ledger.References().Of<Record>().All()) {
    items.push_back({row.*table.key, row.*table.name.member, {}});
    if (!table.texts.empty()) items.back().description = row.*table.texts.back().member;
  }
  return items;
}

template <typename Record>
Deletion Remove(std::int64_t key, clsCorvanta& ledger, Prompts& prompts) {
  return ReferenceEditor<Record>(ledger, prompts)
      .Delete(key,
              " If this item is being used by existing Transactions, then this item will not be "
              "deleted.");
}

Deletion RemoveCurrency(std::int64_t key, clsCorvanta& ledger, Prompts& prompts) {
  return ReferenceEditor<CurrencyRecord>(ledger, prompts)
      .Delete(
          key,
          " If this item is being used by existing Accounts or Investments, then this item will "
          "not be deleted.");
}

struct List {
  const char* caption;
  std::vector<ListItem> (*items)(clsCorvanta&);
  Deletion (*remove)(std::int64_t, clsCorvanta&, Prompts&);
};

const List& Of(ListKind kind) {
  // In the order of ListKind.
  static constexpr List kLists[] = {
      {"Payments", ItemsOf<PaymentRecord>, Remove<PaymentRecord>},
      {"Banks", ItemsOf<BankRecord>, Remove<BankRecord>},
      {"Account Groups", ItemsOf<AccountGroupRecord>, Remove<AccountGroupRecord>},
      {"Transaction Keywords", ItemsOf<KeywordRecord>, Remove<KeywordRecord>},
      {"Currencies", ItemsOf<CurrencyRecord>, RemoveCurrency}};
  return kLists[static_cast<std::size_t>(kind)];
}

}  // namespace

std::string ListEditor::Caption() const {
  return Of(kind_).caption;
}

std::vector<ListItem> ListEditor::Items() {
  return Of(kind_).items(ledger_);
}

Deletion ListEditor::Delete(std::int64_t key) {
  return Of(kind_).remove(key, ledger_, prompts_);
}

}  // namespace corvanta::inline reference
