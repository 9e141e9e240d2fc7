#include "cli/reference/ReferenceCommand.h"

#include "cli/Parser.h"
#include "cli/SavedForm.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"

namespace corvanta::inline cli {

Parser* ReferenceCommand::Declare(Parser& parser) {
  Parser* command =
      parser.AddCommand(words_.command, "List, add, rename and delete " + words_.plural);
  command->AllowCommand();
  command->AddCommand("list", "List them; so does the command alone");
  add_ = command->AddCommand("add", "Add one");
  add_->AddOption("name", name_, "The new name")->Required();
  DeclareAdd(*add_);
  rename_ = command->AddCommand("rename", "Give one another name");
  rename_->AddOption("item", name_, "Its name, or # and its key")->Required();
  rename_->AddOption("name", newName_, "The new name")->Required();
  delete_ = command->AddCommand("delete", "Delete one");
  delete_->AddOption("item", name_, "Its name, or # and its key")->Required();
  DeclareMore(*command);
  return command;
}

void ReferenceCommand::DeclareAdd(Parser&) {}

void ReferenceCommand::DeclareMore(Parser&) {}

ExitStatus ReferenceCommand::Run(Session& session) {
  const bool writes = add_->Parsed() || rename_->Parsed() || delete_->Parsed();
  if (!writes) return RunList(session);
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  if (add_->Parsed()) return RunAdd(ledger, session);
  return rename_->Parsed() ? RunRename(ledger, session) : RunDelete(ledger, session);
}

ExitStatus ReferenceCommand::RunList(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  session.Print(List(ledger));
  return ExitStatus::Done;
}

ExitStatus ReferenceCommand::RunAdd(clsCorvanta& ledger, Session& session) {
  const std::optional<std::int64_t> key = Add(ledger, session, name_);
  if (!key) return ExitStatus::Refused;
  PrintKey(*key, session);
  return ExitStatus::Done;
}

ExitStatus ReferenceCommand::RunRename(clsCorvanta& ledger, Session& session) {
  const std::optional<NamedItem> item = Find(ledger, session, name_);
  if (item && item->name == newName_) {
    session.Tell(words_.title, '"' + item->name + "\" is called that already");
    return ExitStatus::Done;
  }
  if (!item || !Rename(ledger, session, item->key, newName_)) return ExitStatus::Refused;
  session.Tell(words_.title, "\"" + item->name + "\" is now \"" + newName_ + "\"");
  return ExitStatus::Done;
}

ExitStatus ReferenceCommand::RunDelete(clsCorvanta& ledger, Session& session) {
  const std::optional<NamedItem> item = Find(ledger, session, name_);
  if (!item) return ExitStatus::Refused;
  const Deletion deletion = Delete(ledger, session.Machine().prompts, item->key);
  if (deletion.isGone) session.Tell(words_.title, "\"" + item->name + "\" deleted");
  if (!deletion.kept.empty()) session.Tell(words_.title, deletion.Notice());
  return deletion.isGone ? ExitStatus::Done : ExitStatus::Refused;
}

std::optional<NamedItem> ReferenceCommand::Find(clsCorvanta& ledger, Session& session,
                                                const std::string& typed) {
  return FindItem(Items(ledger), typed, words_.title, words_.kind, session);
}

}  // namespace corvanta::inline cli
