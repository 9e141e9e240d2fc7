#include "app/investments/TradeList.h"

#include "app/ViewCommand.h"
#include "app/investments/InvestmentTransView.h"
#include "controls/QtText.h"
#include "ledger/register/RegisterReader.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Settings.h"
#include "platform/TextCase.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace corvanta::inline app {
namespace {

std::string AccountText(const TradeRows::Account& account) {
  if (!account.isClosed) return account.name;
  return account.name + FromQt(InvestmentTransView::tr(" [Closed] "));
}

const char* ActionText(InvestAction action) {
  return ActionName(static_cast<std::int64_t>(action));
}

SortKey Text(std::string_view text) {
  return SortKey(FoldCase(text));
}

}  // namespace

TradeList::TradeList(Connection& store, const ViewCommand& command, const Platform& platform)
    : rows_(store, command.Filter(), command.rows),
      locale_(platform.locale),
      decimals_(Settings(platform.registry).InvestmentDecimals()) {}

std::vector<SortKey> TradeList::SortKeys(std::size_t column) const {
  switch (static_cast<Column>(column)) {
    case kDate:
      return Each([](const TradeEntry& entry) { return SortKey(entry.date.Serial()); });
    case kAccount:
      return Named(&TradeEntry::accountId,
                   [this](const TradeEntry& entry) { return AccountText(rows_.AccountOf(entry)); });
    case kInvestment:
      return Named(&TradeEntry::payeeId,
                   [this](const TradeEntry& entry) { return rows_.InvestmentOf(entry).name; });
    case kSymbol:
      return Named(&TradeEntry::payeeId,
                   [this](const TradeEntry& entry) { return rows_.InvestmentOf(entry).symbol; });
    case kAction:
      return Each([](const TradeEntry& entry) { return Text(ActionText(entry.action)); });
    case kDividend:
      return Figures(&TradeEntry::dividend);
    case kShares:
      return Figures(&TradeEntry::shares);
    case kPrice:
      return Figures(&TradeEntry::price);
    case kCommission:
      return Figures(&TradeEntry::commission);
    case kAmount:
      return Each([](const TradeEntry& entry) { return SortKey(entry.amount); });
    case kStatus:
      return Each(
          [](const TradeEntry& entry) { return Text(StatusLetter(entry.bankChk, entry.bankRec)); });
    case kDescription:
      break;
  }
  std::vector<SortKey> keys;
  for (const std::string& text : rows_.Descriptions()) keys.push_back(Text(text));
  return keys;
}

template <typename KeyOf>
std::vector<SortKey> TradeList::Each(const KeyOf& keyOf) const {
  std::vector<SortKey> keys;
  keys.reserve(Count());
  for (const TradeEntry& entry : rows_.Entries()) keys.push_back(keyOf(entry));
  return keys;
}

// Names are few: each is folded once.
template <typename NameOf>
std::vector<SortKey> TradeList::Named(std::int64_t TradeEntry::*key, const NameOf& nameOf) const {
  std::unordered_map<std::int64_t, SortKey> known;
  return Each([&](const TradeEntry& entry) {
    const auto [name, isNew] = known.try_emplace(entry.*key);
    if (isNew) name->second = Text(nameOf(entry));
    return name->second;
  });
}

// What the action has not is left out.
std::vector<SortKey> TradeList::Figures(double TradeEntry::*figure) const {
  return Each([figure](const TradeEntry& entry) {
    return entry.*figure == 0 ? SortKey() : SortKey(entry.*figure);
  });
}

std::vector<ListRow> TradeList::Make(const std::vector<std::size_t>& rows) const {
  std::vector<ListRow> made;
  made.reserve(rows.size());
  for (const InvestmentTransactionRow& row : rows_.Read(rows)) made.push_back(RowFor(row));
  return made;
}

ListRow TradeList::RowFor(const InvestmentTransactionRow& row) const {
  const auto figure = [this](double value, int digits) {
    return ListCell{value == 0 ? QString() : ToQt(locale_.FormatNumber(value, digits)), value};
  };
  const QString account = ToQt(AccountText({row.account, row.currency, row.accountClosed}));
  return {row.transactionId,
          {{ToQt(locale_.FormatShortDate(row.date)), static_cast<double>(row.date.Serial())},
           {account, std::nullopt, false, row.accountClosed},
           {ToQt(row.investment)},
           {ToQt(row.symbol)},
           {QLatin1String(ActionText(row.action))},
           figure(row.dividend, -1),
           figure(row.shares, decimals_),
           figure(row.price, decimals_),
           figure(row.commission, -1),
           {ToQt(locale_.FormatNumber(row.amount)), row.amount},
           {QLatin1String(row.letter)},
           {ToQt(row.description)}},
          ToQt(row.currency),
          row.amount,
          row.currency};
}

}  // namespace corvanta::inline app
