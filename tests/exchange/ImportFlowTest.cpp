// What happens around the records: duplicates, stops, undo, faulty files.
#include "exchange/ExchangeTest.h"
#include "exchange/import/ImportEditor.h"
#include "exchange/text/FileText.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/investments/InvestmentRecord.h"
#include "support/FaultVfs.h"

#include <sys/stat.h>
#include <sys/wait.h>

#include <fstream>

namespace corvanta {
namespace {

class ImportFlow : public ExchangeTest {
 protected:
  static constexpr const char* kThree =
      "D13/2/2020\nT-1\nPOne\n^\nD14/2/2020\nT-2\nPTwo\n^\nD15/2/2020\nT-3\nPThree\n^\n";

  void ExpectQuestion(std::optional<std::size_t> answer) {
    Machine().prompts.ExpectChoose("File Import", ScriptedPrompts::kAnyText, answer);
  }
  Texts Payees() {
    Texts payees;
    for (const std::string& row : Rows("Mine"))
      payees.push_back(row.substr(11, row.find('|', 11) - 11));
    return payees;
  }
};

TEST_F(ImportFlow, DuplicatesAreAskedAbout) {
  job_.duplicates = DuplicateAnswer::Ask;
  ImportBank(kThree);
  ExpectQuestion(0);
  ExpectQuestion(1);
  ExpectQuestion(3);
  ImportSummary summary = ImportBank(kThree);
  EXPECT_EQ(summary.imported, 1U);
  EXPECT_EQ(summary.duplicates, 2U);
  const auto& shown = Machine().prompts.Shown();
  ASSERT_EQ(shown.size(), 3U);
  EXPECT_EQ(shown[0].text,
            "Duplicate record found for One On 13/02/2020 for -1.00\r\nMatching on One On "
            "13/02/2020 for -1.00\r\nDo you want to import duplicate record?");
  EXPECT_EQ(shown[0].answers.size(), 4U);
  ExpectQuestion(2);  // and all that follow
  EXPECT_EQ(ImportBank(kThree).imported, 3U);
  EXPECT_EQ(Payees(), (Texts{"One", "Two", "Three", "One", "One", "Two", "Three"}));
}

TEST_F(ImportFlow, RowsOfTheSameFileAreNoDuplicatesAndInvestmentsAreNone) {
  job_.duplicates = DuplicateAnswer::Ask;
  const std::string coffee = "D13/2/2020\nT-3\nPCoffee\n^\n";
  EXPECT_EQ(ImportBank(coffee + coffee).imported, 2U);
  const std::int64_t fund = AddAccount("Fund");
  InvestmentTransaction buy;
  buy.accountId = fund;
  buy.payeeId = ledger_.Investments().FindOrCreateInvestment("Acme", "", kPounds);
  buy.total = 3;
  buy.date = *Date::FromIso("2020-02-13");
  ledger_.Investments().SaveInvestmentTransaction(buy);
  EXPECT_EQ(Import("!Account\nNFund\n^\n!Type:Bank\n" + coffee).imported, 1U);
}

TEST_F(ImportFlow, TheWholeFileIsOneStep) {
  const std::string file =
      "!Account\nNNew\n^\n!Type:Bank\n" + std::string(kThree) +
      "D16/2/2020\nT-4\nPMove\nL[Other]\n^\n"
      "!Account\nNOther\n^\n!Type:Bank\nD16/2/2020\nT4\nPMove\nL[New]\nSFood\n$4\n^\n";
  const std::int64_t payees = Count("tblPayees");
  const std::int64_t categories = Count("tblCategory");
  Import(file);
  EXPECT_EQ(AccountNames(), (Texts{"New", "Other"}));
  EXPECT_EQ(ledger_.Undo().UndoName(), "File Import");
  ledger_.Undo().Undo();
  EXPECT_EQ(AccountNames(), Texts{});
  EXPECT_EQ(Count("tblTransactions"), 0);
  EXPECT_EQ(Count("tblPayees"), payees);
  EXPECT_EQ(Count("tblCategory"), categories);
  EXPECT_FALSE(ledger_.Undo().CanUndo());
}

TEST_F(ImportFlow, ProgressAndCancel) {
  ImportBank(kThree);
  EXPECT_EQ(Machine().progress.Texts()[0], "Please wait processing file...");
  EXPECT_EQ(Machine().progress.Texts()[1], "Please wait importing records...");
  EXPECT_EQ(Machine().progress.Status(), "");
  // One yield is for reading the file, and one for each record that is looked at before any is
  // written: the first of the two stops is among those, the second between the writes.
  const std::int64_t payees = Count("tblPayees");
  const std::string more = "D16/2/2020\nT-4\nPNew\n^\nD17/2/2020\nT-5\n^\nD18/2/2020\nT-6\n^\n";
  for (const std::size_t yields : {2U, 5U}) {
    Machine().progress.StopAfter(Machine().progress.Yields() + yields);
    const ImportSummary summary = ImportBank(more);
    EXPECT_EQ(summary.outcome, ImportOutcome::Dropped);
    EXPECT_EQ(summary.stop, "The import was cancelled.");
    EXPECT_TRUE(summary.BroughtNothing());
    EXPECT_EQ(Amounts("Mine"), (Texts{"-1", "-2", "-3"}));
  }
  EXPECT_EQ(Count("tblPayees"), payees) << "nothing of it stays";
}

TEST_F(ImportFlow, WhoTurnsAwayFromTheQuestionKeepsNothing) {
  job_.keepIncomplete.reset();
  job_.accountId = AddAccount("Mine");
  ASSERT_TRUE(job_.csv.SetColumns("DATE:1,PAYEE:2,INCOME:3,EXPENSE:3"));
  for (const std::optional<std::size_t> answer : {std::optional<std::size_t>(), {1}, {0}}) {
    Machine().prompts.ExpectChoose("File Import",
                                   "The import stopped at line 3: \"31/02/2020\" is no date.\r\n"
                                   "Transactions before that: 2\r\nDo you want to keep them?",
                                   answer);
    const ImportSummary summary =
        Import("13/02/2020,A,1\n14/02/2020,B,2\n31/02/2020,C,3\n15/02/2020,D,4\n", "file.csv");
    const bool keeps = answer == std::optional<std::size_t>(0);
    EXPECT_EQ(summary.outcome, keeps ? ImportOutcome::Kept : ImportOutcome::Dropped);
    EXPECT_EQ(Amounts("Mine").size(), keeps ? 2U : 0U);
  }
}

// Two coffees of one day are two.
TEST_F(ImportFlow, OneRowOfTheLedgerAnswersForOneRowOfTheFile) {
  const std::string coffee = "D13/2/2020\nT-3\nPCoffee\n^\n";
  ImportBank(coffee);
  ImportSummary summary = ImportBank(coffee + coffee + coffee);
  EXPECT_EQ(summary.imported, 2U);
  EXPECT_EQ(summary.duplicates, 1U);
  job_.duplicates = DuplicateAnswer::Ask;
  ExpectQuestion(1);
  ExpectQuestion(0);  // it is not the second one in the ledger
  ExpectQuestion(3);
  summary = ImportBank(coffee + coffee + coffee + coffee + coffee);
  EXPECT_EQ(summary.imported, 2U) << "one that was said to be new, and one too many for the ledger";
  EXPECT_EQ(summary.duplicates, 3U);
}

TEST_F(ImportFlow, AmountsAreRoundedToTheCurrencyOfTheirAccount) {
  const Value yen = Db().QueryValue("Select CurrencyID from tblCurrency Where Currency = 'JPY'");
  AddAccount("Yen", {}, static_cast<int>(yen.Int()));
  AddAccount("Pounds");
  const std::string file =
      "!Account\nNYen\n^\n!Type:Bank\nD13/2/2020\nT-9.98\nPShop\n^\n"
      "D14/2/2020\nT-3\nPShop\nSFood\n$-1.4\nSBooks\n$-1.6\n^\n"
      "!Account\nNPounds\n^\n!Type:Bank\nD13/2/2020\nT-1234.567\nPShop\n^\n"
      "D14/2/2020\nT-2.50\nPShop\n^\n";
  ImportSummary summary = Import(file);
  EXPECT_EQ(Amounts("Yen"), (Texts{"-10", "-3"}));
  EXPECT_EQ(Count("tblTransactions Where AllocatedItem <> 0 AND [Amount] IN (-1,-2)"), 2);
  EXPECT_EQ(Amounts("Pounds"), (Texts{"-1234.57", "-2.5"}));
  EXPECT_EQ(summary.rounded, 3U);
  EXPECT_NE(summary.Text().find("Amounts rounded to the decimals of their currency: 3"),
            std::string::npos);
  // It is known again, as are rows that came with all their digits.
  EXPECT_EQ(Import(file).duplicates, 4U);
  Db().Execute("UPDATE tblTransactions SET [Amount] = -1234.567 WHERE [Amount] = -1234.57");
  EXPECT_EQ(Import(file).duplicates, 4U);
}

TEST_F(ImportFlow, TheSummaryNamesTheAccounts) {
  AddAccount("Known");
  const ImportSummary summary = Import("!Account\nNKnown\n^\n!Type:Bank\n" + std::string(kThree) +
                                       "!Account\nNNew\n^\n!Type:Bank\nD16/2/2020\nT-4\n^\n");
  EXPECT_NE(summary.Text().find("Into Known: 3\nInto the new account New: 1"), std::string::npos)
      << summary.Text();
  const std::int64_t known = summary.AccountToShow(0);
  ASSERT_EQ(summary.accounts.size(), 2U);
  EXPECT_EQ(known, summary.accounts[0].accountId);
  EXPECT_EQ(summary.AccountToShow(summary.accounts[1].accountId), summary.accounts[1].accountId);
}

TEST_F(ImportFlow, TheChosenAccountTakesAllWhereThePersonSaysSo) {
  const std::int64_t everyday = AddAccount("Everyday");
  AddAccount("Savings");
  job_.chosenTakesAll = true;
  Import("!Account\nNChecking\n^\n!Type:Bank\n" + std::string(kThree) +
             // The account's own name in the file: an opening balance, and no transfer.
             "D16/2/2020\nT500\nPOpening Balance\nL[Checking]\n^\n",
         "a.qif", everyday);
  EXPECT_EQ(AccountNames(), (Texts{"Everyday", "Savings"}));
  EXPECT_EQ(Amounts("Everyday"), (Texts{"-1", "-2", "-3", "500"}));
  EXPECT_EQ(Count("tblCategory Where Category = 'Account:Checking'"), 0);
  EXPECT_EQ(ledger_.Accounts().ReadAccount(everyday)->accountNo, "");
}

class LoneHalves : public ImportFlow {
 protected:
  LoneHalves() {
    AddAccount("Savings");
    AddAccount("Euros", {}, kEuros);
    AddAccount("Old", {}, kPounds, true);
    summary_ = ImportBank(
        "D13/2/2020\nT-10\nPMove\nMnote\nN7\nL[savings]\n^\nD14/2/2020\nT20\nPMove\nL[Savings]\n^\n"
        // Cannot be made: what came in is not known, the account is closed or is none.
        "D15/2/2020\nT-30\nPMove\nL[Euros]\n^\nD16/2/2020\nT-40\nPMove\nL[Old]\n^\n"
        "D17/2/2020\nT-50\nPMove\nL[Nowhere]\n^\n"
        "D18/2/2020\nT-60\nPMove\nL[Savings]\nSFood\n$-60\n^\n");
  }
  ImportSummary summary_;
};

TEST_F(LoneHalves, AreCompletedInOneStepThatCanBeTakenBack) {
  EXPECT_EQ(summary_.transfers, 0U);
  EXPECT_EQ(summary_.loneHalves, 5U);
  EXPECT_EQ(summary_.completable.size(), 2U);
  EXPECT_NE(summary_.Text().find("Transfers without their other half: 5"), std::string::npos);
  const Texts before = Rows("Mine");
  ImportEditor editor(ledger_, Machine().Get());
  EXPECT_EQ(editor.CompleteTransfers(summary_), 2U);
  EXPECT_EQ(summary_.loneHalves, 3U);
  EXPECT_EQ(summary_.transfers, 2U);
  EXPECT_EQ(Rows("Savings"),
            (Texts{"2020-02-13|Transfer|Credit|10||note", "2020-02-14|Transfer|Debit|-20||"}));
  EXPECT_EQ(Rows("Mine")[0], "2020-02-13|Transfer|Debit|-10|7|note");
  EXPECT_EQ(Count("tblTransactions Where TransferID <> 0"), 4);
  EXPECT_EQ(editor.CompleteTransfers(summary_), 0U);
  ledger_.Undo().Undo();
  EXPECT_EQ(Rows("Savings"), Texts{});
  EXPECT_EQ(Rows("Mine"), before);
  EXPECT_EQ(ledger_.Undo().UndoName(), "File Import");
}

// A file that comes again brings nothing twice, but what it names can still be completed.
TEST_F(LoneHalves, OfAnEarlierImportAreCompletedByTheSameFileAgain) {
  const std::string file =
      "D13/2/2020\nT-10\nPMove\nL[Savings]\n^\nD14/2/2020\nT20\nPMove\nL[Savings]\n^\n";
  // That one was found to be none.
  ledger_.Store().Execute("UPDATE tblTransactions SET CategoryID = 2 WHERE [Amount] = 20");
  ImportSummary again = ImportBank(file);
  EXPECT_EQ(again.duplicates, 2U);
  EXPECT_EQ(again.loneHalves, 1U);
  ImportEditor editor(ledger_, Machine().Get());
  EXPECT_EQ(editor.CompleteTransfers(again), 1U);
  EXPECT_EQ(Rows("Savings"), Texts{"2020-02-13|Transfer|Credit|10||note"});
  again = ImportBank(file);
  EXPECT_EQ(again.loneHalves, 0U);
  EXPECT_TRUE(again.completable.empty());
  EXPECT_EQ(again.duplicates, 2U) << "each half still answers for its record";
}

// The question's own cancel, before anything was written: the former step stays.
TEST_F(ImportFlow, CancellingTheFirstQuestionLeavesEarlierStepsAlone) {
  ImportBank(kThree);
  job_.duplicates = DuplicateAnswer::Ask;
  ExpectQuestion(std::nullopt);
  const ImportSummary summary = ImportBank(kThree);
  EXPECT_EQ(summary.stop, "The import was cancelled.");
  EXPECT_EQ(summary.outcome, ImportOutcome::Dropped);
  EXPECT_EQ(Amounts("Mine").size(), 3U);
  EXPECT_EQ(ledger_.Undo().UndoName(), "File Import");
}

TEST_F(ImportFlow, LongTextsAreShortenedAndCounted) {
  const std::string name(300, 'x');
  const ImportSummary summary = ImportBank("D13/2/2020\nT1\nP" + name + "\nM" + name + "\nN" +
                                           name + "\nL" + name + ":" + name + "\n^\n");
  EXPECT_EQ(summary.imported, 1U);
  EXPECT_EQ(summary.shortened, 2U);  // description and reference; the names are kept there
  const std::string cut(100, 'x');
  EXPECT_EQ(Rows("Mine"), (Texts{"2020-02-13|" + cut + "|" + cut + ":" + cut + "|1|" +
                                 std::string(50, 'x') + "|" + std::string(255, 'x')}));
}

// What a name loses is not lost: the description keeps it whole.
TEST_F(ImportFlow, NamesAreCutBetweenCharactersAndKeptWholeInTheDescription) {
  const std::string hundred = std::string(98, 'a') + "\xC3\xA9";  // 99 characters
  const std::string marked = hundred + "e\xCC\x81 and more";      // an accent of its own at 101
  const std::string padded = "Acme" + std::string(120, ' ') + "London";
  const std::string account(120, 'b');
  const ImportSummary summary = ImportBank(
      "D13/2/2020\nT1\nP" + marked + "\nMNote\n^\nD14/2/2020\nT2\nP" + marked + "\nM" + marked +
      "\n^\nD15/2/2020\nT3\nP" + hundred + "e\n^\nD16/2/2020\nT4\nP" + padded +
      "\n^\nD17/2/2020\nT-5\nPMove\nL[" + account + "]\n^\nD18/2/2020\nT-6\nPSplit\nS" + marked +
      "\nEpart\n$-6\n^\n"
      "!Account\nN" +
      account + "\n^\n!Type:Bank\nD17/2/2020\nT5\nPMove\nL[Mine]\n^\n");
  EXPECT_EQ(summary.transfers, 1U);
  EXPECT_EQ(Rows("Mine"),
            (Texts{"2020-02-13|" + hundred + "|Credit|1||" + marked + " Note",
                   "2020-02-14|" + hundred + "|Credit|2||" + marked,
                   "2020-02-15|" + hundred + "e|Credit|3||", "2020-02-16|Acme London|Credit|4||",
                   "2020-02-17|Transfer|Debit|-5||" + account, "2020-02-18|Split|Debit|-6||",
                   "  " + hundred + "|-6|" + marked + " part"}));
  EXPECT_EQ(AccountNames().back(), std::string(100, 'b'));
}

TEST_F(ImportFlow, FilesThatAreNone) {
  const auto fault = [&](const std::string& path, std::size_t limit = kLargestImport) {
    return ReadFileText(path, {}, {}, limit).fault.value_or("");
  };
  EXPECT_EQ(fault(Write("a.qif", std::string("!Type:Bank\n\0", 12))),
            "This is no text file, so it holds no transactions that could be imported.");
  EXPECT_EQ(fault(Machine().folder.Path()), "This is no file that can be imported.");
  EXPECT_NE(fault(Write("b.qif", std::string(3U << 20U, 'x')), 2U << 20U).find("more than 2 mega"),
            std::string::npos);
  const std::string pipe = Machine().folder.Path("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(fault(pipe), "This is no file that can be imported.");
  EXPECT_EQ(Import(std::string(2U << 20U, 'x')).stop,
            "Line 1 is longer than any line of a file with transactions.");
  const std::string growing = Write("c.qif", "!Type:Bank\n");
  const FileText text = ReadFileText(growing, {}, [&] {
    std::ofstream(growing, std::ios::app) << "D1/1/2020\n";
    return true;
  });
  EXPECT_EQ(text.fault.value_or(""),
            "The file changed while it was read. Import it again when the program that writes it "
            "has finished.");
  job_.path = Machine().folder.Path("missing.qif");
  EXPECT_ANY_THROW((void)Run(job_));
}

class ImportCrash : public ExchangeTest, public testing::WithParamInterface<Fault> {
 protected:
  static std::string Splits() {
    std::string file = "!Account\nNMine\n^\n!Type:Bank\n";
    for (int i = 1; i <= 40; ++i) {
      file += "D" + std::to_string(i % 28 + 1) + "/2/2020\nT-3\nPShop " + std::to_string(i) +
              "\nSFood\n$-1\nSFood:Meat\n$-2\n^\n";
    }
    return file;
  }

  // In a process of its own that obeys the plan; true when the import came to its end.
  bool ImportInChild(const std::string& path, const std::string& password, long at) {
    const pid_t child = ::fork();
    if (child == 0) {
      FaultPlan plan(GetParam(), at);
      const FaultVfs vfs("faulty", plan);
      try {
        const auto store = Connection::Open({store_.Path(), password, "faulty"}, Machine().clock);
        clsCorvanta ledger(*store, Machine().Get());
        ImportJob job = job_;
        job.path = path;
        const ImportSummary summary = FileImport(ledger, Machine().Get()).Run(job);
        ::_exit(summary.outcome == ImportOutcome::Complete ? 0 : 1);
      } catch (const std::exception&) {
        ::_exit(1);
      }
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
};

// A program that dies, or a disk that fills, in the middle leaves the whole file or nothing of it,
// and the same file again brings every row exactly once.
TEST_P(ImportCrash, LeavesAllOrNothing) {
  const std::string path = Write("file.qif", Splits());
  const std::string password = store_.Password();
  store_.Close();
  const std::string before = ReadFile(store_.Path());
  int stopped = 0;
  bool isDone = false;
  for (long at = 1; !isDone && at < 2000 && !HasFailure(); ++at) {
    SCOPED_TRACE(at);
    isDone = ImportInChild(path, password, at);
    stopped += isDone ? 0 : 1;
    // Every other time it is tried again and stopped again.
    if (at % 2 == 0) ImportInChild(path, password, at / 2);
    {
      const auto store = Connection::Open({store_.Path(), password, {}}, Machine().clock);
      EXPECT_EQ(LedgerProblems(*store), Texts{});
      EXPECT_TRUE(store->Check().empty());
      const auto rows = [&] {
        return store->QueryValue("SELECT COUNT(*) FROM tblTransactions").Int();
      };
      EXPECT_TRUE(rows() == 0 || rows() == 120) << rows();
      if (at % 8 == 1) {
        clsCorvanta ledger(*store, Machine().Get());
        ImportJob again = job_;
        again.path = path;
        EXPECT_EQ(FileImport(ledger, Machine().Get()).Run(again).outcome, ImportOutcome::Complete);
        EXPECT_EQ(rows(), 120);
      }
    }
    std::ofstream(store_.Path(), std::ios::binary) << before;
  }
  EXPECT_TRUE(isDone);
  EXPECT_GT(stopped, 3);
}

INSTANTIATE_TEST_SUITE_P(Faults, ImportCrash, testing::Values(Fault::Exit, Fault::DiskFull),
                         [](const auto& tested) {
                           return tested.param == Fault::Exit ? "Exit" : "DiskFull";
                         });

}  // namespace
}  // namespace corvanta
