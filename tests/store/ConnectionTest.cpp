// Opening refuses what it must, says what is wrong, and leaves the file as it was.
#include "platform/Files.h"
#include "store/datafile/Compact.h"
#include "store/datafile/schema/AccessPaths.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/StoreError.h"
#include "store/sql/engine/OpenFile.h"
#include "support/FixedClock.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>

namespace corvanta {
namespace {

class ConnectionFile : public testing::Test {
 protected:
  ConnectionFile() : source_{folder_.Path("Corvanta.dat"), "secret", ""} {
    const auto connection = Connection::Create(source_, clock_);
    connection->Execute(
        "CREATE TABLE tblNotes (NoteID Counter, Note TEXT(200), CONSTRAINT PK_Notes "
        "PRIMARY KEY(NoteID))");
    connection->Execute("CREATE INDEX ByNote ON tblNotes (Note)");
    Transaction rows = connection->Begin();
    for (int i = 0; i < 2000; ++i) {
      connection->Execute("INSERT INTO tblNotes (Note) VALUES ('A note that is to be found " +
                          std::to_string(i) + "')");
    }
    rows.Commit();
    connection->Execute("DELETE FROM tblNotes WHERE NoteID > 1990");
  }

  [[nodiscard]] std::string Bytes() const { return ReadFile(source_.path); }

  void Write(const std::string& bytes) const {
    std::ofstream(source_.path, std::ios::binary | std::ios::trunc) << bytes;
  }

  [[nodiscard]] StoreErrorCode Refusal(const DataSource& source) const {
    try {
      (void)Connection::Open(source, clock_);
    } catch (const StoreError& error) {
      EXPECT_EQ(std::string(error.what()).find("secret"), std::string::npos);
      return error.Code();
    }
    ADD_FAILURE() << "not refused";
    return StoreErrorCode::Io;
  }

