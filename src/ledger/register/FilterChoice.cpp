#include "ledger/register/FilterChoice.h"

#include "ledger/reference/CategoryPath.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace corvanta::inline ledger {
namespace {

struct KindTexts {
  const char* mode;
  const char* caption;
  // Key, name, name within it, whether it is closed.
  const char* items;
};
constexpr std::array<KindTexts, kFilterKinds.size()> kTexts = {
    {{"ACCOUNT", "Filter By Accounts",
      "Select AccountID, Account, '', CloseAccount from tblAccounts Order by Account, AccountID"},
     {"CATEGORY", "Filter By Category",
      "Select CategoryID, Category, SubCategory, 0 from tblCategory Order by Category, "
      "SubCategory, CategoryID"},
     {"PAYEE", "Filter By Payees",
      "Select PayeeID, Payee, '', 0 from tblPayees WHERE Investment = 0 OR IsNull(Investment) "
      "Order by Payee, PayeeID"},
     {"INVESTMENT", "Filter By Investment",
      "Select PayeeID, Payee, '', 0 from tblPayees WHERE Investment = 1 Order by Payee, PayeeID"},
     {"KEYWORD", "Filter By Keyword",
      "Select KeywordID, Keyword, '', 0 from tblKeywords Order by Keyword, KeywordID"}}};

const KindTexts& TextsOf(FilterKind kind) {
  return kTexts.at(static_cast<std::size_t>(kind));
}

// What fits into a label; a name or two.
constexpr std::size_t kLabel = 40;

}  // namespace

std::size_t FilterChoice::Group::TickedCount() const {
  return static_cast<std::size_t>(std::ranges::count_if(items, &Item::isTicked));
}

FilterChoice::FilterChoice(Connection& store, FilterKind kind,
                           const std::vector<std::int64_t>& ticked, Closed closed)
    : kind_(kind) {
  const std::unordered_set<std::int64_t> chosen(ticked.begin(), ticked.end());
  Recordset rows = store.OpenRecordset(TextsOf(kind).items);
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::string name(rows.Text(1));
    const std::string below(rows.Text(2));
    const bool isClosed = rows.Int(3) == 1;
    Item item{rows.Int(0), below.empty() ? name : below, CategoryPath(name, below)};
    item.isTicked = chosen.contains(item.key);
    if (isClosed && closed == Closed::Hide && !item.isTicked) continue;
    if (isClosed) item.title = item.name += " [Closed]";
    // Several accounts may have one name, but they are not one.
    const bool isNext =
        kind == FilterKind::Category && !groups_.empty() && EqualFolded(groups_.back().name, name);
    if (!isNext) groups_.push_back({isClosed ? item.name : name, {}});
    groups_.back().items.push_back(std::move(item));
  }
  for (Group& group : groups_) {
    if (!group.IsDivided()) group.name = group.items.front().title;
  }
}

void FilterChoice::Tick(std::size_t group, std::size_t item, bool isTicked) {
  groups_.at(group).items.at(item).isTicked = isTicked;
}

void FilterChoice::TickGroup(std::size_t group, bool isTicked) {
  for (Item& item : groups_.at(group).items) item.isTicked = isTicked;
}

void FilterChoice::Clear() {
  for (std::size_t group = 0; group < groups_.size(); ++group) TickGroup(group, false);
}

std::size_t FilterChoice::Count() const {
  std::size_t count = 0;
  for (const Group& group : groups_) count += group.items.size();
  return count;
}

std::size_t FilterChoice::TickedCount() const {
  std::size_t count = 0;
  for (const Group& group : groups_) count += group.TickedCount();
  return count;
}

std::vector<std::int64_t> FilterChoice::Keys() const {
  std::vector<std::int64_t> keys;
  for (const Group& group : groups_) {
    for (const Item& item : group.items) {
      if (item.isTicked) keys.push_back(item.key);
    }
  }
  return keys;
}

std::vector<std::string> FilterChoice::Names() const {
  std::vector<std::string> names;
  for (const Group& group : groups_) {
    if (group.TickedCount() == group.items.size()) {
      names.push_back(group.name);
      continue;
    }
    for (const Item& item : group.items) {
      if (item.isTicked) names.push_back(item.title);
    }
  }
  return names;
}

bool FilterChoice::Matches(std::size_t group, std::size_t item, std::string_view text) const {
  const std::string wanted = FoldCase(Trim(text));
  const Group& in = groups_.at(group);
  const auto has = [&wanted](const std::string& name) {
    return FoldCase(name).find(wanted) != std::string::npos;
  };
  return has(in.items.at(item).title) || has(in.name);
}

const char* FilterMode(FilterKind kind) {
  return TextsOf(kind).mode;
}

const char* FilterCaption(FilterKind kind) {
  return TextsOf(kind).caption;
}

std::string FilterLabel(const std::vector<std::string>& names) {
  if (names.empty()) return kShowAll;
  std::string label;
  for (const std::string& name : names) {
    label += (label.empty() ? "" : ", ") + name;
    // A thousand names need not be joined to be cut.
    if (TextLength(label) > kLabel) break;
  }
  if (TextLength(label) <= kLabel) return label;
  std::size_t end = 0;
  for (std::size_t signs = 0; signs < kLabel; ++signs) {
    ++end;
    while (end < label.size() && (static_cast<unsigned char>(label[end]) & 0xc0U) == 0x80U) ++end;
  }
  return label.substr(0, end) + "...";
}

}  // namespace corvanta::inline ledger
