#include "ledger/LedgerModel.h"

#include <algorithm>

namespace corvanta {

std::vector<LedgerModel::Key> LedgerModel::LinesOf(Key key) const {
  std::vector<Key> lines;
  for (const auto& [line, row] : rows) {
    if (row.parent == key) lines.push_back(line);
  }
  return lines;
}

std::vector<LedgerModel::Key> LedgerModel::WholeRows() const {
  std::vector<Key> whole;
  for (const auto& [key, row] : rows) {
    if (row.parent == 0) whole.push_back(key);
  }
  return whole;
}

std::int64_t LedgerModel::Sum(Key account) const {
  std::int64_t sum = 0;
  for (const auto& [key, row] : rows) {
    if (row.parent == 0 && row.account == account) sum += row.cents;
  }
  return sum;
}

void LedgerModel::Resum(Key parent) {
  const std::vector<Key> lines = LinesOf(parent);
  if (lines.empty()) return;
  rows[parent].cents = 0;
  for (const Key line : lines) rows[parent].cents += rows[line].cents;
}

void LedgerModel::Save(Key key, ModelRow row) {
  if (row.parent != 0) {
    const ModelRow& parent = rows[row.parent];
    row.account = parent.account;
    row.day = parent.day;
    row.chk = parent.chk;
    row.rec = parent.rec;
    rows[key] = row;
    Resum(row.parent);
    return;
  }
  const Key formerTwin = rows[key].twin;
  if (formerTwin != 0 && formerTwin != row.twin) rows[formerTwin].twin = 0;
  rows[key] = row;
  for (const Key line : LinesOf(key)) {
    rows[line].account = row.account;
    rows[line].day = row.day;
    rows[line].chk = row.chk;
    rows[line].rec = row.rec;
  }
  if (row.twin != 0) {
    Link(key, row.twin);
  } else {
    Resum(key);
  }
}

void LedgerModel::SaveTransfer(Key from, const ModelRow& fromRow, Key to, const ModelRow& toRow) {
  for (const Key half : {from, to}) {
    for (const Key line : LinesOf(half)) Erase(line);
  }
  Save(from, fromRow);
  Save(to, toRow);
  Link(from, to);
}

void LedgerModel::Link(Key from, Key to) {
  for (const auto& [half, other] : {std::pair(from, to), std::pair(to, from)}) {
    const Key former = rows[half].twin;
    if (former != 0 && former != other) rows[former].twin = 0;
    rows[half].twin = other;
    for (const Key line : LinesOf(half)) Erase(line);
  }
}

void LedgerModel::Erase(Key key) {
  rows.erase(key);
  files.erase(key);
  std::erase_if(links, [&](const auto& link) { return link.second == key; });
}

void LedgerModel::Delete(Key key) {
  const ModelRow row = rows.at(key);
  for (const Key line : LinesOf(key)) Erase(line);
  Erase(key);
  if (row.twin != 0) Erase(row.twin);
  if (row.parent != 0) Resum(row.parent);
}

void LedgerModel::CopyLinks(Key source, Key copy) {
  std::vector<Key> keywords;
  for (const auto& [keyword, transaction] : links) {
    if (transaction == source) keywords.push_back(keyword);
  }
  for (const Key keyword : keywords) links.emplace(keyword, copy);
  for (std::size_t i = files.count(source); i > 0; --i) files.insert(copy);
}

void LedgerModel::Paste(Key source, Key account, Key copy, const std::vector<Key>& lines,
                        Key twin) {
  const std::vector<Key> sources = LinesOf(source);
  const auto add = [&](Key from, Key to, Key intoAccount, Key parent, Key other) {
    ModelRow row = rows.at(from);
    row.account = intoAccount;
    row.parent = parent;
    row.twin = other;
    rows[to] = row;
    CopyLinks(from, to);
  };
  const Key sourceTwin = rows.at(source).twin;
  add(source, copy, account, 0, twin);
  for (std::size_t i = 0; i < sources.size(); ++i) add(sources[i], lines.at(i), account, copy, 0);
  if (twin != 0) add(sourceTwin, twin, rows.at(sourceTwin).account, 0, copy);
}

void LedgerModel::Reverse(Key key) {
  if (rows.at(key).twin != 0) return;
  rows[key].cents *= -1;
  for (const Key line : LinesOf(key)) rows[line].cents *= -1;
  if (rows[key].parent != 0) Resum(rows[key].parent);
}

void LedgerModel::Move(Key key, Key account) {
  ModelRow& row = rows.at(key);
  if (row.parent != 0 || (row.twin != 0 && rows.at(row.twin).account == account)) return;
  row.account = account;
  for (const Key line : LinesOf(key)) rows[line].account = account;
}

void LedgerModel::SetStatus(Key key, int chk, int rec) {
  const Key whole = rows.at(key).parent != 0 ? rows.at(key).parent : key;
  std::vector<Key> all = LinesOf(whole);
  all.push_back(whole);
  for (const Key each : all) {
    rows[each].chk = chk;
    rows[each].rec = rec;
  }
}

void LedgerModel::MergePayees(Key source, Key target) {
  for (auto& [key, row] : rows) {
    if (row.payee == source) row.payee = target;
  }
}

void LedgerModel::DeleteAccount(Key account) {
  std::vector<Key> gone;
  for (const auto& [key, row] : rows) {
    if (row.account == account) gone.push_back(key);
  }
  for (const Key key : gone) Erase(key);
  for (auto& [key, row] : rows) {
    if (row.twin != 0 && !rows.contains(row.twin)) row.twin = 0;
  }
}

}  // namespace corvanta
