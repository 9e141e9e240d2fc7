#include "ledger/transactions/AttachedFiles.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/StoreError.h"

#include <sodium.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <set>

namespace corvanta::inline ledger {
namespace {

namespace fs = std::filesystem;

constexpr const char* kContents = "own_AttachedFiles";
constexpr std::string_view kInside = "inside:";
constexpr std::size_t kLongestPath = 255;  // of the column
constexpr std::size_t kLongestStem = 180;  // bytes
constexpr int kBase64 = sodium_base64_VARIANT_ORIGINAL;

// The columns of the data file hold texts; as this one a file is whole in each of them.
std::string ToText(std::string_view bytes) {
  std::string text(sodium_base64_encoded_len(bytes.size(), kBase64), '\0');
  sodium_bin2base64(text.data(), text.size(), reinterpret_cast<const unsigned char*>(bytes.data()),
                    bytes.size(), kBase64);
  text.pop_back();  // the library's closing zero
  return text;
}

std::optional<std::string> FromText(std::string_view text) {
  std::string bytes(text.size() / 4 * 3 + 3, '\0');
  std::size_t size = 0;
  const int result = sodium_base642bin(reinterpret_cast<unsigned char*>(bytes.data()), bytes.size(),
                                       text.data(), text.size(), nullptr, &size, nullptr, kBase64);
  if (result != 0) return std::nullopt;
  bytes.resize(size);
  return bytes;
}

std::string InFolder(const std::string& name) {
  return std::string(kFileStore) + '/' + name;
}

// Of a name that ends in ".pdf": "name (2).pdf"; the name itself for the first.
std::string NumberedName(const fs::path& path, int number) {
  std::string stem = path.stem().string();
  if (stem.size() > kLongestStem) stem.resize(kLongestStem);
  // Not in the middle of a letter.
  while (!stem.empty() && (static_cast<unsigned char>(stem.back()) & 0xC0U) == 0x80U &&
         stem.size() == kLongestStem) {
    stem.pop_back();
  }
  if (number > 1) stem += " (" + std::to_string(number) + ')';
  return stem + path.extension().string();
}

StoreError Gone() {
  return {StoreErrorCode::Sql,
          "The attached file is no longer in the data file. Nothing was changed. Attach it again."};
}

}  // namespace

AttachmentMode ModeOf(const AttachmentRecord& row) {
  if (row.store.empty()) return AttachmentMode::Path;
  return row.store.starts_with(kInside) ? AttachmentMode::Inside : AttachmentMode::Folder;
}

std::vector<AttachmentRecord> AttachedFiles::Read(const std::string& condition) {
  std::vector<AttachmentRecord> attachments;
  Recordset rows = core_.store.OpenRecordset("Select * from tblAttachments" + condition +
                                             " Order by AttachmentID");
  for (; !rows.Eof(); rows.MoveNext()) {
    attachments.push_back({rows.Int("AttachmentID"), rows.Int("TransactionID"),
                           rows.Text("AttachmentFile"), rows.Text("AttachmentPath"),
                           rows.Text("AttachmentStore")});
  }
  return attachments;
}

std::vector<AttachmentRecord> AttachedFiles::Of(std::int64_t transactionId) {
  return Read(" Where TransactionId =" + SqlNumber(transactionId));
}

std::optional<AttachmentRecord> AttachedFiles::Find(std::int64_t attachmentId) {
  auto rows = Read(" Where AttachmentID =" + SqlNumber(attachmentId));
  return rows.empty() ? std::nullopt : std::optional(std::move(rows.front()));
}

std::vector<AttachmentRecord> AttachedFiles::All() {
  return Read({});
}

std::vector<AttachmentRecord> AttachedFiles::All(AttachmentMode mode) {
  std::vector<AttachmentRecord> rows = All();
  std::erase_if(rows, [mode](const AttachmentRecord& row) { return ModeOf(row) != mode; });
  return rows;
}

std::string AttachedFiles::Folder() const {
  return (fs::path(core_.store.Path()).parent_path() / kFileStore).string();
}

std::string AttachedFiles::PathOf(const AttachmentRecord& row) const {
  switch (ModeOf(row)) {
    case AttachmentMode::Path:
      return row.path;
    case AttachmentMode::Folder:
      // Whatever the row says, it leads nowhere but into the folder.
      return (fs::path(Folder()) / fs::path(row.store).filename()).string();
    default:
      return {};
  }
}

std::int64_t AttachedFiles::ContentKey(const AttachmentRecord& row) const {
  const std::string_view number = std::string_view(row.store).substr(kInside.size());
  std::int64_t key = 0;
  std::from_chars(number.data(), number.data() + number.size(), key);
  // A file that was only read since the program knows such contents has none.
  return core_.store.Table(kContents) == nullptr ? 0 : key;
}

std::optional<std::size_t> AttachedFiles::SizeOf(const AttachmentRecord& row) {
  if (ModeOf(row) == AttachmentMode::Inside) {
    const std::int64_t key = ContentKey(row);
    if (key == 0) return std::nullopt;
    const Value bytes = core_.store.QueryValue(
        "Select Bytes from own_AttachedFiles Where FileID = " + SqlNumber(key));
    return bytes.IsNull() ? std::nullopt : std::optional(static_cast<std::size_t>(bytes.Int()));
  }
  std::error_code error;
  const std::uintmax_t size = fs::file_size(PathOf(row), error);
  return error ? std::nullopt : std::optional(static_cast<std::size_t>(size));
}

bool AttachedFiles::IsThere(const AttachmentRecord& row) {
  return SizeOf(row).has_value();
}

std::size_t AttachedFiles::CountMissing() {
  const std::vector<AttachmentRecord> rows = All();
  return static_cast<std::size_t>(
      std::ranges::count_if(rows, [this](const AttachmentRecord& row) { return !IsThere(row); }));
}

std::string AttachedFiles::Content(const AttachmentRecord& row) {
  if (ModeOf(row) != AttachmentMode::Inside) return ReadFile(PathOf(row), kMaxInFolder);
  const std::int64_t key = ContentKey(row);
  if (key == 0) throw Gone();
  const Recordset content = core_.store.OpenRecordset(
      "Select Content, Bytes from own_AttachedFiles Where FileID = " + SqlNumber(key));
  if (content.Eof()) throw Gone();
  auto bytes = FromText(content.Text(0));
  if (!bytes || bytes->size() != static_cast<std::size_t>(content.Int(1))) throw Gone();
  return *std::move(bytes);
}

std::int64_t AttachedFiles::Attach(std::int64_t transactionId, const std::string& path,
                                   AttachmentMode mode) {
  core_.closed.RequireOpenOf(transactionId);
  // It is looked up from wherever the program is started next.
  const fs::path from = fs::absolute(path).lexically_normal();
  AttachmentRecord record{0, transactionId, from.filename().string(), from.string(), {}};
  if (mode == AttachmentMode::Path) {
    std::error_code error;
    if (!fs::is_regular_file(from, error)) (void)ReadFile(path, 0);
    return AddRow(record);
  }
  // Where the copy came from is only told.
  if (record.path.size() > kLongestPath) record.path.clear();
  if (mode == AttachmentMode::Inside) {
    const std::string bytes = ReadFile(record.path.empty() ? path : record.path, kMaxInside);
    const UndoLog::Step step = core_.undo.Begin("Attach File");
    Transaction all = core_.store.Begin();
    record.store = StoreInside(bytes);
    const std::int64_t key = AddRow(record);
    all.Commit();
    return key;
  }
  record.store = CopyToFolder(from.string());
  try {
    return AddRow(record);
  } catch (...) {
    core_.platform.files.Remove(PathOf(record));
    throw;
  }
}

std::int64_t AttachedFiles::AddRow(const AttachmentRecord& record) {
  core_.closed.RequireOpenOf(record.transactionId);
  const UndoLog::Step step = core_.undo.Begin("Attach File");
  return core_.SaveRow("tblAttachments", "AttachmentID", 0,
                       {{"TransactionID", record.transactionId},
                        {"AttachmentFile", record.file},
                        {"AttachmentPath", record.path},
                        {"AttachmentStore", record.store}});
}

std::string AttachedFiles::CopyToFolder(const std::string& path) {
  constexpr int kMaxOfAName = 10000;
  const std::string bytes = ReadFile(path, kMaxInFolder);
  core_.platform.files.CreateFolder(Folder());
  for (int number = 1; number < kMaxOfAName; ++number) {
    const std::string name = NumberedName(path, number);
    const std::string copy = Folder() + '/' + name;
    std::error_code error;
    if (fs::symlink_status(copy, error).type() != fs::file_type::not_found) continue;
    core_.platform.files.Save(copy, bytes, FormerFile::Refuse);
    return InFolder(name);
  }
  throw PlatformError("The folder " + Folder() +
                      " holds too many files of that name. Nothing was "
                      "changed. Give the file another name.");
}

std::string AttachedFiles::StoreInside(std::string_view bytes) {
  const std::int64_t key = core_.SaveRow(
      kContents, "FileID", 0,
      {{"Bytes", static_cast<std::int64_t>(bytes.size())}, {"Content", ToText(bytes)}});
  return std::string(kInside) + std::to_string(key);
}

void AttachedFiles::Replace(std::int64_t attachmentId, std::string_view bytes) {
  const auto row = Find(attachmentId);
  if (!row || ModeOf(*row) != AttachmentMode::Inside) throw Gone();
  core_.closed.RequireOpenOf(row->transactionId);
  const UndoLog::Step step = core_.undo.Begin("Edit Attachment");
  Transaction all = core_.store.Begin();
  core_.SaveRow("tblAttachments", "AttachmentID", attachmentId,
                {{"AttachmentStore", StoreInside(bytes)}});
  // The former bytes go unless a copy of the row names them.
  const bool isShared = core_.ReadKey(
                            "Select AttachmentID from tblAttachments Where "
                            "AttachmentStore = " +
                                SqlText(row->store),
                            "AttachmentID") != 0;
  if (!isShared) {
    core_.store.Execute("Delete from own_AttachedFiles Where FileID = " +
                        SqlNumber(ContentKey(*row)));
  }
  all.Commit();
}

void AttachedFiles::DeleteRows(const std::string& condition) {
  std::set<std::string> stores;
  {
    Recordset rows = core_.store.OpenRecordset("Select AttachmentStore from tblAttachments Where " +
                                               condition + " AND AttachmentStore LIKE 'inside:%'");
    for (; !rows.Eof(); rows.MoveNext()) stores.emplace(rows.Text(0));
  }
  core_.store.Execute("Delete from tblAttachments Where " + condition);
  for (const std::string& store : stores) {
    const std::int64_t key = ContentKey({0, 0, {}, {}, store});
    const std::int64_t other = core_.ReadKey(
        "Select AttachmentID from tblAttachments Where AttachmentStore = " + SqlText(store),
        "AttachmentID");
    if (key == 0 || other != 0) continue;
    core_.store.Execute("Delete from own_AttachedFiles Where FileID = " + SqlNumber(key));
  }
}

std::vector<std::string> AttachedFiles::Unused() {
  std::set<std::string> named;
  for (const AttachmentRecord& row : All(AttachmentMode::Folder)) {
    named.insert(fs::path(row.store).filename().string());
  }
  std::vector<std::string> unused;
  std::error_code error;
  for (fs::directory_iterator entry(Folder(), error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (entry->is_regular_file(error) && !named.contains(name)) unused.push_back(name);
  }
  std::ranges::sort(unused);
  return unused;
}

}  // namespace corvanta::inline ledger
