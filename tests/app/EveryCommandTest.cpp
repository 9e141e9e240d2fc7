// Walks every entry of every menu, of the menus of lists and of their heads, and every button of
// the ribbon, in every view: there is a dialog, a question, another view or another effect behind
// each. What is added to the menus is walked, too; where it shows nothing by itself, Prepare() sets
// the scene for it.
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/QtProgress.h"
#include "app/ViewCommand.h"
#include "controls/SortedTable.h"
#include "controls/ucRibbon.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "store/datafile/OpenDataFile.h"
#include "store/sql/Connection.h"
#include "support/TemporaryStore.h"

#include <QAbstractButton>
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>
#include <set>

namespace corvanta {
namespace {

// A person who reads everything and wants nothing.
class DecliningPrompts : public Prompts {
 public:
  void Tell(const std::string& title, const std::string& text, Icon icon) override {
    ++count;
    // A failure is no effect; that nobody answers in the network is none of the command's.
    const bool isFailure = title == "Data File" || title == "Application Error";
    if (isFailure && icon != Icon::Information) troubles.push_back(title + ": " + text);
  }
  bool Ask(const std::string&, const std::string&, Icon) override { return ++count == 0; }
  std::optional<std::size_t> Choose(const std::string&, const std::string&,
                                    const std::vector<std::string>&) override {
    ++count;
    return std::nullopt;
  }
  std::optional<std::string> AskText(const std::string&, const std::string&, bool,
                                     const std::string&) override {
    ++count;
    return std::nullopt;
  }
  std::optional<std::string> OpenFile(const FileQuestion&) override {
    ++count;
    return std::nullopt;
  }
  std::optional<std::string> SaveFile(const FileQuestion&) override {
    ++count;
    return std::nullopt;
  }

  int count = 0;
  std::vector<std::string> troubles;
};

class EveryCommand : public testing::Test {
 protected:
  static constexpr int kArrangedReport = 3;  // its rows are transactions

  EveryCommand() {
    PutDataFile(machine_, StoreContent::Sample);
    session_.Open(true);
    AddTransfer();
    window_ = std::make_unique<FrmMain>(session_, platform_, progress_);
    window_->Restore();
    window_->resize(1280, 800);
    window_->show();
    // What opens is closed again, and counted.
    QObject::connect(&closer_, &QTimer::timeout, window_.get(), [this] { CloseOpened(); });
    closer_.start(0);
  }
  ~EveryCommand() override {
    window_.reset();
    session_.Close();
  }

  void CloseOpened() {
    QWidget* opened = QApplication::activeModalWidget();
    if (opened == nullptr) opened = QApplication::activePopupWidget();
    if (opened == nullptr) return;
    ++opened_;
    if (auto* dialog = qobject_cast<QDialog*>(opened)) return dialog->done(QDialog::Rejected);
    opened->close();
  }
  void Run(const std::string& sql) { session_.Ledger().Store().Execute(sql); }
  void AddTransfer() {
    TransactionRecord from = *session_.Ledger().Transactions().ReadTransaction(1);
    from.transactionId = 0;
    TransactionRecord to = from;
    to.accountId = 2;
    to.amount = -from.amount;
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Purse',2,17,5,0)");
    session_.Ledger().Transactions().SaveTransfer(from, to);
  }
  SortedTable* Table() {
    for (auto* table : window_->findChildren<SortedTable*>()) {
      if (table->isVisible()) return table;
    }
    return nullptr;
  }
  // The view with its first row chosen, whatever the command before has done.
  void Arrange(std::string_view view) {
    if (!window_->isVisible()) window_->show();
    ViewCommand command{view, view == kTransactionShow ? 1 : 0};
    if (view == kReportSelected || view == kReportChart) command.report.report = kArrangedReport;
    window_->Show(command);
    if (SortedTable* table = Table(); table != nullptr && table->model()->rowCount() > 0) {
      table->setFocus();
      table->ChooseRow(0);
    }
    QApplication::processEvents();
  }
  QAction& Action(const char* name) { return *window_->findChild<QAction*>(QLatin1String(name)); }

