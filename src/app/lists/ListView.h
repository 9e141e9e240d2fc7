#pragma once

#include "app/MainView.h"
#include "app/ViewHost.h"
#include "app/lists/ListModel.h"
#include "controls/ListSort.h"

#include <QWidget>

#include <cstdint>
#include <string_view>
#include <vector>

class QStackedWidget;

namespace corvanta::inline controls {
class EmptyState;
}

namespace corvanta::inline app {

class FilterStrip;
class ListSearch;
class TotalsLine;
class ViewHeader;

// How one list differs from the others.
struct ListTraits {
  std::string_view name;        // of the view: "PayeeShow"
  QAction* entry;               // of the View menu
  const char* listName;         // "lvpayee"
  std::string_view widthsName;  // of the setting with its columns' widths: "chP"
  QString title;
  std::vector<ListColumn> columns;
  SortState sort;  // the order of the rows as they are given
  // The commands on its rows, which the list's own menu has too.
  QAction* add;
  QAction* edit;
  QAction* remove;  // null where rows are not deleted
};

// What the views that list things have in common: a head, a list of one row each, a line below it,
// what stands in its place while it is empty, and commands that add, edit and delete.
class ListView : public QWidget, public MainView {
  Q_OBJECT

 public:
  ListView(const ViewPlace& place, ListTraits traits, QWidget* parent);

  [[nodiscard]] std::string_view Name() const override { return traits_.name; }
  [[nodiscard]] QAction* Entry() const override { return traits_.entry; }
  [[nodiscard]] QWidget* Widget() override { return this; }
  [[nodiscard]] QString Title() const override { return traits_.title; }
  [[nodiscard]] QAction* AddCommand() const override { return traits_.add; }
  [[nodiscard]] SortedTable* Table() const override { return table_; }
  void Restore(const Registry& registry) override;
  void Keep(std::map<std::string, std::string>& values) const override;
  [[nodiscard]] bool Can(EditTask task) const override;
  void Do(EditTask task) override;
  void MarkCommands(bool isShown) override;
  [[nodiscard]] PrintTable Printed() const override;
  [[nodiscard]] ChosenTotals TotalsOfChosen() const override;
  [[nodiscard]] SearchBox* Search() const override;
  [[nodiscard]] std::int64_t RowCount() const override;
  // All of them.
  [[nodiscard]] std::set<std::int64_t> ShownOf(
      const std::vector<std::int64_t>& transactions) const override;
  bool ChooseKey(std::int64_t key) override;

 protected:
  // The editor of a new row, of that row, and its deletion.
  virtual void Add() = 0;
  virtual void Edit(std::int64_t key) = 0;
  virtual void Delete(std::int64_t key) = 0;
  // A double click, or Enter.
  virtual void Open(std::int64_t key) { Edit(key); }
  // The row that the commands are about; 0 for none, as while another view is in front.
  [[nodiscard]] virtual std::int64_t CommandKey() const;

  [[nodiscard]] const ViewPlace& Place() const { return place_; }
  // What its columns show now wants so much room, and needs so much: the widths of these.
  void SetNeeds(const std::vector<ListColumn>& columns);
  // 0 while no row is chosen.
  [[nodiscard]] std::int64_t ChosenKey() const;
  // In the order of the list; of one that allows several.
  [[nodiscard]] std::vector<std::int64_t> ChosenKeys() const;
  // The chosen rows as text with headings.
  [[nodiscard]] QString ChosenText() const;
  // Puts the line over the list, and its button beside the head.
  void AddStrip(FilterStrip& strip);
  // What stands in the place of a list without rows, above the command that adds one.
  struct Nothing {
    QString icon;
    QString title;
    QString text;
    QAction* command = nullptr;  // offered there in place of the list's own that adds
  };
  // The row that was chosen stays so, or the one that took its place. `count` says how many there
  // are, `figures` what they come to.
  void Fill(std::vector<ListRow> rows, const QString& details, const QString& count,
            const QStringList& figures, const Nothing& nothing);
  // The same with rows that are made as they come into sight.
  void Fill(std::unique_ptr<ListRows> rows, const QString& details, const QString& count,
            const QStringList& figures, const Nothing& nothing);
  // Holds no rows any longer.
  void Empty();

 private:
  void Arrange();
  void Connect();
  // The list, or what stands in its place while nothing is shown.
  void ShowPage();

  ViewPlace place_;
  ListTraits traits_;
  ViewHeader* header_;
  QStackedWidget* pages_;
  SortedTable* table_;
  EmptyState* empty_;
  TotalsLine* totals_;
  ListModel* model_;
  ListSearch* search_;
  Nothing nothing_;
};

}  // namespace corvanta::inline app
