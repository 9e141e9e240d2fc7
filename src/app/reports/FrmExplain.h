#pragma once

#include "controls/FormDialog.h"
#include "reports/query/Explain.h"

#include <cstdint>
#include <string>
#include <vector>

class QLabel;
class QPushButton;

namespace corvanta::inline controls {
class SortedTable;
}

namespace corvanta::inline app {

class ListModel;
class ListSearch;
class SearchBox;

// What a figure of a report is made of: the rows behind it, with their amounts, rates and signs,
// and the sum that they add up to. The rows are sorted and searched as those of every list, and the
// sum is of those that are shown. From a row a way leads to its register.
class FrmExplain : public FormDialog {
  Q_OBJECT

 public:
  // `column` is where the figure stands; `currency` is that of the row, empty where it is not
  // known.
  FrmExplain(const QString& figure, std::vector<ExplainedRow> rows, const ReportColumn& column,
             std::string currency, Platform& platform, QWidget* parent);

  // The one to be shown in its register, once the dialog was accepted.
  [[nodiscard]] std::int64_t Transaction() const { return Chosen(); }

 private:
  QWidget* MakeArea(const QString& figure);
  void MakeList();
  void Fill();
  void ShowSum();
  // 0 where none is chosen, or what is chosen is no transaction.
  [[nodiscard]] std::int64_t Chosen() const;
  void ShowRow();

  const std::vector<ExplainedRow> rows_;
  const Locale& locale_;
  const std::string currency_;
  const bool isMoney_;  // or a price
  const int decimals_;
  SearchBox* find_;
  SortedTable* lvExplain_;
  ListModel* model_;
  ListSearch* search_;
  QLabel* lblSum_;
  QPushButton* cmdRegister_;
};

}  // namespace corvanta::inline app
