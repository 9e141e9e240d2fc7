// The commands on accounts, categories, payees and the other named things.
#include "app/AccountsView.h"
#include "app/CategoriesView.h"
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/PayeesView.h"
#include "controls/QtText.h"

#include <QAction>
#include <QStackedWidget>

namespace corvanta {

void FrmMain::ConnectReference() {
  const auto connectKind = [this](ReferenceKind kind, QAction* add, QAction* edit,
                                  QAction* remove) {
    On(add, [this, kind] { EditItem(kind, 0); });
    On(edit, [this, kind] {
      if (const std::int64_t key = ChosenKey(kind)) EditItem(kind, key);
    });
    On(remove, [this, kind] { DeleteItem(kind); });
  };
  connectKind(ReferenceKind::Account, actions_->mnuAccountAdd, actions_->mnuAccountEdit,
              actions_->mnuAccountDelete);
  connectKind(ReferenceKind::Category, actions_->mnuCategoryAdd, actions_->mnuCategoryEdit,
              actions_->mnuCategoryDelete);
  connectKind(ReferenceKind::Payee, actions_->mnuPayeeNew, actions_->mnuPayeeEdit,
              actions_->mnuPayeeDelete);
  On(actions_->mnuAccountList, [this] { ShowView(kAccountShow); });
  On(actions_->mnuViewAccountTypes, [this] { ShowList(ListKind::AccountType); });
  On(actions_->mnuViewBanks, [this] { ShowList(ListKind::Bank); });
  On(actions_->mnuViewPayments, [this] { ShowList(ListKind::Payment); });
  On(actions_->mnuToolsKeywords, [this] { ShowList(ListKind::Keywords); });
}

DialogPlace FrmMain::Place() {
  return {platform_, session_.Ledger(), this};
}

std::int64_t FrmMain::ChosenAccount() const {
  if (views_->currentWidget() == accountsView_) return accountsView_->ChosenKey();
  return shown_.name == kTransactionShow ? shown_.accountId : 0;
}

std::int64_t FrmMain::ChosenKey(ReferenceKind kind) const {
  if (kind == ReferenceKind::Account) return ChosenAccount();
  return ShownKind() == kind ? ShownList()->ChosenKey() : 0;
}

std::optional<ReferenceKind> FrmMain::ShownKind() const {
  const QWidget* shown = views_->currentWidget();
  if (shown == accountsView_) return ReferenceKind::Account;
  if (shown == categoriesView_) return ReferenceKind::Category;
  if (shown == payeesView_) return ReferenceKind::Payee;
  return std::nullopt;
}

void FrmMain::EditItem(ReferenceKind kind, std::int64_t key) {
  const DialogResult result = OpenReferenceEditor(kind, key, Place());
  if (!result.isChanged) return;
  Reload();
  if (result.savedKey != 0 && ShownKind() == kind) ShownList()->ChooseKey(result.savedKey);
}

void FrmMain::DeleteItem(ReferenceKind kind) {
  const std::int64_t key = ChosenKey(kind);
  if (key == 0) return;
  const Deletion deletion = DeleteReference(kind, key, Place());
  if (deletion.isChanged) Reload();
  Notice(ToQt(deletion.Notice()));
}

void FrmMain::ShowList(ListKind kind) {
  if (OpenReferenceList(kind, Place())) Reload();
}

}  // namespace corvanta
