#include "cli/transactions/AttachCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/output/OutputTable.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/KeywordBook.h"
#include "notes/AttachmentEditor.h"
#include "platform/Files.h"
#include "platform/Opener.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "reference/Deletion.h"

#include <algorithm>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Attachment";

const char* NameOf(AttachmentMode mode) {
  if (mode == AttachmentMode::Path) return "path";
  return mode == AttachmentMode::Folder ? "folder" : "inside";
}

void AddFile(OutputTable& table, AttachedFiles files, const AttachmentRecord& row,
             bool withTransaction) {
  const auto size = files.SizeOf(row);
  std::vector<Value> cells{row.attachmentId};
  if (withTransaction) cells.emplace_back(row.transactionId);
  const Value bytes = size ? Value(static_cast<std::int64_t>(*size)) : Value();
  cells.insert(cells.end(),
               {Value(row.file), Value(row.path), Value(row.store), NameOf(ModeOf(row)), bytes});
  table.AddRow(std::move(cells));
}

}  // namespace

Parser* AttachCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("attach", "The files attached to a transaction");
  command->RequireCommand();
  list_ = command->AddCommand("list", "Show the attached files");
  add_ = command->AddCommand("add", "Attach a file");
  open_ = command->AddCommand("open", "Open the file with the program that is for it");
  save_ = command->AddCommand("save", "Write the file to another place");
  Parser* remove = command->AddCommand(
      "delete", "Detach the files; what is beside the data file stays where it is");
  check_ = command->AddCommand("check", "Show all attached files, and which are missing");
  unused_ = command->AddCommand("unused", "Show the copies that no transaction names");
  for (Parser* form : {list_, add_, open_, save_, remove}) transaction_.DeclareOne(*form);
  add_->AddOption("file", file_, "The file to attach")->Required();
  add_->AddOption("--keep", keep_,
                  "Where it is kept: path (where it is), folder (FileStore beside the data file) "
                  "or inside (the data file); as the settings say without it")
      ->TypeName("WHERE")
      ->Correct(OneOf({"path", "folder", "inside"}));
  save_->AddOption("file", file_, "Where to write it")->Required();
  for (Parser* form : {open_, save_, remove}) DeclareWhich(*form);
  return command;
}

void AttachCommand::DeclareWhich(Parser& command) {
  command.AddOption("--only", which_, "The key of one of several files, as the list shows it")
      ->TypeName("KEY")
      ->Check(KeyFault);
}

