#pragma once

#include "app/MainView.h"
#include "app/ViewHost.h"
#include "app/register/RegisterCommands.h"
#include "ledger/register/RegisterShelf.h"

#include <QObject>

#include <memory>
#include <optional>

namespace corvanta::inline ledger {
struct RegisterScope;
}

namespace corvanta::inline app {

class ItemCommands;
class ReadAhead;
class RegisterSearch;
class RegisterView;
class UnfoldedRows;

// The view of "TransactionShow": the register of one account, with its period and what is
// remembered of registers that were read.
class TransactionShowView : public QObject, public MainView {
  Q_OBJECT

 public:
  TransactionShowView(const ViewPlace& place, QWidget* parent);

  [[nodiscard]] std::string_view Name() const override;
  [[nodiscard]] QAction* Entry() const override;
  [[nodiscard]] QWidget* Widget() override;
  [[nodiscard]] QString Title() const override;
  [[nodiscard]] SortedTable* Table() const override;
  [[nodiscard]] QAction* AddCommand() const override;
  [[nodiscard]] FilterStrip* Strip() const override;
  [[nodiscard]] SearchBox* Search() const override;
  void ShowOwn() override;
  [[nodiscard]] bool IsOfAccount() const override { return true; }

  void Show(const ViewCommand& command) override;
  // The period.
  void Remember(ViewCommand& command) const override;
  [[nodiscard]] ViewSurroundings Surroundings() const override;
  // Has the long registers read that may be gone to next.
  void ApplyAccounts() override;
  void Forget() override { shelf_.Clear(); }
  void LetGo() override;
  void ApplySettings() override;
  void Restore(const Registry& registry) override;
  void Keep(std::map<std::string, std::string>& values) const override;

  [[nodiscard]] bool Can(EditTask task) const override;
  void Do(EditTask task) override;
  void MarkCommands(bool isShown) override;
  [[nodiscard]] std::int64_t ChosenAccount() const override { return account_; }
  [[nodiscard]] PrintTable Printed() const override;
  [[nodiscard]] ChosenTotals TotalsOfChosen() const override;
  [[nodiscard]] std::vector<QAction*> ColumnChoices() const override;

  [[nodiscard]] std::int64_t RowCount() const override;
  [[nodiscard]] std::set<std::int64_t> ShownOf(
      const std::vector<std::int64_t>& transactions) const override;
  bool ChooseKey(std::int64_t key) override;
  void ChooseDay(Date day) override;

 private:
  void Connect();
  void ConnectColumns();
  // The account's row and, as far as the window has counted them, its sums.
  [[nodiscard]] std::optional<AccountRow> Find(std::int64_t accountId,
                                               std::optional<EntrySums>& sums) const;
  void ShowRows(const AccountRow& account, const std::optional<EntrySums>& sums);
  // What the window's filter has chosen.
  void ShowFiltered(const ViewCommand& command);
  // Says that the account's rows, or those of the filter's accounts, are hidden.
  void ShowHidden();
  // Of what is shown.
  [[nodiscard]] RegisterScope Scope() const;
  // Writes the shown columns into the settings.
  void KeepColumns();
  void ExportRegister();

  ViewPlace place_;
  RegisterView* register_;
  RegisterCommands commands_;
  RegisterShelf shelf_;
  ReadAhead* ahead_;
  ItemCommands* items_;
  RegisterSearch* search_;
  UnfoldedRows* unfolded_;
  std::int64_t account_ = 0;  // that is shown; 0 for none, as for several
  bool isShown_ = false;      // whether rows are, of whatever accounts
  QString uncleared_;         // how many of its rows are
};

}  // namespace corvanta::inline app
