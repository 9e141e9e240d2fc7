#include "cli/reports/SavedReportArgument.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/CloseNames.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"
#include "reports/custom/DefinitionRequest.h"
#include "reports/custom/ReportEditor.h"

namespace corvanta::inline cli {
namespace {

ReportEditor EditorOf(Session& session) {
  return {session.Machine().registry, session.Machine().prompts};
}

}  // namespace

void SavedReportArgument::Declare(Parser& command, const std::string& meaning) {
  command.AddOption("name", name_, meaning)->Required();
}

bool SavedReportArgument::Save(const ReportRequest& request,
                               const std::vector<std::string>& columns, bool replaces,
                               clsCorvanta& ledger, Session& session) const {
  if (const auto warning = ReportEditor::CheckName(name_)) {
    session.Tell(warning->title, warning->text);
    return false;
  }
  const ReportDefinition definition = MakeDefinition(name_, request, columns, ledger.Store());
  const std::string replaced = replaces ? definition.name : std::string();
  if (!EditorOf(session).Save(definition, replaced)) return false;
  session.Tell("Report", "Saved as \"" + definition.name + "\"");
  return true;
}

bool SavedReportArgument::Open(ReportRequest& request, std::vector<std::string>& columns,
                               std::string& name, clsCorvanta& ledger, Session& session) const {
  const std::optional<std::string> found = Find(session);
  if (!found) return false;
  const std::optional<ReadDefinition> read = EditorOf(session).Open(*found);
  if (!read) return false;
  const OpenedDefinition opened = OpenDefinition(*read, ledger.Store(), session.Machine().locale);
  if (!opened.troubles.empty()) session.Tell("Open Custom Report", TroubleText(opened));
  request = MakeRequest(opened);
  columns = opened.definition.columns;
  name = *found;
  return true;
}

bool SavedReportArgument::Delete(Session& session) const {
  const std::optional<std::string> name = Find(session);
  if (!name || !EditorOf(session).Delete(*name)) return false;
  session.Tell("Report", "\"" + *name + "\" was deleted");
  return true;
}

std::optional<std::string> SavedReportArgument::Find(Session& session) const {
  std::vector<std::string> names;
  for (const ReportEditor::Item& item : EditorOf(session).Items()) {
    if (EqualFolded(item.name, Trim(name_))) return item.name;
    names.push_back(item.name);
  }
  session.Tell("Report", "There is no saved report \"" + name_ + "\"." +
                             DidYouMean(CloseNames(name_, names)));
  return std::nullopt;
}

}  // namespace corvanta::inline cli
