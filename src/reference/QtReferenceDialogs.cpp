#include "ledger/reference/ReferenceRecords.h"
#include "platform/Platform.h"
#include "reference/AccountEditor.h"
#include "reference/CategoryEditor.h"
#include "reference/FrmAccounts.h"
#include "reference/FrmCategory.h"
#include "reference/FrmList.h"
#include "reference/FrmMerge.h"
#include "reference/FrmReference.h"
#include "reference/ReferenceDialogs.h"
#include "reference/ReferenceEditor.h"

namespace corvanta::inline reference {
namespace {

template <typename Form>
DialogResult Edit(std::int64_t key, const DialogPlace& place) {
  Form form(place.platform, place.ledger, place.parent);
  if (!form.Open(key)) return {true, 0};
  form.exec();
  return {form.IsChanged(), form.SavedKey()};
}

template <typename Editor>
Deletion Remove(std::int64_t key, const DialogPlace& place) {
  return Editor(place.ledger, place.platform.prompts).Delete(key);
}

Deletion RemoveAccount(std::int64_t key, const DialogPlace& place) {
  return AccountEditor(place.ledger, place.platform).Delete(key);
}

struct Kind {
  DialogResult (*edit)(std::int64_t, const DialogPlace&);
  Deletion (*remove)(std::int64_t, const DialogPlace&);
};

const Kind& Of(ReferenceKind kind) {
  // In the order of ReferenceKind.
  static constexpr Kind kKinds[] = {
      {Edit<FrmAccounts>, RemoveAccount},
      {Edit<FrmAccountTypes>, Remove<ReferenceEditor<AccountGroupRecord>>},
      {Edit<FrmBanks>, Remove<ReferenceEditor<BankRecord>>},
      {Edit<FrmCategory>, Remove<CategoryEditor>},
      {Edit<FrmPayees>, Remove<ReferenceEditor<PayeeRecord>>},
      {Edit<FrmPayments>, Remove<ReferenceEditor<PaymentRecord>>},
      {Edit<FrmKeywords>, Remove<ReferenceEditor<KeywordRecord>>},
      {Edit<FrmCurrencies>, Remove<ReferenceEditor<CurrencyRecord>>}};
  return kKinds[static_cast<std::size_t>(kind)];
}

}  // namespace

DialogResult OpenReferenceEditor(ReferenceKind kind, std::int64_t key, const DialogPlace& place) {
  return Of(kind).edit(key, place);
}

DialogResult AddAccountLike(std::int64_t accountId, const DialogPlace& place) {
  FrmAccounts form(place.platform, place.ledger, place.parent);
  form.BeginLike(accountId);
  form.Open(0);
  form.exec();
  return {form.IsChanged(), form.SavedKey()};
}

Deletion DeleteReference(ReferenceKind kind, std::int64_t key, const DialogPlace& place) {
  return Of(kind).remove(key, place);
}

bool OpenReferenceList(ListKind kind, const DialogPlace& place) {
  FrmList list(kind, place.platform, place.ledger, place.parent);
  list.exec();
  return list.IsChanged();
}

bool OpenMerge(MergeKind kind, std::int64_t source, const DialogPlace& place) {
  FrmMerge merge(kind, source, place.platform, place.ledger, place.parent);
  return merge.exec() == QDialog::Accepted;
}

}  // namespace corvanta::inline reference
