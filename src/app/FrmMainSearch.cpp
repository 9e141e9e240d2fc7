// How the main window finds things: the box of each view, and the one box for everything.
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/MainView.h"
#include "app/lists/HeaderMenu.h"
#include "app/search/FrmPalette.h"
#include "app/search/Palette.h"
#include "app/search/SearchBox.h"
#include "app/tree/AccountTree.h"
#include "app/tree/TreeMenu.h"
#include "controls/QtText.h"
#include "controls/ucCalendar.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/CategoryPath.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/register/Balances.h"
#include "ledger/search/SearchQuery.h"
#include "platform/Clock.h"
#include "platform/Platform.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

#include <algorithm>

namespace corvanta::inline app {
namespace {

constexpr std::size_t kRemembered = 12;

QString WithoutMnemonic(QString text) {
  text.remove(QStringLiteral("..."));
  return text.remove(u'&');
}

// The commands below a menu that can be run now, each with the way to it.
void AddCommands(const QMenu& menu, const QString& path, std::vector<PaletteItem>& items,
                 std::vector<QPointer<QAction>>& commands) {
  for (QAction* action : menu.actions()) {
    if (action->isSeparator() || !action->isVisible()) continue;
    const QString name = path + QStringLiteral(": ") + WithoutMnemonic(action->text());
    if (action->menu() != nullptr) {
      AddCommands(*action->menu(), name, items, commands);
      continue;
    }
    if (!action->isEnabled()) continue;
    const QString keys = action->shortcut().toString(QKeySequence::NativeText);
    const QString detail =
        keys.isEmpty() ? action->statusTip() : keys + QStringLiteral("  ·  ") + action->statusTip();
    items.push_back({PaletteKind::Command, FromQt(name), FromQt(detail),
                     static_cast<std::int64_t>(commands.size())});
    commands.emplace_back(action);
  }
}

}  // namespace

void FrmMain::ConnectSearch() {
  On(actions_->mnuEditFind, [this] {
    if (view_ != nullptr && view_->Search() != nullptr) view_->Search()->Enter();
  });
  On(actions_->mnuEditGoTo, [this] { OpenPalette(); });
  On(actions_->mnuViewFit, [this] {
    if (SortedTable* table = ShownTable()) FitColumns(*table);
  });
  new TreeMenu(*tree_, *actions_);
  for (const MainView* view : views_) {
    if (view->Table() == nullptr) continue;
    new HeaderMenu(*view->Table(), view->ColumnChoices(),
                   {actions_->mnuViewFit, actions_->mnuViewWidths});
  }
}

void FrmMain::MarkSearch() {
  actions_->mnuViewFit->setEnabled(session_.IsOpen() && ShownTable() != nullptr);
  actions_->mnuEditFind->setEnabled(view_ != nullptr && view_->Search() != nullptr);
}

void FrmMain::OpenPalette() {
  std::vector<PaletteItem> items;
  for (const AccountRow& account : accounts_) {
    items.push_back({PaletteKind::Account, AccountCaption(account),
                     account.accountType + "  " + account.accountNo, account.accountId});
  }
  if (session_.IsOpen()) AddNames(items);
  std::vector<QPointer<QAction>> commands;
  for (const QAction* menu : menuBar()->actions()) {
    if (menu->menu() == nullptr) continue;
    AddCommands(*menu->menu(), WithoutMnemonic(menu->text()), items, commands);
  }
  Palette palette(std::move(items), platform_.locale, platform_.clock.Today());
  palette.SetRecent(recent_);
  FrmPalette dialog(palette, this);
  dialog.exec();
  if (!dialog.Chosen()) return;
  const PaletteItem chosen = *dialog.Chosen();
  std::erase_if(recent_, [&](const PaletteItem& one) {
    return one.kind == chosen.kind && one.name == chosen.name;
  });
  recent_.insert(recent_.begin(), chosen);
  recent_.resize(std::min(recent_.size(), kRemembered));
  if (chosen.kind != PaletteKind::Command) return GoTo(chosen);
  if (QAction* command = commands.at(static_cast<std::size_t>(chosen.key))) command->trigger();
}

void FrmMain::AddNames(std::vector<PaletteItem>& items) const {
  clsCorvanta& ledger = session_.Ledger();
  for (const PayeeRecord& payee : ledger.References().Payees()) {
    items.push_back({PaletteKind::Payee, payee.payee, payee.description, payee.payeeId});
  }
  for (const CategoryRecord& category : ledger.Categories().Categories()) {
    items.push_back({PaletteKind::Category, CategoryPath(category.category, category.subCategory),
                     category.description, category.categoryId});
  }
}

void FrmMain::GoTo(const PaletteItem& item) {
  if (!session_.IsOpen()) return;
  switch (item.kind) {
    case PaletteKind::Account:
      return OpenAccount(item.key);
    case PaletteKind::Payee:
      return FindEverywhere(ExactQuery(SearchField::Payee, item.name));
    case PaletteKind::Category:
      return FindEverywhere(ExactQuery(SearchField::Category, item.name));
    case PaletteKind::Amount:
      return FindEverywhere("amount:\"" + item.name + '"');
    case PaletteKind::Day: {
      const Date day = Date::FromSerial(static_cast<std::int32_t>(item.key));
      if (!view_->IsOfAccount()) ShowView(RegisterOfAccount().Name());
      view_->ChooseDay(day);
      return FocusView();
    }
    default:
      return FindEverywhere(item.name);
  }
}

void FrmMain::FindEverywhere(const std::string& text) {
  MainView& rows = RegisterOfAccount();
  if (view_ != &rows) ShowView(rows.Name());
  if (view_ == &rows) rows.Search()->Find(ToQt(text), true);
}

}  // namespace corvanta::inline app
