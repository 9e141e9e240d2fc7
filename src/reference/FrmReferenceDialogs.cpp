#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "reference/AccountEditor.h"
#include "reference/AccountTypeEditor.h"
#include "reference/BankEditor.h"
#include "reference/CategoryEditor.h"
#include "reference/FrmAccountTypes.h"
#include "reference/FrmAccounts.h"
#include "reference/FrmBanks.h"
#include "reference/FrmCategory.h"
#include "reference/FrmKeywords.h"
#include "reference/FrmList.h"
#include "reference/FrmMerge.h"
#include "reference/FrmPayees.h"
#include "reference/FrmPayments.h"
#include "reference/KeywordEditor.h"
#include "reference/PayeeEditor.h"
#include "reference/PaymentEditor.h"
#include "reference/ReferenceDialogs.h"

namespace corvanta {
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

}  // namespace

DialogResult OpenReferenceEditor(ReferenceKind kind, std::int64_t key, const DialogPlace& place) {
  switch (kind) {
    case ReferenceKind::Account:
      return Edit<FrmAccounts>(key, place);
    case ReferenceKind::AccountGroup:
      return Edit<FrmAccountTypes>(key, place);
    case ReferenceKind::Bank:
      return Edit<FrmBanks>(key, place);
    case ReferenceKind::Category:
      return Edit<FrmCategory>(key, place);
    case ReferenceKind::Payee:
      return Edit<FrmPayees>(key, place);
    case ReferenceKind::Payment:
      return Edit<FrmPayments>(key, place);
    case ReferenceKind::Keyword:
      break;
  }
  return Edit<FrmKeywords>(key, place);
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

Deletion DeleteReference(ReferenceKind kind, std::int64_t key, const DialogPlace& place) {
  switch (kind) {
    case ReferenceKind::Account:
      return AccountEditor(place.ledger, place.platform).Delete(key);
    case ReferenceKind::AccountGroup:
      return Remove<AccountTypeEditor>(key, place);
    case ReferenceKind::Bank:
      return Remove<BankEditor>(key, place);
    case ReferenceKind::Category:
      return Remove<CategoryEditor>(key, place);
    case ReferenceKind::Payee:
      return Remove<PayeeEditor>(key, place);
    case ReferenceKind::Payment:
      return Remove<PaymentEditor>(key, place);
    case ReferenceKind::Keyword:
      break;
  }
  return Remove<KeywordEditor>(key, place);
}

}  // namespace corvanta
