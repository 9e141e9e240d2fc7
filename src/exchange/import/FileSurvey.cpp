#include "exchange/import/FileSurvey.h"

#include "exchange/import/AccountNames.h"

namespace corvanta::inline exchange {
namespace {

std::string PlaceOf(const ImportAccount& account) {
  return account.number.empty() ? "name " + NameKey(account.name)
                                : "number " + NumberKey(account.number);
}

}  // namespace

void FileSurvey::OnAccount(const ImportAccount& account) {
  next_ = account;
  current_ = kNone;
  hasCurrency_ = account.currency.empty();
}

bool FileSurvey::OnRecord(ImportRecord& record) {
  const bool isNamed = next_.IsNamed();
  if (isNamed && current_ == kNone) {
    const auto [place, isNew] = places_.try_emplace(PlaceOf(next_), accounts_.size());
    if (isNew) accounts_.push_back({next_, 0});
    current_ = place->second;
  }
  if (current_ != kNone) ++accounts_[current_].records;
  if (!hasCurrency_ && seen_.insert(PlaceOf(next_) + "\n" + NameKey(next_.currency)).second) {
    currencies_.push_back(next_);
  }
  hasCurrency_ = true;
  if (record.isBankId) {
    bankIds_.insert(record.reference);
    const std::string account = isNamed ? PlaceOf(next_) : std::string();
    if (!idsOfAccounts_.insert(record.reference + "\n" + account).second) hasRepeatedIds_ = true;
  }
  return styles_.OnRecord(record);
}

}  // namespace corvanta::inline exchange
