// How reports are saved and opened again.
#include "app/LedgerSession.h"
#include "app/reports/ReportList.h"
#include "app/reports/ReportsView.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reports/custom/DefinitionKeys.h"
#include "reports/custom/FrmReport.h"
#include "reports/custom/ReportEditor.h"

#include <utility>

namespace corvanta::inline app {

void ReportsView::FillSaved() {
  std::vector<std::pair<QString, QString>> saved;
  const ReportEditor editor(place_.platform.registry, place_.platform.prompts);
  for (const auto& [name, report] : editor.Items()) saved.emplace_back(ToQt(name), ToQt(report));
  list_->SetSaved(saved);
}

void ReportsView::OpenCustom() {
  FrmReport dialog(place_.platform.registry, place_.platform.prompts, &place_.window);
  const bool isAccepted = dialog.exec() == QDialog::Accepted;
  FillSaved();
  if (isAccepted && dialog.Opened()) Open(*dialog.Opened());
}

void ReportsView::OpenSaved(const std::string& name) {
  ReportEditor editor(place_.platform.registry, place_.platform.prompts);
  if (const auto read = editor.Open(name)) Open(*read);
}

void ReportsView::Open(const ReadDefinition& read) {
  KeepWidths();
  const OpenedDefinition opened =
      OpenDefinition(read, place_.session.Ledger().Store(), place_.platform.locale);
  const ReportDefinition& definition = opened.definition;
  ViewCommand command = Base();
  command.rows = definition.filter;
  ReportState& state = command.report;
  state = state.Other(definition.report);
  state.actions = definition.actions;
  state.columns = definition.columns;
  state.widths = definition.widths;
  state.definition = definition.name;
  state.dates.reset();
  if (definition.range) state.dates = DateRange{definition.range->from, definition.range->to};
  state.converts = !definition.currency.empty();
  if (state.converts) state.currency = definition.currency;
  state.emptied = opened.emptied;
  state.emptiedWith = definition.filter;
  if (!opened.troubles.empty()) {
    place_.platform.prompts.Tell("Open Custom Report", TroubleText(opened));
  }
  place_.host.Show(command);
  place_.host.FocusView();
}

void ReportsView::SaveReport() {
  const auto typed = place_.platform.prompts.AskText("Save Custom Report", "Name of the report:");
  if (!typed) return;
  const std::string name(Trim(*typed));
  if (const auto warning = ReportEditor::CheckName(name)) {
    return place_.platform.prompts.Tell(warning->title, warning->text);
  }
  ReportDefinition definition;
  definition.name = name;
  definition.report = state_.report;
  // With what names nothing that is left, or it would be of everything.
  definition.filter = request_.filter;
  definition.wholeCategories =
      WholeCategoriesOf(definition.filter, place_.session.Ledger().Store());
  definition.actions = state_.actions;
  definition.columns = ShownColumns();
  for (const std::string& column : definition.columns) {
    const auto place = report_.Column(column);
    definition.widths.push_back(place ? table_->columnWidth(static_cast<int>(*place)) : 0);
  }
  if (state_.dates) definition.range = Period{state_.dates->start, state_.dates->end};
  if (state_.converts) definition.currency = state_.currency;
  ReportEditor editor(place_.platform.registry, place_.platform.prompts);
  if (!editor.Save(definition, state_.definition)) return;
  state_.definition = name;
  place_.host.ApplyFilter();
  place_.host.Notice(tr("Saved as \"%1\"").arg(ToQt(name)));
}

}  // namespace corvanta::inline app
