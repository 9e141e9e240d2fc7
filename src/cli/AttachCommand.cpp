#include "cli/AttachCommand.h"

#include "cli/OutputTable.h"
#include "cli/Session.h"
#include "ledger/KeywordBook.h"
#include "ledger/ReferenceBook.h"
#include "ledger/ReferenceRecords.h"
#include "ledger/clsCorvanta.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "reference/Deletion.h"

#include <CLI/CLI.hpp>

#include <filesystem>

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Attachment";

}  // namespace

CLI::App* AttachCommand::Declare(CLI::App& parser) {
  CLI::App* command = parser.add_subcommand("attach", "The file attached to a transaction");
  command->require_subcommand(1);
  list_ = command->add_subcommand("list", "Show the attached file");
  add_ = command->add_subcommand("add", "Attach a file, which stays where it is");
  CLI::App* remove = command->add_subcommand("delete", "Detach the file, which stays where it is");
  for (CLI::App* form : {list_, add_, remove}) transaction_.DeclareOne(*form);
  add_->add_option("file", file_, "The file to attach")->required();
  return command;
}

ExitStatus AttachCommand::Run(Session& session) {
  const bool reads = list_->parsed();
  const std::optional<DataFile> file = session.Open(reads ? Access::Read : Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const auto rows = transaction_.Find(ledger, session);
  if (!rows) return ExitStatus::Refused;
  const std::int64_t transactionId = rows->front().transactionId;
  if (reads) return List(ledger, transactionId, session);
  if (RefuseClosed(*rows, session)) return ExitStatus::Refused;
  return add_->parsed() ? Add(ledger, transactionId, session)
                        : Delete(ledger, transactionId, session);
}

ExitStatus AttachCommand::List(clsCorvanta& ledger, std::int64_t transactionId,
                               Session& session) const {
  OutputTable table({{"ID", OutputKind::Integer}, {"File"}, {"Path"}, {"Store"}});
  for (const AttachmentRecord& row : ledger.Notes().AttachmentsOf(transactionId)) {
    table.AddRow({row.attachmentId, row.file, row.path, row.store});
  }
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus AttachCommand::Add(clsCorvanta& ledger, std::int64_t transactionId,
                              Session& session) const {
  if (!FileExists(file_)) return session.Refuse(kTitle, "There is no file \"" + file_ + "\".");
  const auto present = ledger.Notes().AttachmentsOf(transactionId);
  if (!present.empty()) {
    return session.Refuse(kTitle, "\"" + present.front().file +
                                      "\" is attached to this transaction. Delete it first.");
  }
  // It is looked up from wherever the program is started next.
  const auto path = std::filesystem::absolute(file_).lexically_normal();
  AttachmentRecord record{0, transactionId, path.filename().string(), path.string(), {}};
  if (const auto problem = ledger.References().TooLong(
          "tblAttachments", {{"AttachmentFile", record.file}, {"AttachmentPath", record.path}})) {
    return session.Refuse(kTitle, problem->text);
  }
  ledger.Notes().AddAttachment(record);
  session.Tell(kTitle, "\"" + record.file + "\" attached");
  return ExitStatus::Done;
}

ExitStatus AttachCommand::Delete(clsCorvanta& ledger, std::int64_t transactionId,
                                 Session& session) const {
  const auto present = ledger.Notes().AttachmentsOf(transactionId);
  if (present.empty()) {
    return session.Refuse(kTitle, "No file is attached to this transaction.");
  }
  if (!AskDelete(session.Machine().prompts)) return ExitStatus::Refused;
  ledger.Notes().DeleteAttachments(transactionId);
  session.Tell(kTitle, "\"" + present.front().file + "\" detached");
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