  // What some commands need in order to show what they do.
  void Prepare(const QString& name, std::string_view view) {
    if (name == "mnuViewRefresh") {
      Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,CloseAccount) VALUES ('" +
          std::to_string(++made_) + "',1,17,0)");
    } else if ((name == "mnuViewWidths" || name == "mnuViewFit") && Table() != nullptr) {
      Table()->SetWidths(Table()->Widths() + QString());
      Table()->horizontalHeader()->resizeSection(0, Table()->columnWidth(0) + 20);
    } else if (name.startsWith("mnuEditUndo") || name == "mnuEditRedo") {
      Run("UPDATE tblAccounts SET Description = '" + std::to_string(++made_) +
          "' WHERE AccountID = 1");
      if (name == "mnuEditRedo") Action("mnuEditUndo").trigger();
    } else if (name == "mnuFilterNone") {
      ViewCommand filtered{view, view == kTransactionShow ? 1 : 0};
      filtered.rows.SetKeys(FilterKind::Payee, {1});
      window_->Show(filtered);
    } else if (name == "mnuViewBack" || name == "mnuViewForward") {
      window_->Show({view == kPayeeShow ? kCategoryShow : kPayeeShow});
      window_->Show({view, view == kTransactionShow ? 1 : 0});
      if (name == "mnuViewForward") Action("mnuViewBack").trigger();
    } else if (name == "mnuViewAll") {
      Action("mnuViewCleared").trigger();
    } else if (name.endsWith("Paste")) {
      Action(QString(name).replace("Paste", "Copy").toLatin1().constData()).trigger();
    } else if (name.endsWith("Copy")) {
      QApplication::clipboard()->clear();
    } else if (name == "mnuTransTransfer" || name == "mnuTransSchedule" ||
               name == "mnuTransLines") {
      // Shown for such rows alone.
      const QAction& action = Action(name.toLatin1().constData());
      SortedTable* table = view == kTransactionShow ? Table() : nullptr;
      const int rows = table == nullptr ? 0 : table->model()->rowCount();
      for (int row = 0; row < rows && !action.isVisible(); ++row) table->ChooseRow(row);
    } else if (name == "mnuEditSelect" && Table() != nullptr) {
      Table()->clearSelection();
    }
    QApplication::processEvents();
  }

  // All that a person could see of it.
  QString Seen() {
    QStringList seen{QString::number(prompts_.count),
                     QString::number(opened_),
                     QString::number(window_->isVisible()),
                     QString::fromLatin1(window_->Shown().name.data()),
                     QString::number(window_->Shown().accountId),
                     window_->statusBar()->currentMessage(),
                     QApplication::clipboard()->text(),
                     QString::number(progress_.IsBusy())};
    if (session_.IsOpen()) {
      seen.append(QString::number(session_.Ledger().Store().Changes()));
      seen.append(QString::number(window_->Accounts().size()));
    }
    for (const QAction* action : window_->findChildren<QAction*>()) {
      if (!action->objectName().isEmpty()) {
        seen.append(action->objectName() + QString::number(action->isChecked()));
      }
    }
    for (const auto* table : window_->findChildren<SortedTable*>()) {
      if (!table->isVisible()) continue;
      seen.append(table->objectName() + table->Widths() +
                  QString::number(table->model()->rowCount()) + '/' +
                  QString::number(table->Sorted().column * 2 + table->Sorted().isDescending) + '/' +
                  QString::number(table->selectionModel()->selectedRows().size()));
    }
    for (const auto* part : window_->findChildren<QWidget*>()) {
      if (part->isVisible() && !part->objectName().isEmpty()) seen.append(part->objectName());
    }
    seen.append(QString::number(window_->findChild<ucRibbon*>()->height()));
    const QWidget* focus = window_->focusWidget();
    seen.append(focus == nullptr ? QString() : focus->objectName());
    seen.append(QString::number(machine_.opener.Opened().size()));
    seen.append(QString::number(machine_.download.Requested().size()));
    return seen.join(u'\n');
  }

