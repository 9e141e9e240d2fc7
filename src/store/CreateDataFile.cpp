#include "store/CreateDataFile.h"

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "store/Compact.h"
#include "store/Connection.h"
#include "store/SqlText.h"
#include "store/opening/FileSteps.h"
#include "store/schema/DefaultData.h"
#include "store/schema/SampleData.h"
#include "store/schema/Schema.h"
#include "store/schema/SchemaCheck.h"
#include "store/schema/Tolerant.h"

namespace corvanta {
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
void Build(const DataSource& draft, const DataSource& compacted, bool emptyFile,
           Platform& platform) {
  RemoveDataFile(draft.path, platform.files);
  CreateSchema(*Connection::Create(draft, platform.clock));

  RemoveDataFile(compacted.path, platform.files);
  CompactDatabase(draft, compacted, platform.clock, platform.files);
  platform.files.Replace(compacted.path, draft.path);

  const std::unique_ptr<Connection> connection = Connection::Open(draft, platform.clock);
  InsertRows(*connection, emptyFile, platform);
  CheckSchema(*connection);
  connection->EnsureAccessPaths();
}

}  // namespace

void CreateDataFile(const DataFileLocation& location, const std::string& password, bool emptyFile,
                    Platform& platform) {
  const DataSource draft{location.DraftPath(), password, {}};
  const DataSource compacted{location.CompactionPath(), password, {}};
  try {
    Build(draft, compacted, emptyFile, platform);
    InstallDataFile(draft.path, location.Path(), platform.files);
  } catch (...) {
    RemoveDataFileQuietly(draft.path, platform.files);
    RemoveDataFileQuietly(compacted.path, platform.files);
    throw;
  }
}

}  // namespace corvanta