  TemporaryFolder folder_;
  FixedClock clock_;
  DataSource source_;
};

TEST_F(ConnectionFile, AVisitMeetsEveryRowOnce) {
  const auto connection = Connection::Open(source_, clock_);
  const auto visit = [&](int from, const RowVisitor& visitor) {
    Recordset::Visit(*connection,
                     "SELECT NoteID, Note, NULL, NoteID / 4 FROM tblNotes WHERE NoteID > " +
                         std::to_string(from),
                     visitor);
  };
  for (const int from : {0, 1985, 5000}) {
    std::map<std::int64_t, std::string> met;
    visit(from, [&](const VisitedRow& row) {
      EXPECT_TRUE(row.IsNull(2) && row.Text(2).empty() && row.Int(2) == 0);
      EXPECT_DOUBLE_EQ(row.Double(3), static_cast<double>(row.Int(0)) / 4);
      met.emplace(row.Int(0), row.Text(1));
    });
    std::map<std::int64_t, std::string> expected;
    Recordset rows = connection->OpenRecordset("SELECT NoteID, Note FROM tblNotes WHERE NoteID > " +
                                               std::to_string(from));
    for (; !rows.Eof(); rows.MoveNext()) expected.emplace(rows.Int(0), rows.Text(1));
    EXPECT_EQ(met, expected);
  }
  EXPECT_THROW(Recordset::Visit(*connection, "CREATE TABLE tblOther (A INT)", {}), StoreError);
}

TEST_F(ConnectionFile, AVisitMayVisitAndMayFail) {
  const auto connection = Connection::Open(source_, clock_);
  const std::string all = "SELECT NoteID FROM tblNotes WHERE Note LIKE 'A note%' AND NoteID <= ";
  int inner = 0;
  int outer = 0;
  Recordset::Visit(*connection, all + "3", [&](const VisitedRow&) {
    ++outer;
    Recordset::Visit(*connection, all + "2", [&](const VisitedRow&) { ++inner; });
    (void)connection->QueryValue("SELECT NoteID FROM tblNotes WHERE Note = 'another text of them'");
  });
  EXPECT_EQ(outer, 3);
  EXPECT_EQ(inner, 6);
  int met = 0;
  const auto fail = [&](const VisitedRow&) {
    if (++met == 10) throw std::invalid_argument("enough");
  };
  EXPECT_THROW(Recordset::Visit(*connection, all + "100", fail), std::invalid_argument);
  EXPECT_EQ(met, 10);
  // Nothing holds the file any more.
  connection->Execute("DELETE FROM tblNotes WHERE NoteID = 1");
  Recordset::Visit(*connection, all + "3", [&](const VisitedRow&) { ++outer; });
  EXPECT_EQ(outer, 5);
}

TEST_F(ConnectionFile, AnAccessPathOfFormerColumnsIsMadeAnew) {
  const auto open = [this] { return Connection::Open(source_, clock_); };
  open()->Execute(
      "CREATE TABLE tblHistory (HistoryID Counter, PayeeID INT, [Date] DATETIME, CONSTRAINT "
      "PK_History PRIMARY KEY(HistoryID))");
  corvanta::Run(OpenFile(source_, clock_).get(), "CREATE INDEX fast_Price ON tblHistory (PayeeID)",
                source_.path);
  EnsureAccessPaths(*open());
  const auto renewed = [this] {
    return QueryNumber(OpenFile(source_, clock_).get(),
                       "SELECT count(*) FROM sqlite_master WHERE name = 'fast_Price' AND sql LIKE "
                       "'%Date%'",
                       source_.path);
  };
  EXPECT_EQ(renewed(), 1);
  const std::string before = Bytes();
  EnsureAccessPaths(*open());
  EXPECT_EQ(Bytes(), before) << "what is right is left alone";
}

TEST_F(ConnectionFile, ForeignAndDamagedFilesAreToldApart) {
  const std::string whole = Bytes();
  ASSERT_EQ(whole.find("note"), std::string::npos) << "the file must be enciphered";
  struct Case {
    const char* what;
    std::function<std::string(std::string)> spoil;
    StoreErrorCode code;
  };
  const Case cases[] = {
      {"empty", [](const std::string&) { return std::string(); }, StoreErrorCode::Damaged},
      {"a text", [](const std::string&) { return std::string("Dear diary,\n"); },
       StoreErrorCode::NotADataFile},
      {"a long text", [](const std::string&) { return std::string(9000, 'x'); },
       StoreErrorCode::NotADataFile},
      {"a plain database",
       [](const std::string& bytes) {
         return std::string("SQLite format 3\0", 16) + std::string(bytes.size() - 16, '\0');
       },
       StoreErrorCode::NotADataFile},
      {"damaged at its beginning",
       [](std::string bytes) {
         bytes.replace(40, 4, bytes[40] == '?' ? "!!!!" : "????");
         return bytes;
       },
       StoreErrorCode::Damaged},
      {"cut off at a page", [](const std::string& bytes) { return bytes.substr(0, 8 * 4096); },
       StoreErrorCode::Damaged},
      {"cut off in a page",
       [](const std::string& bytes) { return bytes.substr(0, 4096 * 9 - 100); },
       StoreErrorCode::Damaged}};
  for (const Case& row : cases) {
    const std::string spoilt = row.spoil(whole);
    Write(spoilt);
    EXPECT_EQ(Refusal(source_), row.code) << row.what;
    EXPECT_EQ(Bytes(), spoilt) << row.what;
  }
  Write(whole);
  // The library has words of its own for it, which are none for a person.
  testing::internal::CaptureStderr();
  EXPECT_EQ(Refusal({source_.path, "another", ""}), StoreErrorCode::OtherInstallation);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(Refusal({folder_.Path("none.dat"), "secret", ""}), StoreErrorCode::Missing);
  EXPECT_FALSE(FileExists(folder_.Path("none.dat")));
  ASSERT_EQ(mkfifo(folder_.Path("pipe.dat").c_str(), 0600), 0);
  EXPECT_EQ(Refusal({folder_.Path("pipe.dat"), "secret", ""}), StoreErrorCode::NotADataFile);
  EXPECT_EQ(Bytes(), whole);
  EXPECT_NO_THROW((void)Connection::Open(source_, clock_));
}

TEST_F(ConnectionFile, NewFilesAreForTheirOwnerAlone) {
  struct stat status {};
  ASSERT_EQ(stat(source_.path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST_F(ConnectionFile, ReadOnlyFilesAreReadAndNotChanged) {
  const std::string bytes = Bytes();
  chmod(source_.path.c_str(), 0444);
  const auto connection = Connection::Open(source_, clock_);
  EXPECT_TRUE(connection->Check().empty());
  try {
    connection->Execute("CREATE TABLE tblNew (ID INT)");
    FAIL();
  } catch (const StoreError& error) {
    EXPECT_EQ(error.Code(), StoreErrorCode::ReadOnly);
  }
  EXPECT_EQ(Bytes(), bytes);
  chmod(source_.path.c_str(), 0600);
}

TEST_F(ConnectionFile, DamageInsideIsFoundByTheCheckAndWhereItIsRead) {
  EXPECT_TRUE(Connection::Open(source_, clock_)->Check().empty());
  std::string bytes = Bytes();
  const std::size_t pages = bytes.size() / 4096;
  for (std::size_t page = 2; page < pages; ++page) {
    bytes.replace(page * 4096 + 2000, 8, "DAMAGED!");
  }
  Write(bytes);
  const auto connection = Connection::Open(source_, clock_);
  EXPECT_FALSE(connection->Check().empty());
  try {
    (void)connection->QueryValue("SELECT Count(*) FROM tblNotes WHERE Note LIKE '%x%'");
    FAIL() << "damaged pages were read";
  } catch (const StoreError& error) {
    EXPECT_EQ(error.Code(), StoreErrorCode::Damaged);
  }
}

TEST_F(ConnectionFile, CompactionChangesThePasswordAndCopiesExactly) {
  SystemFiles files;
  const DataSource target{folder_.Path("Corvanta.000"), "it's \"another\"", ""};
  const std::string before = Bytes();
  CompactDatabase(source_, target, clock_, files);
  EXPECT_EQ(Bytes(), before);
  EXPECT_EQ(Refusal({target.path, "secret", ""}), StoreErrorCode::OtherInstallation);
  const auto copy = Connection::Open(target, clock_);
  EXPECT_EQ(copy->QueryValue("SELECT Count(*) FROM tblNotes").Int(), 1990);
  EXPECT_EQ(copy->Table("tblNotes")->primaryKeyName, "PK_Notes");
  EXPECT_NE(copy->Table("tblNotes")->Index("ByNote"), nullptr);
  copy->Execute("INSERT INTO tblNotes (Note) VALUES ('next')");
  EXPECT_EQ(copy->QueryValue("SELECT Max(NoteID) FROM tblNotes").Int(), 2001)
      << "keys of deleted rows must not come again";
  EXPECT_THROW(CompactDatabase(source_, target, clock_, files), StoreError);
  EXPECT_TRUE(FileExists(target.path)) << "a copy that stands there is not touched";
  EXPECT_THROW(
      CompactDatabase({source_.path, "wrong", ""}, {folder_.Path("x"), "y", ""}, clock_, files),
      StoreError);
  EXPECT_FALSE(FileExists(folder_.Path("x")));
}

TEST_F(ConnectionFile, ReadersSeeWholeStatesAndWritersWaitTheirTurn) {
  const auto writer = Connection::Open(source_, clock_);
  const auto reader = Connection::Open(source_, clock_);
  {
    Transaction change = writer->Begin();
    writer->Execute("DELETE FROM tblNotes");
    EXPECT_EQ(reader->QueryValue("SELECT Count(*) FROM tblNotes").Int(), 1990);
    change.Commit();
  }
  EXPECT_EQ(reader->QueryValue("SELECT Count(*) FROM tblNotes").Int(), 0);
  EXPECT_FALSE(FileExists(source_.path + "-journal"));
}

TEST_F(ConnectionFile, ConnectionTextsAreReadBothWays) {
  const DataSource source = DataSource::FromText(
      "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=/a b/c.dat;Jet OLEDB:Database Password=x;y=z");
  EXPECT_EQ(source.path, "/a b/c.dat");
  EXPECT_EQ(source.password, "x;y=z");
  EXPECT_EQ(DataSource::FromText(source.ToText()).ToText(), source.ToText());
  EXPECT_EQ(DataSource::FromText("Data Source=/x;Jet OLEDB:Database Password=").password, "");
  EXPECT_THROW((void)DataSource::FromText("nonsense"), StoreError);
}

}  // namespace
}  // namespace corvanta