  static void Collect(QMenu& menu, std::vector<QAction*>& entries) {
    Q_EMIT menu.aboutToShow();
    for (QAction* action : menu.actions()) {
      if (action->isSeparator()) continue;
      if (action->menu() != nullptr) {
        Collect(*action->menu(), entries);
      } else {
        entries.push_back(action);
      }
    }
  }
  std::vector<QAction*> Entries() {
    std::vector<QAction*> entries;
    for (const QAction* menu : window_->menuBar()->actions()) Collect(*menu->menu(), entries);
    return entries;
  }
  // The entry of that number; null where the menus have become shorter.
  QAction* EntryAt(std::size_t place) {
    const std::vector<QAction*> entries = Entries();
    return place < entries.size() ? entries[place] : nullptr;
  }
  // A menu that a right click opens, and its entries as they stand while it is open.
  struct Popup {
    std::vector<QAction*> entries;
    std::shared_ptr<QMenu> menu;  // where it is made anew whenever it opens
  };
  // The menu of the list's first row, or of its second head.
  Popup Open(SortedTable& table, bool isHead) {
    Popup popup;
    QWidget* place = isHead ? static_cast<QWidget*>(table.horizontalHeader()) : &table;
    if (place->contextMenuPolicy() == Qt::ActionsContextMenu) {
      for (QAction* action : place->actions()) {
        if (!action->isSeparator()) popup.entries.push_back(action);
      }
      return popup;
    }
    closer_.stop();
    const QHeaderView& head = *table.horizontalHeader();
    QPoint at = table.visualRect(table.model()->index(0, 0)).center();
    if (isHead) at = QPoint(head.sectionViewportPosition(head.logicalIndex(1)) + 8, 8);
    Q_EMIT place->customContextMenuRequested(at);
    if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
      if (menu->testAttribute(Qt::WA_DeleteOnClose)) popup.menu.reset(menu);
      menu->setAttribute(Qt::WA_DeleteOnClose, false);
      Collect(*menu, popup.entries);
      menu->close();
    }
    closer_.start(0);
    return popup;
  }
  // Does what a click on the entry of that number does, and says whether anything came of it.
  void ExpectEffect(std::string_view view, bool isHead, std::size_t place) {
    Arrange(view);
    Prepare(NameOf(*Open(*Table(), isHead).entries.at(place)), view);
    const Popup popup = Open(*Table(), isHead);
    ASSERT_LT(place, popup.entries.size());
    QAction& entry = *popup.entries[place];
    const std::string name = NameOf(entry).toStdString();
    if (CanBeChosen(entry)) {
      const QString before = Seen();
      entry.trigger();
      QApplication::processEvents();
      EXPECT_TRUE(Seen() != before) << name << " does nothing in " << view;
      // A column that was hidden comes back.
      if (popup.menu && entry.isCheckable()) entry.trigger();
    }
  }
  static QString NameOf(const QAction& action) {
    return action.objectName().isEmpty() ? action.text() : action.objectName();
  }
  bool CanBeChosen(const QAction& action) {
    return action.isEnabled() && action.isVisible() && !IsThereAlready(action);
  }
  // What it would show is in front already, or there is nothing of the kind.
  bool IsThereAlready(const QAction& action) {
    const QString name = action.objectName();
    if (name == "mnuAccountList") return window_->Shown().name == kAccountShow;
    if (name == "mnuViewWidths") return Table() == nullptr || Table()->Widths().isEmpty();
    const QString shown = QStringLiteral("mnuReport%1").arg(kArrangedReport);
    if (name == shown && window_->Shown().name == kReportSelected) return true;
    return action.isChecked() && action.actionGroup() != nullptr;
  }

  TestPlatform machine_;
  DecliningPrompts prompts_;
  Platform platform_{machine_.registry,
                     machine_.locale,
                     machine_.clock,
                     machine_.machine,
                     machine_.files,
                     prompts_,
                     machine_.progress,
                     machine_.download,
                     machine_.opener,
                     machine_.spreadsheet,
                     machine_.folder.Path("profile"),
                     machine_.folder.Path("data")};
  QtProgress progress_;
  DataFileOpener opener_{platform_, "a test"};
  LedgerSession session_{opener_, platform_, std::string()};
  std::unique_ptr<FrmMain> window_;
  QTimer closer_;
  int opened_ = 0;
  int made_ = 0;
};

constexpr std::string_view kViews[] = {kTransactionShow,     kAccountShow,  kCategoryShow,
                                       kPayeeShow,           kScheduleShow, kInvestmentShow,
                                       kInvestmentTransShow, kHoldingShow,  kReportShow,
                                       kReportSelected,      kReportChart,  kOverviewShow};

class EveryCommandIn : public EveryCommand, public testing::WithParamInterface<std::string_view> {};

