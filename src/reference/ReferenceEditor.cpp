#include "reference/ReferenceEditor.h"

#include "ledger/clsCorvanta.h"
#include "ledger/investments/RateBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceTables.h"
#include "platform/TextCase.h"
#include "reference/ReferenceWords.h"
#include "reference/RowOf.h"
#include "reference/Rules.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"

#include <type_traits>

namespace corvanta::inline reference {
namespace {

// Exchange rates name their currencies by the code.
std::int64_t SaveCurrency(clsCorvanta& ledger, CurrencyRecord& form) {
  auto rows = ledger.References().Of<CurrencyRecord>();
  const auto former = RowOf(rows.All(), &CurrencyRecord::currencyId, form.currencyId);
  Transaction all = ledger.Store().Begin();
  if (former && former->currency != form.currency) {
    ledger.Rates().Rename(former->currency, form.currency);
  }
  const std::int64_t key = rows.Save(form);
  all.Commit();
  return key;
}

}  // namespace

template <typename Record>
std::optional<Record> ReferenceEditor<Record>::Load(std::int64_t key) {
  return RowOf(ledger_.References().Of<Record>().All(), kReferenceTable<Record>.key, key);
}

template <typename Record>
std::optional<Warning> ReferenceEditor<Record>::Check(const Record& form) {
  constexpr const auto& table = kReferenceTable<Record>;
  constexpr const auto& words = kReferenceWords<Record>;
  const std::string& name = form.*table.name.member;
  const std::string field = ControlOf(table.name.column);
  if (auto warning = Missing(name, words.missing, field)) return warning;
  const std::string tooLong = std::string(table.what) + " must be less than 100 characters long";
  if (auto warning = NameTooLong(name, tooLong, field)) return warning;
  if (auto warning = TextTooLong(ledger_, table.table, {{table.name.column, name, field}})) {
    return warning;
  }
  for (const auto& text : table.texts) {
    const std::string control = ControlOf(text.column);
    auto warning = TextTooLong(ledger_, table.table, {{text.column, form.*text.member, control}});
    if (warning) return warning;
  }
  if (const auto former = Load(form.*table.key)) {
    const std::string& formerName = (*former).*table.name.member;
    if constexpr (table.fixedName != nullptr) {
      auto warning = FixedName(table.fixedName, formerName, name, table.what, field);
      if (warning) return warning;
    }
    // An import may bring rows of one name.
    if (words.keepsTwins && EqualFolded(Trim(name), formerName)) return std::nullopt;
  }
  const std::int64_t other = ledger_.References().Of<Record>().Other(name, form.*table.key);
  return Duplicate(other != 0, words.taken, field);
}

template <typename Record>
std::int64_t ReferenceEditor<Record>::Save(Record form) {
  constexpr const auto& table = kReferenceTable<Record>;
  TrimText(form.*table.name.member);
  for (const auto& text : table.texts) TrimText(form.*text.member);
  const std::string done = form.*table.key == 0 ? "Add " : "Edit ";
  const UndoLog::Step step = ledger_.Undo().Begin(done + table.what);
  if constexpr (std::is_same_v<Record, CurrencyRecord>) return SaveCurrency(ledger_, form);
  return ledger_.References().Of<Record>().Save(form);
}

template <typename Record>
Deletion ReferenceEditor<Record>::Delete(std::int64_t key, const std::string& more) {
  if (!AskDelete(prompts_, more)) return {};
  const auto row = Load(key);
  if (!row) return {true, true, {}};
  return DeletionOf(ledger_.References().Of<Record>().Delete(key),
                    (*row).*kReferenceTable<Record>.name.member);
}

template class ReferenceEditor<AccountGroupRecord>;
template class ReferenceEditor<BankRecord>;
template class ReferenceEditor<PayeeRecord>;
template class ReferenceEditor<PaymentRecord>;
template class ReferenceEditor<CurrencyRecord>;
template class ReferenceEditor<KeywordRecord>;

}  // namespace corvanta::inline reference
