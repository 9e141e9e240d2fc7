#include "reports/custom/ReportEditor.h"

#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reports/query/ReportCatalogue.h"

namespace corvanta::inline reports {
namespace {
constexpr std::size_t kLongestName = 100;
}

std::vector<ReportEditor::Item> ReportEditor::Items() const {
  std::vector<Item> items;
  for (const auto& [name, number] : definitions_.All()) {
    const ReadDefinition read = definitions_.Find(name).value_or(ReadDefinition());
    const ReportInfo* info = FindReport(read.definition.report);
    items.push_back({name, info == nullptr ? std::string() : std::string(info->name)});
  }
  return items;
}

std::optional<ReadDefinition> ReportEditor::Open(const std::string& name) {
  std::optional<ReadDefinition> read = definitions_.Find(name);
  if (!read) {
    prompts_.Tell("Open Custom Report", "There is no saved report \"" + name + "\" any more.",
                  Icon::Information);
    return std::nullopt;
  }
  if (read->definition.report != 0) return read;
  std::string text = "The saved report \"" + name + "\" cannot be opened.\n";
  for (const std::string& trouble : read->troubles) text += "\n- " + trouble;
  prompts_.Tell("Open Custom Report", text, Icon::Information);
  return std::nullopt;
}

bool ReportEditor::Delete(const std::string& name) {
  const bool isSure =
      prompts_.Ask("Delete Custom Report?", "Do you want to delete the selected report?");
  return isSure && definitions_.Delete(name);
}

std::optional<Warning> ReportEditor::CheckName(const std::string& name) {
  if (Trim(name).empty()) {
    return Warning{"Save Warning", "You need to enter a Name for the Report", "txtName"};
  }
  if (TextLength(Trim(name)) > kLongestName) {
    return Warning{"Save Warning", "Name must be less than 100 characters long", "txtName"};
  }
  return std::nullopt;
}

bool ReportEditor::Save(const ReportDefinition& definition, const std::string& opened) {
  const bool isOther = !EqualFolded(definition.name, opened);
  if (isOther && definitions_.Find(definition.name)) {
    const bool isSure =
        prompts_.Ask("Save Custom Report", "There is a saved report \"" + definition.name +
                                               "\" already. Do you wish to replace it?");
    if (!isSure) return false;
  }
  definitions_.Save(definition);
  return true;
}

}  // namespace corvanta::inline reports