TEST_P(EveryCommandIn, TheMenusDoesSomething) {
  const std::string_view view = GetParam();
  Arrange(view);
  const std::size_t count = Entries().size();
  EXPECT_GT(count, 80U);
  for (std::size_t place = 0; place < count; ++place) {
    Arrange(view);
    QAction* action = EntryAt(place);
    if (action == nullptr) break;
    const QString name = NameOf(*action);
    Prepare(name, view);
    // Some menus are filled anew whenever they open.
    action = EntryAt(place);
    if (action == nullptr || !CanBeChosen(*action)) continue;
    const QString before = Seen();
    action->trigger();
    QApplication::processEvents();
    EXPECT_TRUE(Seen() != before) << name.toStdString() << " does nothing in " << view;
    for (const std::string& trouble : prompts_.troubles) {
      ADD_FAILURE() << name.toStdString() << " fails in " << view << ": " << trouble;
    }
    prompts_.troubles.clear();
  }
}

TEST_P(EveryCommandIn, TheRibbonDoesSomething) {
  const std::string_view view = GetParam();
  Arrange(view);
  const auto* ribbon = window_->findChild<ucRibbon*>();
  int pressed = 0;
  for (auto* button : ribbon->findChildren<QAbstractButton*>()) {
    Arrange(view);
    const QString name = button->objectName();
    Prepare(name.mid(2), view);
    QAction* action = window_->findChild<QAction*>(name.mid(2));
    if (!button->isEnabled() || (action != nullptr && IsThereAlready(*action))) continue;
    const QString before = Seen();
    QTest::mouseClick(button, Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_TRUE(Seen() != before) << name.toStdString() << " does nothing in " << view;
    ++pressed;
  }
  EXPECT_GT(pressed, 3) << "in " << view;
}

TEST_P(EveryCommandIn, TheMenusOfItsListDoSomething) {
  const std::string_view view = GetParam();
  for (const bool isHead : {false, true}) {
    Arrange(view);
    if (Table() == nullptr) return;
    const std::size_t count = Open(*Table(), isHead).entries.size();
    EXPECT_GT(count, 2U) << (isHead ? "of the head" : "of a row");
    for (std::size_t place = 0; place < count && !HasFatalFailure(); ++place) {
      ExpectEffect(view, isHead, place);
    }
    for (const std::string& trouble : prompts_.troubles) ADD_FAILURE() << trouble;
  }
}

TEST_P(EveryCommandIn, TheHeadsOfItsColumnsSort) {
  Arrange(GetParam());
  SortedTable* table = Table();
  if (table == nullptr) return;
  QHeaderView& head = *table->horizontalHeader();
  for (int column = 0; column < head.count(); ++column) {
    if (head.isSectionHidden(column)) continue;
    const QPoint middle(head.sectionViewportPosition(column) + head.sectionSize(column) / 2,
                        head.height() / 2);
    const SortState before = table->Sorted();
    QTest::mouseClick(head.viewport(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(table->Sorted().column, column);
    EXPECT_NE(table->Sorted(), before) << column;
  }
}

INSTANTIATE_TEST_SUITE_P(Views, EveryCommandIn, testing::ValuesIn(kViews),
                         [](const auto& view) { return std::string(view.param); });

TEST_F(EveryCommand, CanBeChosenInOneViewAtLeast) {
  std::set<QString> left;
  for (const std::string_view view : kViews) {
    Arrange(view);
    for (const QAction* action : Entries()) {
      // What says that there is nothing to choose has no name.
      if (action->isEnabled() || !action->objectName().isEmpty()) left.insert(NameOf(*action));
    }
  }
  ASSERT_GT(left.size(), 50U);
  for (const std::string_view view : kViews) {
    Arrange(view);
    const std::size_t count = Entries().size();
    for (std::size_t place = 0; place < count; ++place) {
      const QAction* action = EntryAt(place);
      const QString name = action == nullptr ? QString() : NameOf(*action);
      if (!left.contains(name)) continue;
      Arrange(view);
      Prepare(name, view);
      action = EntryAt(place);
      if (action != nullptr && CanBeChosen(*action)) left.erase(name);
    }
  }
  for (const QString& name : left) {
    ADD_FAILURE() << name.toStdString() << " can be chosen in no view";
  }
}

}  // namespace
}  // namespace corvanta
