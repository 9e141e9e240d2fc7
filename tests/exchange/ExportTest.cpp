#include "exchange/ExchangeTest.h"
#include "exchange/export/FileExport.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/RegisterRow.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Files.h"
#include "platform/PlatformError.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

namespace corvanta {
namespace {

class Export : public ExchangeTest {
 protected:
  Export() {
    mine_ = AddAccount("Mine", "12345678");
    other_ = AddAccount("Other");
    Import(
        "!Account\nNMine\n^\n!Type:Bank\n"
        "D13/2/2020\nT-12.50\nPM&S\nMLunch, \"out\"\nN7\nLFood:Dining Out\n^\n"
        "D14/2/2020\nT-100\nPMove\nL[Other]\n^\n"
        "D15/2/2020\nT-30\nPSplit\nLFood\nSFood:Meat\nEmemo\n$-10.13\nSBills\n$-19.87\n^\n"
        "D16/2/2020\nT1,234,567.13\nPCaf\xC3\xA9 \xE2\x82\xAC \xE2\x84\x96\nLWages and Salary\n^\n"
        "D17/2/2020\nT-5\nPMove\nL[Nowhere: else]\n^\n"
        "!Account\nNOther\n^\n!Type:Bank\nD14/2/2020\nT100\nPMove\nL[Mine]\n^\n");
  }

  std::vector<RegisterRow> View() { return ledger_.Balances().Register(mine_, {}, std::nullopt); }

  std::string Exported(const std::string& name, double random = 0) {
    const std::string path = Machine().folder.Path(name);
    FileExport(ledger_, Here(), [random] {
      return random;
    }).Write(mine_, View(), std::nullopt, path);
    return ReadFile(path);
  }

  // What an import of the file into a new account of another ledger gives.
  Texts RoundTrip(const std::string& name, const CsvMapping& mapping = {}) {
    TemporaryStore store(StoreContent::Default);
    clsCorvanta ledger(store.Db(), store.platform.Get());
    AccountRecord record;
    record.account = "Mine";
    record.accountTypeId = 1;
    record.currencyId = kPounds;
    ImportJob job;
    job.path = Machine().folder.Path(name);
    job.accountId = ledger.Accounts().SaveAccount(record);
    job.csv = mapping;
    EXPECT_EQ(FileImport(ledger, store.platform.Get()).Run(job).problemCount, 0U);
    EXPECT_EQ(LedgerProblems(store.Db()), Texts{});
    Texts texts;
    for (const RegisterRow& row : ledger.Balances().Register(job.accountId, {}, std::nullopt)) {
      texts.push_back(Shown(row));
      for (const TransactionDetails& line : ledger.Transactions().SplitLines(row.transactionId)) {
        texts.push_back(line.category + ":" + line.subCategory + "|" + SqlNumber(line.amount));
      }
    }
    return texts;
  }
  // Of a CSV file: every row of the view, but for the lines of splits.
  void ExpectToComeBack(const std::string& name) {
    CsvMapping mapping;
    ASSERT_TRUE(mapping.SetColumns("DATE:1,PAYEE:2,CATEGORY:3,INCOME:9,EXPENSE:8"));
    mapping.skip = 1;
    mapping.order = DateOrder::YearMonthDay;
    Texts expected;
    for (const RegisterRow& row : View()) expected.push_back(Shown(row));
    EXPECT_EQ(RoundTrip(name, mapping), expected);
  }
  static std::string Shown(const RegisterRow& row) {
    return row.date.ToIso() + "|" + row.payee + "|" + row.category + "|" + SqlNumber(row.amount);
  }

