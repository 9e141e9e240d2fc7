#include "notes/KeywordChoice.h"

#include "ledger/accounts/ClosedAccounts.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/KeywordBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Platform.h"
#include "reference/ReferenceEditor.h"

#include <algorithm>

namespace corvanta::inline notes {

std::optional<Warning> KeywordChoice::CheckOpen() {
  for (const std::int64_t key : keys_) {
    const auto row = ledger_.Transactions().ReadTransaction(key);
    if (row && row->accountClosed) return Warning{kAmendItem, kAccountClosed, {}};
  }
  return std::nullopt;
}

std::map<std::string, std::size_t> KeywordChoice::Counts() {
  std::map<std::string, std::size_t> counts;
  for (const std::int64_t key : keys_) {
    for (const KeywordRecord& row : ledger_.Notes().KeywordsOf(key)) ++counts[row.keyword];
  }
  return counts;
}

std::vector<KeywordMark> KeywordChoice::Marks() {
  const auto counts = Counts();
  std::vector<KeywordMark> marks;
  for (const KeywordRecord& row : ledger_.Notes().Keywords()) {
    const auto found = counts.find(row.keyword);
    const std::size_t count = found == counts.end() ? 0 : found->second;
    KeywordUse use = count == 0 ? KeywordUse::None : KeywordUse::Some;
    if (count >= keys_.size()) use = KeywordUse::All;
    marks.push_back({row.keyword, use});
  }
  return marks;
}

std::optional<Warning> KeywordChoice::CheckNew(const std::string& name) {
  KeywordRecord record;
  record.keyword = name;
  return ReferenceEditor<KeywordRecord>(ledger_, platform_.prompts).Check(record);
}

bool KeywordChoice::Save(const std::vector<KeywordMark>& marks) {
  const std::vector<KeywordMark> before = Marks();
  std::vector<std::string> added;
  std::vector<std::string> removed;
  for (const KeywordMark& mark : marks) {
    const auto former = std::ranges::find(before, mark.keyword, &KeywordMark::keyword);
    const KeywordUse was = former == before.end() ? KeywordUse::None : former->use;
    if (mark.use == was || mark.use == KeywordUse::Some) continue;
    (mark.use == KeywordUse::All ? added : removed).push_back(mark.keyword);
  }
  if (added.empty() && removed.empty()) return false;
  ledger_.Notes().ChangeKeywords(keys_, added, removed);
  return true;
}

}  // namespace corvanta::inline notes
