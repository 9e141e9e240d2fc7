#pragma once

#include "controls/FormDialog.h"
#include "reports/query/Explain.h"

#include <cstdint>
#include <string>
#include <vector>

class QPushButton;
class QStandardItemModel;

namespace corvanta::inline controls {
class ListTable;
}

namespace corvanta::inline app {

// What a figure of a report is made of: the rows behind it, with their amounts, rates and signs,
// and the sum that they add up to. From a row a way leads to its register.
class FrmExplain : public FormDialog {
  Q_OBJECT

 public:
  // `column` is where the figure stands; `currency` is that of the row, empty where it is not
  // known.
  FrmExplain(const QString& figure, const std::vector<ExplainedRow>& rows,
             const ReportColumn& column, const std::string& currency, Platform& platform,
             QWidget* parent);

  // The one to be shown in its register, once the dialog was accepted.
  [[nodiscard]] std::int64_t Transaction() const { return Chosen(); }

 private:
  void MakeList();
  void Fill(const std::vector<ExplainedRow>& rows, const std::string& currency);
  // 0 where none is chosen, or what is chosen is no transaction.
  [[nodiscard]] std::int64_t Chosen() const;
  void ShowRow();

  [[nodiscard]] QString Number(double number) const;

  const Locale& locale_;
  const bool isMoney_;  // or a price
  const int decimals_;
  ListTable* lvExplain_;
  QStandardItemModel* model_;
  QPushButton* cmdRegister_;
};

}  // namespace corvanta::inline app
