// Round trips of a whole data file: a backup and back, a passphrase and back, salvage. Each one
// proves that it brought every row and every balance back; one that did not ends in an error.
// Beside them what they cannot do without: the library reading every page of the file.
#include "BenchStore.h"
#include "platform/Files.h"
#include "safety/Backup.h"
#include "store/datafile/OpenDataFile.h"
#include "store/datafile/Passphrase.h"
#include "store/datafile/backup/SalvageDataFile.h"
#include "store/sql/SqlText.h"
#include "support/TemporaryStore.h"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <string>

namespace corvanta {
namespace {

// A data file of this machine's own with so many rows more than the sample has.
class OwnFile {
 public:
  explicit OwnFile(std::int64_t rows) : path_(PutDataFile(machine_)) {
    const DataFile file = Opener().OpenExisting(true);
    Transaction all = file.connection->Begin();
    const Date first = *Date::FromYmd(2016, 1, 1);
    for (std::int64_t i = 0; i < rows; ++i) {
      file.connection->Execute(
          "INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,"
          "[Amount],Description,[Date],BankChk,BankRec) VALUES (1,3,2,1,0," +
          SqlNumber(static_cast<double>(i % 2000 - 1200) / 10.0) + ",'Row " + std::to_string(i) +
          "'," + SqlDate(first.AddDays(static_cast<std::int32_t>(i * 3650 / rows))) + ",1,0)");
    }
    all.Commit();
    state_ = StateOf(*file.connection);
  }

  [[nodiscard]] DataFileOpener Opener() {
    DataFileOpener opener(machine_.Get(), "a benchmark");
    opener.SetDataPath(path_);
    return opener;
  }
  [[nodiscard]] Platform& Machine() { return machine_.Get(); }
  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] bool IsAsBefore(Connection& file) const { return StateOf(file) == state_; }

 private:
  // Rows and their sum, which no lost row leaves as it is.
  static std::string StateOf(Connection& file) {
    return file.QueryValue("SELECT COUNT(*) FROM tblTransactions").Text() + " " +
           file.QueryValue("SELECT SUM(TransactionID * [Amount]) FROM tblTransactions").Text();
  }

  TestPlatform machine_;
  std::string path_;
  std::string state_;
};

OwnFile& FileOf(std::int64_t rows) {
  static std::map<std::int64_t, std::unique_ptr<OwnFile>> files;
  std::unique_ptr<OwnFile>& file = files[rows];
  if (!file) file = std::make_unique<OwnFile>(rows);
  return *file;
}

// Slow on purpose, and no matter of the file's size.
const std::string& Phrase() {
  static const std::string password = NewPasswordFromPassphrase("correct horse battery");
  return password;
}

void PassphraseAndBack(benchmark::State& state) {
  OwnFile& file = FileOf(state.range(0));
  const std::string phrase = Phrase();
  for (auto _ : state) {
    DataFileOpener opener = file.Opener();
    opener.Protect(phrase);
    opener.Passwords().Learn(phrase);
    if (!WantsPassphrase(file.Path()) || !file.IsAsBefore(*opener.OpenExisting(false).connection)) {
      return state.SkipWithError("the file with a passphrase is not as it was");
    }
    opener.Protect({});
    if (WantsPassphrase(file.Path()) ||
        !file.IsAsBefore(*file.Opener().OpenExisting(false).connection)) {
      return state.SkipWithError("the file without a passphrase is not as it was");
    }
  }
}

void BackupAndRestore(benchmark::State& state) {
  OwnFile& file = FileOf(state.range(0));
  for (auto _ : state) {
    DataFileOpener opener = file.Opener();
    const std::string password = opener.OpenExisting(false).password;
    const std::string made =
        Backup(file.Machine(), opener.AsWriter()).Make({file.Path(), password}, {}).path;
    const RestoredFile restored = opener.Restore(made, password);
    if (!file.IsAsBefore(*restored.file.connection)) {
      return state.SkipWithError("the restored file is not as it was");
    }
    file.Machine().files.Remove(restored.kept);
  }
}

void Salvage(benchmark::State& state) {
  OwnFile& file = FileOf(state.range(0));
  for (auto _ : state) {
    const DataFileOpener opener = file.Opener();
    const std::string password = file.Opener().OpenExisting(false).password;
    const std::string path = file.Path() + ".salvaged.dat";
    SalvageDataFile({file.Path(), password, {}}, path, opener.AsWriter(), file.Machine());
    if (!file.IsAsBefore(*Connection::Open({path, password, {}}, file.Machine().clock))) {
      return state.SkipWithError("the salvaged file is not as it was");
    }
    file.Machine().files.Remove(path);
  }
}

// The least that any of them can do: every page deciphered and checked, once.
void EveryPageReadByTheLibrary(benchmark::State& state) {
  OwnFile& file = FileOf(state.range(0));
  const DataFile open = file.Opener().OpenExisting(false);
  for (auto _ : state) benchmark::DoNotOptimize(open.connection->Check());
}

void Sizes(benchmark::internal::Benchmark* bench) {
  bench->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();
}
BENCHMARK(PassphraseAndBack)->Apply(Sizes);
BENCHMARK(BackupAndRestore)->Apply(Sizes);
BENCHMARK(Salvage)->Apply(Sizes);
BENCHMARK(EveryPageReadByTheLibrary)->Apply(Sizes);

}  // namespace
}  // namespace corvanta
