#pragma once

#include "cli/Command.h"
#include "cli/arguments/NamedItem.h"
#include "invest/prices/SourceEditor.h"

#include <optional>
#include <string>

namespace corvanta::inline cli {

// source list|add|edit|test|first|delete: where prices and exchange rates come from.
class SourceCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  void DeclareFields(Parser& form);
  ExitStatus List(SourceEditor& editor, Session& session) const;
  ExitStatus ListPresets(Session& session) const;
  ExitStatus Save(SourceEditor& editor, SourceRow row, Session& session) const;
  ExitStatus Test(SourceEditor& editor, const SourceRow& row, Session& session) const;
  // A new one: of the preset that was named, or empty.
  [[nodiscard]] std::optional<SourceRow> NewRow(Session& session) const;
  // nullopt, told, when there is none of that name.
  [[nodiscard]] std::optional<SourceRow> Find(SourceEditor& editor, Session& session) const;

  Parser* presets_ = nullptr;
  Parser* add_ = nullptr;
  Parser* edit_ = nullptr;
  Parser* test_ = nullptr;
  Parser* first_ = nullptr;
  Parser* delete_ = nullptr;
  std::string name_;
  std::string preset_;
  std::optional<std::string> newName_;
  std::optional<std::string> type_;
  std::optional<std::string> address_;
  std::optional<std::string> placeholder_;
  std::optional<std::string> answer_;
  std::optional<std::string> marker_;
  std::optional<std::string> field_;
  std::optional<std::string> lookUp_;
  std::optional<int> occurrence_;
  bool asksKey_ = false;
  std::string question_;
};

}  // namespace corvanta::inline cli