ExitStatus AttachCommand::Run(Session& session) {
  const bool reads = !add_->Parsed() && (list_->Parsed() || open_->Parsed() || save_->Parsed() ||
                                         check_->Parsed() || unused_->Parsed());
  const std::optional<DataFile> file = session.Open(reads ? Access::Read : Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const bool isOfAll = check_->Parsed() || unused_->Parsed();
  return isOfAll ? RunOnFile(ledger, session) : RunOnTransaction(ledger, session);
}

ExitStatus AttachCommand::RunOnFile(clsCorvanta& ledger, Session& session) const {
  return check_->Parsed() ? Check(ledger, session) : Unused(ledger, session);
}

ExitStatus AttachCommand::RunOnTransaction(clsCorvanta& ledger, Session& session) const {
  const auto rows = transaction_.Find(ledger, session);
  if (!rows) return ExitStatus::Refused;
  const std::int64_t transactionId = rows->front().transactionId;
  if (list_->Parsed()) return List(ledger, transactionId, session);
  if (open_->Parsed()) return Open(ledger, transactionId, session);
  if (save_->Parsed()) return Save(ledger, transactionId, session);
  if (RefuseClosed(*rows, session)) return ExitStatus::Refused;
  return add_->Parsed() ? Add(ledger, transactionId, session)
                        : Delete(ledger, transactionId, session);
}

ExitStatus AttachCommand::List(clsCorvanta& ledger, std::int64_t transactionId,
                               Session& session) const {
  OutputTable table({{"ID", OutputKind::Integer},
                     {"File"},
                     {"Path"},
                     {"Store"},
                     {"Kept"},
                     {"Bytes", OutputKind::Integer}});
  for (const AttachmentRecord& row : ledger.Notes().AttachmentsOf(transactionId)) {
    AddFile(table, ledger.Notes().Files(), row, false);
  }
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus AttachCommand::Check(clsCorvanta& ledger, Session& session) const {
  OutputTable table({{"ID", OutputKind::Integer},
                     {"Transaction", OutputKind::Integer},
                     {"File"},
                     {"Path"},
                     {"Store"},
                     {"Kept"},
                     {"Bytes", OutputKind::Integer}});
  for (const AttachmentRecord& row : ledger.Notes().Files().All()) {
    AddFile(table, ledger.Notes().Files(), row, true);
  }
  session.Print(table);
  const std::size_t missing = ledger.Notes().Files().CountMissing();
  if (missing == 0) return ExitStatus::Done;
  return session.Refuse(
      kTitle, missing == 1 ? "1 file is missing" : std::to_string(missing) + " files are missing");
}

ExitStatus AttachCommand::Unused(clsCorvanta& ledger, Session& session) const {
  OutputTable table({{"File"}});
  for (const std::string& name : ledger.Notes().Files().Unused()) table.AddRow({name});
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus AttachCommand::Add(clsCorvanta& ledger, std::int64_t transactionId,
                              Session& session) const {
  AttachmentEditor editor(ledger, session.Machine(), transactionId);
  AttachmentMode mode = editor.Keeping();
  if (keep_ == "path") mode = AttachmentMode::Path;
  if (keep_ == "folder") mode = AttachmentMode::Folder;
  if (keep_ == "inside") mode = AttachmentMode::Inside;
  if (const auto warning = editor.CheckAdd(file_, mode)) {
    return session.Refuse(warning->title, warning->text);
  }
  const auto row =
      ledger.Notes().Files().Find(ledger.Notes().Files().Attach(transactionId, file_, mode));
  session.Tell(kTitle, "\"" + row->file + "\" attached");
  return ExitStatus::Done;
}

std::optional<AttachmentRecord> AttachCommand::TheOne(clsCorvanta& ledger,
                                                      std::int64_t transactionId,
                                                      Session& session) const {
  std::vector<AttachmentRecord> rows = ledger.Notes().AttachmentsOf(transactionId);
  if (which_) {
    std::erase_if(rows, [this](const AttachmentRecord& row) {
      return row.attachmentId != std::stoll(*which_);
    });
  }
  if (rows.size() == 1) return rows.front();
  if (rows.empty()) {
    session.Tell(kTitle, which_
                             ? "No file of the key " + *which_ + " is attached to this transaction."
                             : "No file is attached to this transaction.");
  } else {
    session.Tell(kTitle, "Several files are attached to this transaction. Say with --only which.");
  }
  return std::nullopt;
}

std::optional<AttachmentRecord> AttachCommand::TheFile(clsCorvanta& ledger,
                                                       std::int64_t transactionId,
                                                       Session& session) const {
  auto row = TheOne(ledger, transactionId, session);
  if (!row || ledger.Notes().Files().IsThere(*row)) return row;
  session.Tell(kTitle, "Can not display Attachment");
  return std::nullopt;
}

ExitStatus AttachCommand::Open(clsCorvanta& ledger, std::int64_t transactionId,
                               Session& session) const {
  const auto row = TheFile(ledger, transactionId, session);
  if (!row) return ExitStatus::Refused;
  TellLeftovers(ledger, session.Machine());
  OpenedAttachments& opened = ledger.Notes().Opened();
  const std::string path = opened.PathToOpen(*row);
  if (!session.Machine().opener.Open(path)) {
    return session.Refuse(kTitle, "There is no associated application with the selected file");
  }
  if (ModeOf(*row) == AttachmentMode::Inside) {
    // This program ends before the other one has read it.
    opened.LeaveAll();
    session.Tell(kTitle, "A private copy was opened; it is removed when the next attachment is.");
  }
  return ExitStatus::Done;
}

ExitStatus AttachCommand::Save(clsCorvanta& ledger, std::int64_t transactionId,
                               Session& session) const {
  const auto row = TheFile(ledger, transactionId, session);
  if (!row) return ExitStatus::Refused;
  Platform& machine = session.Machine();
  const std::string bytes = ledger.Notes().Files().Content(*row);
  // What is refused in any case is not asked about.
  machine.files.Own().RequireOther(file_);
  const bool isThere = FileExists(file_);
  if (isThere && !machine.prompts.Ask("Save Attachment", "Replace the file \"" + file_ + "\"?")) {
    return ExitStatus::Refused;
  }
  machine.files.Save(file_, bytes, isThere ? FormerFile::Replace : FormerFile::Refuse);
  session.Tell(kTitle, "\"" + row->file + "\" saved");
  return ExitStatus::Done;
}

ExitStatus AttachCommand::Delete(clsCorvanta& ledger, std::int64_t transactionId,
                                 Session& session) const {
  const auto present = ledger.Notes().AttachmentsOf(transactionId);
  if (present.empty()) {
    return session.Refuse(kTitle, "No file is attached to this transaction.");
  }
  const auto one = which_ ? TheOne(ledger, transactionId, session) : std::nullopt;
  if (which_ && !one) return ExitStatus::Refused;
  const std::size_t count = one ? 1 : present.size();
  if (!AskDeleteItems(session.Machine().prompts, count)) return ExitStatus::Refused;
  if (one) {
    ledger.Notes().DeleteAttachment(one->attachmentId);
  } else {
    ledger.Notes().DeleteAttachments(transactionId);
  }
  session.Tell(kTitle, count == 1 ? "\"" + (one ? *one : present.front()).file + "\" detached"
                                  : std::to_string(count) + " files detached");
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
