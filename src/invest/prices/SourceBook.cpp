#include "invest/prices/SourceBook.h"

#include "platform/TextCase.h"
#include "store/datafile/schema/AccessPaths.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <array>

namespace corvanta::inline invest {
namespace {

constexpr const char* kOwnTable = "own_Sources";
constexpr const char* kColumns =
    "Select DataID,[Name],[URL], [KEY], [Type], LookUpUrl, [Occur], [Start] FROM tblStockData";
// What a source is put before others with; a later one where the earlier do not suffice.
constexpr std::array<std::string_view, 4> kBeforeOthers = {"1. ", "0. ", "! ", "  "};
constexpr std::size_t kLongestName = 50;

AnswerKind KindOf(std::int64_t kept, std::int64_t occur) {
  if (kept == static_cast<std::int64_t>(AnswerKind::Column)) return AnswerKind::Column;
  if (kept == static_cast<std::int64_t>(AnswerKind::Pointer)) return AnswerKind::Pointer;
  return occur >= 1 ? AnswerKind::Page : AnswerKind::Line;
}

bool HasOwn(const SourceRow& source) {
  return source.kind == AnswerKind::Column || source.kind == AnswerKind::Pointer ||
         !source.ownKey.empty();
}

std::string OfKey(std::int64_t dataId) {
  return " Where DataID = " + SqlNumber(dataId);
}

SourceRow RowOf(const Recordset& rows) {
  SourceRow source;
  source.dataId = rows.Int("DataID");
  source.name = rows.Text("Name");
  source.url = rows.Text("URL");
  source.key = rows.Text("Key");
  source.type = rows.Text("Type");
  source.lookUpUrl = rows.Text("LookUpUrl");
  source.occur = rows.Int("Occur");
  source.start = rows.Text("Start");
  return source;
}

// As much of the name as its column holds beside what stands before it.
std::string Behind(std::string_view prefix, std::string name) {
  while (TextLength(name) + prefix.size() > kLongestName) {
    name.pop_back();
    // Not in the middle of a character.
    while (!name.empty() && (static_cast<unsigned char>(name.back()) & 0xC0U) == 0x80U) {
      name.pop_back();
    }
  }
  return std::string(prefix) + name;
}

std::string Plain(std::string name) {
  for (const std::string_view prefix : kBeforeOthers) {
    if (name.starts_with(prefix)) name.erase(0, prefix.size());
  }
  return name;
}

}  // namespace

std::optional<SourceRow> SourceBook::GetSourceRow(std::string_view type, std::int64_t dataId) {
  std::string sql =
      "Select DataID,[Name],[URL], [KEY], [Type], LookUpUrl, [Occur], [Start] "
      "FROM tblStockData WHERE ";
  sql += dataId != 0 ? "DataID = " + SqlNumber(dataId)
                     : "UCASE([Type]) =" + SqlText(type) + " Order by [Name] ASC";
  const Recordset rows = connection_.OpenRecordset(sql);
  if (rows.Eof()) return std::nullopt;
  SourceRow source = RowOf(rows);
  ReadOwn(source);
  return source;
}

std::vector<SourceRow> SourceBook::SourcesOf(std::string_view type) {
  std::vector<SourceRow> sources;
  const std::string condition =
      type.empty() ? std::string() : " WHERE UCASE([Type])=" + SqlText(type);
  Recordset rows = connection_.OpenRecordset(kColumns + condition + " Order by [Type], [Name]");
  for (; !rows.Eof(); rows.MoveNext()) sources.push_back(RowOf(rows));
  for (SourceRow& source : sources) ReadOwn(source);
  return sources;
}

void SourceBook::ReadOwn(SourceRow& source) {
  source.kind = KindOf(0, source.occur);
  if (connection_.Table(kOwnTable) == nullptr) return;
  const Recordset row =
      connection_.OpenRecordset(std::string("Select * from ") + kOwnTable + OfKey(source.dataId));
  if (row.Eof()) return;
  source.kind = KindOf(row.Int("Kind"), source.occur);
  source.field = row.Text("Field");
  source.ownKey = row.Text("OwnKey");
}

void SourceBook::WriteOwn(const SourceRow& source) {
  if (connection_.Table(kOwnTable) == nullptr) {
    if (!HasOwn(source)) return;
    EnsureAccessPaths(connection_);
  }
  connection_.Execute(std::string("Delete From ") + kOwnTable + OfKey(source.dataId));
  if (!HasOwn(source)) return;
  connection_.Execute(std::string("Insert INTO ") + kOwnTable +
                      " (DataID, Kind, Field, OwnKey) VALUES (" + SqlNumber(source.dataId) + "," +
                      std::to_string(static_cast<int>(source.kind)) + "," + SqlText(source.field) +
                      "," + SqlText(source.ownKey) + ")");
}

std::int64_t SourceBook::Save(SourceRow& source) {
  Transaction all = connection_.Begin();
  if (source.dataId == 0) {
    const std::int64_t last =
        connection_.QueryValue("Select Max(DataID) as Highest from tblStockData").Int();
    source.dataId = std::max(last, kLastDefaultSource) + 1;
    connection_.Execute("INSERT INTO tblStockData (DataID,[Name]) VALUES (" +
                        SqlNumber(source.dataId) + "," + SqlText(source.name) + ")");
  }
  Recordset row = connection_.OpenRecordset("Select * from tblStockData" + OfKey(source.dataId));
  if (row.Eof()) return 0;
  row.Set("Name", source.name);
  row.Set("URL", source.url);
  row.Set("Key", source.key);
  row.Set("Type", source.type);
  row.Set("LookUpURL", source.lookUpUrl);
  row.Set("Occur", source.occur);
  row.Set("Start", source.start);
  row.Update();
  WriteOwn(source);
  all.Commit();
  return source.dataId;
}

void SourceBook::Delete(std::int64_t dataId) {
  Transaction all = connection_.Begin();
  connection_.Execute("Delete From tblStockData" + OfKey(dataId));
  SourceRow gone;
  gone.dataId = dataId;
  WriteOwn(gone);
  all.Commit();
}

std::int64_t SourceBook::UseOf(std::int64_t dataId) {
  return connection_
      .QueryValue("Select Count(*) as Uses from tblPayees Where Investment = 1 AND DataID = " +
                  SqlNumber(dataId))
      .Int();
}

void SourceBook::Rename(std::int64_t dataId, const std::string& name) {
  connection_.Execute("UPDATE tblStockData SET [Name] = " + SqlText(name) + OfKey(dataId));
}

std::string SourceBook::PutFirst(std::int64_t dataId) {
  Transaction all = connection_.Begin();
  std::string name;
  for (const SourceRow& source : SourcesOf(kCurrencySource)) {
    const std::string plain = Plain(source.name);
    if (source.dataId == dataId) name = plain;
    if (plain != source.name) Rename(source.dataId, plain);
  }
  const auto isFirst = [&] { return GetSourceRow(kCurrencySource, 0)->dataId == dataId; };
  std::string shown = name;
  for (const std::string_view prefix : kBeforeOthers) {
    if (name.empty() || isFirst()) break;
    shown = Behind(prefix, name);
    Rename(dataId, shown);
  }
  all.Commit();
  return shown;
}

}  // namespace corvanta::inline invest
