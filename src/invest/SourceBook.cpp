#include "invest/SourceBook.h"

#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline invest {
namespace {

constexpr const char* kOwnTable = "own_Sources";

AnswerKind KindOf(std::int64_t kept, std::int64_t occur) {
  if (kept == static_cast<std::int64_t>(AnswerKind::Column)) return AnswerKind::Column;
  if (kept == static_cast<std::int64_t>(AnswerKind::Pointer)) return AnswerKind::Pointer;
  return occur >= 1 ? AnswerKind::Page : AnswerKind::Line;
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
  SourceRow source;
  source.dataId = rows.Int("DataID");
  source.name = rows.Text("Name");
  source.url = rows.Text("URL");
  source.key = rows.Text("Key");
  source.type = rows.Text("Type");
  source.lookUpUrl = rows.Text("LookUpUrl");
  source.occur = rows.Int("Occur");
  source.start = rows.Text("Start");
  ReadOwn(source);
  return source;
}

void SourceBook::ReadOwn(SourceRow& source) {
  source.kind = KindOf(0, source.occur);
  if (connection_.Table(kOwnTable) == nullptr) return;
  const Recordset row = connection_.OpenRecordset(std::string("Select * from ") + kOwnTable +
                                                  " Where DataID = " + SqlNumber(source.dataId));
  if (row.Eof()) return;
  source.kind = KindOf(row.Int("Kind"), source.occur);
  source.field = row.Text("Field");
  source.ownKey = row.Text("OwnKey");
}

}  // namespace corvanta::inline invest
