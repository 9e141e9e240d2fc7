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
#include "reports/custom/DefinitionRequest.h"
#include "reports/custom/FrmReport.h"
#include "reports/custom/ReportEditor.h"
#include "reports/query/ReportCatalogue.h"

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
  state.otherDates.reset();
  state.paymentTypes = definition.paymentTypes;
  state.withoutTransfers = definition.withoutTransfers;
  // The choice of a report of payees says nothing about categories.
  if (HasSubCategories(definition.report)) state.foldsSubCategories = definition.foldsSubCategories;
  if (definition.otherRange) {
    state.otherDates = DateRange{definition.otherRange->from, definition.otherRange->to};
  }
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
  Prompts& prompts = place_.platform.prompts;
  std::string name;
  for (;;) {
    const auto typed = prompts.AskText("Save Custom Report", "Name of the report:", false, name);
    if (!typed) return;
    name = Trim(*typed);
    const auto warning = ReportEditor::CheckName(name);
    if (warning) {
      prompts.Tell(warning->title, warning->text);
    } else if (SaveUnder(name)) {
      return;
    }
  }
}

bool ReportsView::SaveUnder(const std::string& name) {
  // With what names nothing that is left, or it would be of everything.
  ReportDefinition definition =
      MakeDefinition(name, request_, ShownColumns(), place_.session.Ledger().Store());
  for (std::size_t column = 0; column < definition.columns.size(); ++column) {
    const auto place = report_.Column(definition.columns[column]);
    if (place) definition.widths[column] = table_->columnWidth(static_cast<int>(*place));
  }
  ReportEditor editor(place_.platform.registry, place_.platform.prompts);
  if (!editor.Save(definition, state_.definition)) return false;
  const QStringList lost = NotSaved();
  state_.definition = name;
  place_.host.ApplyFilter();
  const QString saved = tr("Saved as \"%1\"").arg(ToQt(name));
  place_.host.Notice(
      lost.isEmpty()
          ? saved
          : tr("%1. A saved report does not keep: %2").arg(saved, lost.join(QStringLiteral(", "))));
  return true;
}

QStringList ReportsView::NotSaved() const {
  QStringList lost;
  if (!request_.whatIf.empty()) lost.append(tr("What If"));
  return lost;
}

}  // namespace corvanta::inline app
