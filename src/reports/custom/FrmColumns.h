#pragma once

#include "controls/FormDialog.h"
#include "reports/custom/ReportColumns.h"

#include <string>
#include <vector>

class QListWidget;

namespace corvanta::inline reports {

// "Pick Columns for Report": the headings of all reports with a tick each.
class FrmColumns : public FormDialog {
  Q_OBJECT

 public:
  // `current` are the columns shown now; `own` are those of the report itself, which stand out.
  FrmColumns(const std::vector<std::string>& current, const std::vector<std::string>& own,
             Prompts& prompts, QWidget* parent);

  // The ticked headings once the dialog was accepted.
  [[nodiscard]] std::vector<std::string> Columns() const { return picker_.Columns(); }

 private:
  void Fill(const std::vector<std::string>& own);
  void TickAll(bool isTicked);
  void Accept();

  ColumnPicker picker_;
  QListWidget* lvColumns_;
};

}  // namespace corvanta::inline reports
