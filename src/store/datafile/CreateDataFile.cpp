#include "store/datafile/CreateDataFile.h"

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "store/datafile/Compact.h"
#include "store/datafile/opening/CompactionTarget.h"
#include "store/datafile/opening/DraftFile.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/datafile/schema/AccessPaths.h"
#include "store/datafile/schema/DefaultData.h"
#include "store/datafile/schema/KeptSums.h"
#include "store/datafile/schema/SampleData.h"
#include "store/datafile/schema/Schema.h"
#include "store/datafile/schema/SchemaCheck.h"
#include "store/datafile/schema/Tolerant.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"
#include "store/sql/StoreError.h"
#include "store/sql/engine/CopyMark.h"

namespace corvanta::inline datafile {
namespace {

void CreateSchema(Connection& connection) {
  Transaction transaction = connection.Begin();
  for (const TableText& table : SchemaTables()) ExecuteTolerant(connection, table.CreateSql());
  for (const TableText& table : SchemaTables()) {
    if (!table.index.empty()) ExecuteTolerant(connection, table.index);
  }
  transaction.Commit();
}

void ExecuteAll(Connection& connection, const std::vector<std::string>& statements) {
  for (const std::string& statement : statements) ExecuteTolerant(connection, statement);
}

void InsertSampleData(Connection& connection, const Platform& platform) {
  const std::int64_t currency =
      connection
          .QueryValue("Select CurrencyID from tblCurrency WHERE Currency =" +
                      SqlText(platform.locale.CurrencyCode()))
          .Int();
  ExecuteAll(connection, SampleDataStatements(platform.clock.Today(), currency));
}

void InsertRows(Connection& connection, bool emptyFile, const Platform& platform) {
  Transaction transaction = connection.Begin();
  ExecuteTolerant(connection,
                  "INSERT INTO tblVerification ([Password],UpdateSchedule,UpdateRun) "
                  "VALUES (Null,Null,Null)");
  ExecuteAll(connection, FixedRowStatements());
  ExecuteAll(connection, ReferenceRowStatements());
  if (!emptyFile) InsertSampleData(connection, platform);
  ExecuteTolerant(connection, "UPDATE tblVerification set UpdateRun = Now();");
  transaction.Commit();
}

// Built and compacted as the data file itself would be, only that nobody looks for it here yet.
void Build(const DataSource& draft, const DataSource& compacted, const CopyMark& mark,
           bool emptyFile, Platform& platform) {
  CreateMarked(draft, platform.clock, mark);
  CreateSchema(*Connection::Open(draft, platform.clock));

  CompactDatabase(draft, compacted, platform.clock, platform.files, mark);
  platform.files.Replace(compacted.path, draft.path);

  const std::unique_ptr<Connection> connection = Connection::Open(draft, platform.clock);
  InsertRows(*connection, emptyFile, platform);
  CheckSchema(*connection);
  EnsureAccessPaths(*connection);
  EnsurePartPaths(*connection, draft, platform.clock);
  EnsureKeptSums(*connection, draft, platform.clock);
}

void RequireFree(const std::string& path) {
  if (!IdentityOf(path).has_value()) return;
  throw StoreError(StoreErrorCode::Sql, "There is a file already, which is left as it is: " + path,
                   {}, path);
}

}  // namespace

void CreateDataFile(const DataFileLocation& location, const std::string& password, bool emptyFile,
                    Platform& platform, const Writer& writer) {
  const DataSource draft = DraftDataFile(location, password, emptyFile, platform, writer);
  InstallDraft(draft, location.Path(), platform);
}

DataSource DraftDataFile(const DataFileLocation& location, const std::string& password,
                         bool emptyFile, Platform& platform, const Writer& writer) {
  const CopyMark mark = DraftMark(location.fileName);
  const CompactionTarget target(location, writer);
  target.Clear(password, platform);
  DataSource draft{FreeDraftPath(location, mark, password, writer, platform), password, {}};
  const DataSource compacted{target.Path(), password, {}};
  try {
    Build(draft, compacted, mark, emptyFile, platform);
    return draft;
  } catch (...) {
    RemoveDataFileQuietly(draft.path, platform.files);
    RemoveDataFileQuietly(compacted.path, platform.files);
    throw;
  }
}

void InstallDraft(const DataSource& draft, const std::string& path, Platform& platform) {
  try {
    RequireFree(path);
    InstallDataFile(draft.path, path, platform.files);
  } catch (...) {
    RemoveDataFileQuietly(draft.path, platform.files);
    throw;
  }
  ClearMarkQuietly({path, draft.password, {}});
}

}  // namespace corvanta::inline datafile