  std::int64_t mine_ = 0;
  std::int64_t other_ = 0;
};

TEST_F(Export, Qif) {
  Machine().prompts.ExpectTell("File Export",
                               Machine().folder.Path("a.qif") + "\r\nFile Export Complete");
  EXPECT_EQ(Exported("a.qif"),
            "!Type:Oth L\n"
            "D13/02/2020\nT-12.5\nN7\nPM&S\nMLunch, \"out\"\nLFood:Dining Out\n^\n"
            "D14/02/2020\nT-100\nPOther\nM\nLDebit\n^\n"
            "D15/02/2020\nT-30\nPSplit\nM\nLFood\nSFood:Meat\n$-10.13\nSBills\n$-19.87\n^\n"
            "D16/02/2020\nT1234567.13\nPCaf\xC3\xA9 \xE2\x82\xAC \xE2\x84\x96\nM\nLWages and "
            "Salary\n^\n"
            "D17/02/2020\nT-5\nPMove\nM\nLAccount:Nowhere: else\n^\n");
  EXPECT_EQ(RoundTrip("a.qif"),
            (Texts{"2020-02-13|M&S|Food:Dining Out|-12.5", "2020-02-14|Other|Debit|-100",
                   "2020-02-15|Split|Food|-30", "Food:Meat|-10.13", "Bills:|-19.87",
                   "2020-02-16|Caf\xC3\xA9 \xE2\x82\xAC \xE2\x84\x96|Wages and Salary|1234567.13",
                   "2020-02-17|Move|Account:Nowhere: else|-5"}));
}

// Whoever exports can read the file again, however the country writes its dates.
TEST_F(Export, QifComesBackWhereDatesEndInAFullStop) {
  const Texts before = Dates("Mine");
  for (const char* locale : {"hu_HU", "hr_HR", "bs_BA", "sr_RS", "ko_KR", "bg_BG", "de_CH"}) {
    SCOPED_TRACE(locale);
    UseLocale(locale);
    Machine().prompts.ExpectTell("File Export", ScriptedPrompts::kAnyText);
    Exported("a.qif");
    const class Transaction undone = Db().Begin();
    job_.path = Machine().folder.Path("a.qif");
    job_.accountId = AddAccount("Back");
    EXPECT_EQ(Run(job_).problemCount, 0U);
    EXPECT_EQ(Dates("Back"), before);
  }
}

TEST_F(Export, CsvComesBackButForItsSplits) {
  Machine().prompts.ExpectTell("File Export", "File Export Complete");
  const std::string text = Exported("a.csv");
  EXPECT_EQ(text.substr(0, text.find("2020-02-14")),
            "Date,Payee,Category,Payment,Reference,Description,Status,Paid Out,Paid In\r\n"
            "2020-02-13,M&S,Food:Dining Out,Import,7,\"Lunch, \"\"out\"\"\",,12.5,\r\n");
  ExpectToComeBack("a.csv");
}

// What a spreadsheet would run is text there, and the same text as before when it comes back.
TEST_F(Export, CsvTextsAreNoFormulasAndComeBackUnchanged) {
  const Texts names = {"=1+1",     "+44 20", "-5",      "@SUM(A1)",         "'=quoted",
                       "''-twice", "'plain", "O'Brien", "\xEF\xBC\x9Dwide", "a=b"};
  std::string file = "!Account\nNMine\n^\n!Type:Bank\n";
  for (const std::string& name : names) {
    file += "D18/2/2020\nT-1\nP" + name + "\nL" + name + "\n^\n";
  }
  job_.duplicates = DuplicateAnswer::Import;
  Import(file);
  Machine().prompts.ExpectTell("File Export", "File Export Complete");
  const std::string text = Exported("a.csv");
  for (const char* dangerous : {",=", ",+", ",-", ",@", ",\xEF\xBC\x9D", ",\"="}) {
    EXPECT_EQ(text.find(dangerous), std::string::npos) << dangerous;
  }
  ExpectToComeBack("a.csv");
}

TEST_F(Export, Ofx) {
  Machine().prompts.ExpectTell("File Export", "File Export Complete");
  const std::string text = Exported("a.ofx", 0.7);
  const std::string stamp = [&] {
    const DateTime now = Machine().clock.Now();
    std::string day = now.date.ToIso();
    std::erase(day, '-');
    return day;
  }();
  const auto contains = [&](const std::string& part) {
    EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
  };
  contains(
      "NEWFILEUID:NONE\n<OFX>\n<SIGNONMSGSRSV1>\n<SONRS>\n<STATUS>\n<CODE>0</CODE>\n<SEVERITY>INFO"
      "</SEVERITY>\n</STATUS>\n<DTSERVER>" +
      stamp + "120000[0:GMT]</DTSERVER>\n<LANGUAGE>");
  contains(
      "<CURDEF>GBP</CURDEF>\n<BANKACCTFROM>\n<BANKID></BANKID>\n<ACCTID>12345678\n<ACCTTYPE>"
      "CHECKING</ACCTTYPE>\n</BANKACCTFROM>\n<BANKTRANLIST>\n<DTSTART>" +
      stamp + "[0:GMT]</DTSTART>");
  contains(
      "<STMTTRN>\n<TRNTYPE>OTHER</TRNTYPE>\n<DTPOSTED>20200213000000</DTPOSTED>\n<TRNAMT>-12.5"
      "</TRNAMT>\n<FITID>" +
      stamp);
  contains("100000</FITID>\n<NAME>M&amp;S</NAME>\n</STMTTRN>\n<STMTTRN>");
  contains("<TRNAMT>-100</TRNAMT>");
  contains("<NAME>Transfer</NAME>");
  contains("<NAME>Caf\xE9 \x80 &#8470;</NAME>");
  contains("</BANKTRANLIST>\n<LEDGERBAL>\n<BALAMT>1234419.63</BALAMT>\n");
  EXPECT_TRUE(text.ends_with("</BANKMSGSRSV1>\n</OFX>"));
  // Back in the same account every row is found again.
  job_.duplicates = DuplicateAnswer::Skip;
  job_.path = Machine().folder.Path("a.ofx");
  EXPECT_EQ(Run(job_).duplicates, 5U);
}

// A file of the person's stands where a careless writer would put its own.
TEST_F(Export, EveryFormatIsWrittenBesideAndReplacesOnlyWhatItMay) {
  Machine().folder.Write("a.xls.tmp", "mine");
  Machine().folder.Write("a.ofx.tmp", "mine");
  for (const char* name : {"a.csv", "a.qif", "a.ofx", "a.xls", "a.xlsx"}) {
    SCOPED_TRACE(name);
    const std::string path = Machine().folder.Path(name);
    FileExport writer(ledger_, Machine().Get());
    const auto write = [&](FormerFile former) {
      Machine().prompts.ExpectTell("File Export", ScriptedPrompts::kAnyText);
      writer.Write(mine_, View(), std::nullopt, path, former);
    };
    write(FormerFile::Refuse);
    const std::string content = ReadFile(path);
    EXPECT_FALSE(content.empty());
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    Machine().folder.Write(name, "former");
    EXPECT_THROW(writer.Write(mine_, View(), std::nullopt, path, FormerFile::Refuse),
                 PlatformError);
    EXPECT_EQ(ReadFile(path), "former");
    write(FormerFile::Replace);
    EXPECT_NE(ReadFile(path), "former");
  }
  const auto& rendered = Machine().spreadsheet.Rendered();
  ASSERT_EQ(rendered.size(), 6U);
  EXPECT_EQ(rendered.front().form, SpreadsheetForm::Xls);
  EXPECT_EQ(rendered.back().form, SpreadsheetForm::Xlsx);
  EXPECT_EQ(ReadFile(Machine().folder.Path("a.xls.tmp")), "mine");
  EXPECT_EQ(ReadFile(Machine().folder.Path("a.ofx.tmp")), "mine");
  const auto entries = std::filesystem::directory_iterator(Machine().folder.Path());
  EXPECT_EQ(std::count_if(begin(entries), end(entries),
                          [](const auto& entry) {
                            return entry.path().string().find(".tmp.") != std::string::npos;
                          }),
            0);
}

TEST_F(Export, AskingAndFileNames) {
  for (const char* name : {"a.csv", "a.XLS", "a.ofx", "a.Qif"})
    EXPECT_FALSE(FileExport::Check(name));
  for (const char* name : {"a", "a.txt", "csv"}) {
    const auto warning = FileExport::Check(name);
    ASSERT_TRUE(warning);
    EXPECT_EQ(warning->title, "File Export Warning");
    EXPECT_EQ(warning->text, "Please enter, file name including correct file extension");
  }
  Machine().prompts.ExpectAsk(
      "File Export", "Do you wish to export from the account Mine into the file - /x/a.qif", true);
  EXPECT_TRUE(FileExport(ledger_, Machine().Get()).Confirm("Mine", "/x/a.qif"));
}

}  // namespace
}  // namespace corvanta
