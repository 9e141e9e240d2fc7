#pragma once

#include "cli/ReferenceCommand.h"
#include "cli/SavedForm.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"

namespace corvanta {

// The command of named things whose editor takes the very record that the ledger lists: `Key` and
// `Name` are its members.
template <typename Editor, typename Record, std::int64_t Record::*Key, std::string Record::*Name>
class EditorCommand : public ReferenceCommand {
 protected:
  using ReferenceCommand::ReferenceCommand;

  // The ledger's list of them.
  virtual std::vector<Record> All(clsCorvanta& ledger) = 0;

  std::vector<NamedItem> Items(clsCorvanta& ledger) override {
    std::vector<NamedItem> items;
    for (const Record& row : All(ledger)) items.push_back({row.*Key, row.*Name});
    return items;
  }

  std::optional<std::int64_t> Add(clsCorvanta& ledger, Session& session,
                                  const std::string& name) override {
    Editor editor(ledger, session.Machine().prompts);
    Record form = details_;
    form.*Name = name;
    return SaveChecked(editor, form, session);
  }

  std::optional<std::int64_t> Rename(clsCorvanta& ledger, Session& session, std::int64_t key,
                                     const std::string& name) override {
    Editor editor(ledger, session.Machine().prompts);
    std::optional<Record> form = editor.Load(key);
    if (!form) return std::nullopt;
    (*form).*Name = name;
    return SaveChecked(editor, *form, session);
  }

  Deletion Delete(clsCorvanta& ledger, Prompts& prompts, std::int64_t key) override {
    return Editor(ledger, prompts).Delete(key);
  }

  Record details_;  // what "add" is told beside the name
};

}  // namespace corvanta
