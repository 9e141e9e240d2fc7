#include "notes/AttachmentEditor.h"

#include "ledger/accounts/ClosedAccounts.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/transactions/KeywordBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Files.h"
#include "platform/Opener.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Settings.h"
#include "reference/Deletion.h"
#include "store/sql/StoreError.h"

#include <algorithm>
#include <filesystem>

namespace corvanta::inline notes {
namespace {

constexpr const char* kTitle = "Attachment";
constexpr const char* kCannotDisplay = "Can not display Attachment";
constexpr const char* kNoApplication = "There is no associated application with the selected file";

}  // namespace

const char* KeptText(AttachmentMode mode) {
  switch (mode) {
    case AttachmentMode::Folder:
      return "in the folder FileStore";
    case AttachmentMode::Inside:
      return "in the data file";
    default:
      return "where it was";
  }
}

std::vector<AttachmentRecord> AttachmentEditor::Attachments() {
  return ledger_.Notes().AttachmentsOf(transactionId_);
}

AttachmentMode AttachmentEditor::Keeping() const {
  const Settings settings(platform_.registry);
  if (settings.IsOn(Setting::AttachInside)) return AttachmentMode::Inside;
  return settings.IsOn(Setting::LocalFS) ? AttachmentMode::Folder : AttachmentMode::Path;
}

void AttachmentEditor::Keep(AttachmentMode mode) {
  Settings settings(platform_.registry);
  settings.SetOn(Setting::AttachInside, mode == AttachmentMode::Inside);
  if (mode != AttachmentMode::Inside) {
    settings.SetOn(Setting::LocalFS, mode == AttachmentMode::Folder);
  }
}

bool AttachmentEditor::IsClosed() {
  const auto row = ledger_.Transactions().ReadTransaction(transactionId_);
  return row && row->accountClosed;
}

bool AttachmentEditor::RefuseClosed() {
  if (!IsClosed()) return false;
  platform_.prompts.Tell(kAmendItem, kAccountClosed);
  return true;
}

std::optional<Warning> AttachmentEditor::CheckAdd(const std::string& path, AttachmentMode mode) {
  if (IsClosed()) return Warning{kAmendItem, kAccountClosed, {}};
  if (!FileExists(path)) return Warning{kTitle, "There is no file \"" + path + "\".", {}};
  if (mode == AttachmentMode::Inside) return std::nullopt;
  for (const AttachmentRecord& row : Attachments()) {
    if (ModeOf(row) == AttachmentMode::Inside) continue;
    return Warning{kTitle,
                   "\"" + row.file +
                       "\" is attached to this transaction. Remove it first, or keep the new file "
                       "in the data file, where a transaction may have several.",
                   {}};
  }
  if (mode == AttachmentMode::Folder) return std::nullopt;
  const auto whole = std::filesystem::absolute(path).lexically_normal().string();
  if (const auto problem =
          ledger_.References().TooLong("tblAttachments", {{"AttachmentPath", whole}})) {
    return Warning{kTitle, problem->text, {}};
  }
  return std::nullopt;
}

bool AttachmentEditor::Add() {
  if (RefuseClosed()) return false;
  const auto path = platform_.prompts.OpenFile(
      {"Select File to Attach", "All Supported Files", "*.*", std::string(), std::string()});
  return path && AddFile(*path);
}

bool AttachmentEditor::AddFile(const std::string& path) {
  if (const auto warning = CheckAdd(path, Keeping())) {
    platform_.prompts.Tell(warning->title, warning->text);
    return false;
  }
  ledger_.Notes().Files().Attach(transactionId_, path, Keeping());
  return true;
}

bool AttachmentEditor::Remove(const AttachmentRecord& row) {
  if (RefuseClosed() || !AskDelete(platform_.prompts)) return false;
  ledger_.Notes().DeleteAttachment(row.attachmentId);
  return true;
}

void AttachmentEditor::Open(const AttachmentRecord& row) {
  HandOver(row, false);
}

void AttachmentEditor::Edit(const AttachmentRecord& row) {
  if (!RefuseClosed()) HandOver(row, true);
}

void AttachmentEditor::HandOver(const AttachmentRecord& row, bool isToBeChanged) {
  TellLeftovers(ledger_, platform_);
  if (!ledger_.Notes().Files().IsThere(row)) {
    return platform_.prompts.Tell(kTitle, kCannotDisplay, Icon::Warning);
  }
  std::string path;
  try {
    OpenedAttachments& opened = ledger_.Notes().Opened();
    path = isToBeChanged ? opened.PathToEdit(row) : opened.PathToOpen(row);
  } catch (const StoreError& error) {
    if (!error.IsStatementFault()) throw;
    return platform_.prompts.Tell(kTitle, kCannotDisplay, Icon::Warning);
  }
  if (!platform_.opener.Open(path)) platform_.prompts.Tell(kTitle, kNoApplication, Icon::Warning);
}

bool AttachmentEditor::SaveAs(const AttachmentRecord& row) {
  if (!ledger_.Notes().Files().IsThere(row)) {
    platform_.prompts.Tell(kTitle, kCannotDisplay, Icon::Warning);
    return false;
  }
  std::string ending = std::filesystem::path(row.file).extension().string();
  if (!ending.empty()) ending.erase(0, 1);
  const auto path = platform_.prompts.SaveFile(
      {"Save Attachment", "All Supported Files", "*.*", ending, std::string()});
  if (!path) return false;
  platform_.files.Save(*path, ledger_.Notes().Files().Content(row), FormerFile::Replace);
  return true;
}

bool AttachmentEditor::TakeBack() {
  return !ledger_.Notes().Opened().TakeBack().empty();
}

void TellLeftovers(clsCorvanta& ledger, Platform& platform) {
  for (const std::string& path : ledger.Notes().Opened().Leftovers()) {
    platform.prompts.Tell(kTitle,
                          "An attached file was being edited when the program ended. What was "
                          "changed is kept here:\n\n" +
                              path + "\n\nAttach it again, or delete it.",
                          Icon::Warning);
  }
}

}  // namespace corvanta::inline notes
