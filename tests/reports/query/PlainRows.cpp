#include "reports/query/PlainRows.h"

#include "platform/TextCase.h"

#include <algorithm>

namespace corvanta {

void PlainSums::Add(const std::string& key, const Cells& cells) {
  for (auto& [known, sums] : rows_) {
    if (known != key) continue;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (!cells[i].IsText()) sums[i] = sums[i].Double() + cells[i].Double();
    }
    return;
  }
  rows_.emplace_back(key, cells);
}

std::vector<Cells> PlainSums::Get() const {
  std::vector<Cells> all;
  for (const auto& [key, cells] : rows_) all.push_back(cells);
  return all;
}

std::vector<Cells> WithTotals(std::vector<Cells> rows, std::size_t currencyColumn,
                              std::size_t first, std::size_t last) {
  PlainSums totals;
  for (const Cells& row : rows) {
    Cells total(row.size(), Value(""));
    const std::string currency = row[currencyColumn].Text();
    for (std::size_t i = first; i <= last; ++i) total[i] = row[i].Double();
    total.front() = "Total (" + currency + ")";
    total[currencyColumn] = currency;
    totals.Add(currency, total);
  }
  for (Cells& total : totals.Get()) rows.push_back(std::move(total));
  return rows;
}

bool PlainRows::In(const std::vector<std::int64_t>& keys, std::int64_t key) {
  return keys.empty() || std::ranges::count(keys, key) > 0;
}

bool PlainRows::IsAccountShown(const PlainLedger::Account& account) const {
  if (account.closed && !request_.withClosedAccounts) return false;
  return In(request_.filter.Keys(FilterKind::Account), account.id);
}

bool PlainRows::HasStatus(const Row& row) const {
  const StatusFilter& status = request_.status;
  if (!status.uncleared && !status.cleared && !status.reconciled) return true;
  if (row.rec == 1) return status.reconciled;
  return row.chk == 1 ? status.cleared : status.uncleared;
}

bool PlainRows::HasText(const Row& row) const {
  const SearchText& search = request_.filter.Search();
  if (search.text.empty()) return true;
  const auto has = [&search](const std::string& text) {
    return FoldCase(text).find(FoldCase(search.text)) != std::string::npos;
  };
  if (has(row.description)) return true;
  const PlainLedger::Category& category = ledger_.CategoryOf(row);
  return !search.isTextOnly &&
         (has(ledger_.PayeeOf(row).name) || has(category.name) || has(category.sub));
}

bool PlainRows::HasKeyword(const std::set<std::int64_t>& keywords) const {
  const auto& wanted = request_.filter.Keys(FilterKind::Keyword);
  return wanted.empty() ||
         std::ranges::any_of(wanted, [&](auto key) { return keywords.contains(key); });
}

bool PlainRows::Passes(const Row& row) const {
  const RowFilter& filter = request_.filter;
  if (!HasStatus(row) || !IsAccountShown(ledger_.AccountOf(row))) return false;
  if (request_.withoutTransfers && row.transfer != 0) return false;
  if (!In(filter.Keys(FilterKind::Category), row.category)) return false;
  if (!In(filter.Keys(FilterKind::Payee), row.payee)) return false;
  if (!In(filter.Keys(FilterKind::Investment), row.payee)) return false;
  if (!request_.actions.empty() && (row.action < 1 || row.action > 3)) return false;
  return In(request_.paymentTypes, row.payment) && HasKeyword(row.keywords) && HasText(row);
}

bool PlainRows::IsInRange(const Row& row) const {
  const auto& range = request_.range;
  return !range || (row.day >= range->from && row.day <= range->to);
}

std::vector<const PlainRows::Row*> PlainRows::Wholes() const {
  return Chosen([](const Row& row) { return row.parent == 0; });
}

std::vector<const PlainRows::Row*> PlainRows::Lines() const {
  return Chosen([this](const Row& row) { return !ledger_.parents.contains(row.id); });
}

std::vector<const PlainRows::Row*> PlainRows::Chosen(
    const std::function<bool(const Row&)>& isWanted) const {
  std::vector<const Row*> chosen;
  for (const Row& row : ledger_.rows) {
    if (isWanted(row) && Passes(row) && IsInRange(row)) chosen.push_back(&row);
  }
  return chosen;
}

double PlainRows::RateOf(const std::string& currency) const {
  if (!request_.converts || currency == request_.currency) return 1;
  const auto rate = rates_.find(currency);
  return rate == rates_.end() ? 1 : rate->second;
}

std::string PlainRows::Shown(const std::string& currency) const {
  return RateOf(currency) == 1 ? currency : request_.currency;
}

std::string PlainRows::CurrencyOf(const Row& row) const {
  return ledger_.AccountOf(row).currency;
}
double PlainRows::Money(const Row& row) const {
  return row.amount * RateOf(CurrencyOf(row));
}
std::string PlainRows::PlansKeptIn() const {
  // Currencies are in the order of their keys, which is that of their codes for these three.
  std::set<std::string> used;
  for (const auto& account : ledger_.accounts) {
    if (!account.closed) used.insert(account.currency);
  }
  return used.empty() || used.contains("GBP") ? "GBP" : *used.begin();
}

}  // namespace corvanta
