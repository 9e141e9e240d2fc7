#include "exchange/ExchangeTest.h"
#include "exchange/ofx/OfxText.h"
#include "ledger/accounts/AccountBook.h"

#include <algorithm>

namespace corvanta {
namespace {

class OfxImport : public ExchangeTest {
 protected:
  static constexpr const char* kHead =
      "OFXHEADER:100\nDATA:OFXSGML\nVERSION:102\nENCODING:USASCII\nCHARSET:1252\n\n";

  ImportSummary ImportOfx(const std::string& text, std::int64_t account = 0) {
    return Import(text, "file.ofx", account);
  }
  static std::string Statement(const std::string& account, const std::string& transactions) {
    return "<BANKMSGSRSV1><STMTTRNRS><STMTRS><CURDEF>EUR<BANKACCTFROM><BANKID>1<ACCTID>" + account +
           "<ACCTTYPE>CHECKING</BANKACCTFROM><BANKTRANLIST>" + transactions +
           "</BANKTRANLIST><LEDGERBAL><BALAMT>1<DTASOF>20200101</LEDGERBAL></STMTRS></STMTTRNRS>"
           "</BANKMSGSRSV1>";
  }
  static std::string Transaction(const std::string& fields) {
    return "<STMTTRN><TRNTYPE>DEBIT" + fields + "</STMTTRN>";
  }
};

// One statement, written in every way.
TEST_F(OfxImport, FormsOfTheSameStatement) {
  const std::string sgml =
      "<OFX><SIGNONMSGSRSV1><SONRS><LANGUAGE>ENG</SONRS></SIGNONMSGSRSV1>" +
      Statement("777", Transaction("<DTPOSTED>20130415120000[0:GMT]<TRNAMT>-12.50<FITID>a1"
                                   "<NAME>M&amp;S &lt;Food&gt; &#163;<MEMO>Lunch")) +
      "</OFX>";
  std::string broken = sgml;
  for (std::size_t at = 0; (at = broken.find('<', at)) != std::string::npos; at += 4) {
    broken.insert(at, "\r\n\t");
  }
  std::string apart = sgml;  // values on lines of their own
  for (std::size_t at = 0; (at = apart.find('>', at)) != std::string::npos; at += 2) {
    apart.insert(at + 1, "\n");
  }
  const std::string xml =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<?OFX OFXHEADER=\"200\" VERSION=\"211\"?>\n"
      "<!-- <STMTTRN> --><OFX><BANKMSGSRSV1><STMTTRNRS><STMTRS><CURDEF>EUR</CURDEF><BANKACCTFROM>"
      "<BANKID>1</BANKID><ACCTID>777</ACCTID></BANKACCTFROM><BANKTRANLIST><stmttrn><TRNTYPE/>"
      "<DTPOSTED>20130415</DTPOSTED><TRNAMT>-12.50</TRNAMT><FITID>a1</FITID>"
      "<NAME><![CDATA[M&S <Food>]]> &#xA3;</NAME><MEMO>Lunch</MEMO></stmttrn></BANKTRANLIST>"
      "</STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>";
  for (const std::string& text : {kHead + sgml, kHead + broken, kHead + apart, sgml, xml}) {
    SCOPED_TRACE(text);
    const class Transaction undone = Db().Begin();
    const ImportSummary summary = ImportOfx(text);
    EXPECT_EQ(summary.problemCount, 0U);
    EXPECT_EQ(Rows("777"), (Texts{"2013-04-15|M&S <Food> \xC2\xA3|Debit|-12.5|a1|Lunch"}));
    EXPECT_EQ(Count("tblAccounts Where AccountNo = '777' AND CurrencyId = 43"), 1);
  }
}

TEST_F(OfxImport, OnlyTheStatementsOwnAccountChooses) {
  const std::int64_t chosen = AddAccount("Chosen");
  AddAccount("Known", "abc-1");
  const std::string one = Transaction("<DTPOSTED>20200213<TRNAMT>1<NAME>One");
  ImportOfx(kHead +
                std::string("<OFX><SIGNUPMSGSRSV1><ACCTINFO><BANKACCTINFO><BANKACCTFROM><ACCTID>"
                            "list</BANKACCTFROM></BANKACCTINFO></ACCTINFO></SIGNUPMSGSRSV1>") +
                Statement("empty", "") + Statement("ABC-1", one) +
                // A statement that names none goes where the person said.
                "<BANKMSGSRSV1><STMTTRNRS><STMTRS><BANKTRANLIST>" +
                Transaction("<DTPOSTED>20200213<TRNAMT>2<NAME>Two<BANKACCTTO><BANKID>5<ACCTID>"
                            "other</BANKACCTTO>") +
                Transaction("<DTPOSTED>20200214<TRNAMT>3<NAME>Three") +
                "</BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1>"
                "<CREDITCARDMSGSRSV1><CCSTMTTRNRS><CCSTMTRS><CURDEF>GBP<CCACCTFROM><ACCTID>4444"
                "</CCACCTFROM><BANKTRANLIST>" +
                Transaction("<DTPOSTED>20200215<TRNAMT>-4<NAME>Four") +
                "</BANKTRANLIST></CCSTMTRS></CCSTMTTRNRS></CREDITCARDMSGSRSV1></OFX>",
            chosen);
  EXPECT_EQ(AccountNames(), (Texts{"Chosen", "Known", "4444"}));
  EXPECT_EQ(Amounts("Known"), (Texts{"1"}));
  EXPECT_EQ(Amounts("Chosen"), (Texts{"2", "3"}));
  EXPECT_EQ(Amounts("4444"), (Texts{"-4"}));
  EXPECT_EQ(Count("tblAccounts A INNER JOIN tblAccountType T ON A.AccountTypeID = T.AccountTypeID "
                  "Where A.Account = '4444' AND T.AccountType = 'Credit Accounts'"),
            1);
  EXPECT_EQ(ImportOfx("<OFX><STMTTRN><DTPOSTED>20200101<TRNAMT>1</STMTTRN></OFX>", 99).stop,
            "File import can not continue, there are no accounts in this file. Create an Account "
            "before importing.");
}

TEST_F(OfxImport, PayeesAndWhatStandsOutsideATransaction) {
  const ImportSummary summary = ImportOfx(
      kHead + std::string("<OFX>") +
      Statement("1",
                "<NAME>Leak<MEMO>Leak<TRNAMT>99" +
                    Transaction("<DTPOSTED>20200213<TRNAMT>1<PAYEE><NAME>Jane<CITY>York</PAYEE>"
                                "<MEMO>m") +
                    "<MEMO>Leak<FITID>leak" +
                    Transaction("<DTPOSTED>20200214<TRNAMT>2<NAME></NAME><MEMO>Only memo") +
                    Transaction("<DTPOSTED>20200215<TRNAMT>3") + "<STMTTRN></STMTTRN>" +
                    Transaction("<DTPOSTED>20200231<TRNAMT>4") +
                    Transaction("<DTPOSTED>2020<TRNAMT>5") + Transaction("<DTPOSTED>20200216") +
                    // The last one ends with the file.
                    "<STMTTRN><DTPOSTED>20200217<TRNAMT>6,50<NAME>Caf\xE9<FITID> " +
                    std::string(60, 'x')));
  EXPECT_EQ(Rows("1"),
            (Texts{"2020-02-13|Jane|Credit|1||m", "2020-02-14|Only memo|Credit|2||Only memo",
                   "2020-02-15|Transfer|Credit|3||",
                   "2020-02-17|Caf\xC3\xA9|Credit|6.5|" + std::string(50, 'x') + "|"}));
  EXPECT_EQ(Problems(summary), (Texts{"7: \"20200231\" is no date.", "7: \"2020\" is no date.",
                                      "7: There is no amount."}));
}

TEST_F(OfxImport, TheNumberOfAChequeIsKeptBesideTheBanksOwnMark) {
  const std::string text = Statement(
      "1", Transaction("<DTPOSTED>20200213<TRNAMT>-1<NAME>A<CHECKNUM>1042") +
               Transaction("<DTPOSTED>20200214<TRNAMT>-2<NAME>B<FITID>F-9<CHECKNUM>1043") +
               Transaction("<DTPOSTED>20200215<TRNAMT>-3<NAME>C<FITID>F-10<CHECKNUM>1044"
                           "<MEMO>Rent") +
               Transaction("<DTPOSTED>20200216<TRNAMT>-4<NAME>D<FITID>1045<CHECKNUM>1045") +
               Transaction("<DTPOSTED>20200217<TRNAMT>-5<NAME>E<FITID>F-11<CHECKNUM>0000"));
  const Texts kept{"2020-02-13|A|Debit|-1|1042|", "2020-02-14|B|Debit|-2|F-9|Cheque 1043",
                   "2020-02-15|C|Debit|-3|F-10|Rent, cheque 1044", "2020-02-16|D|Debit|-4|1045|",
                   "2020-02-17|E|Debit|-5|F-11|"};
  ImportOfx(text);
  EXPECT_EQ(Rows("1"), kept);
  ImportOfx(text);
  EXPECT_EQ(Rows("1"), kept) << "each is known again";
}

// The standard groups no digits, so the one mark in an amount stands before its decimals, whatever
// the country of the reader.
TEST_F(OfxImport, TheOneMarkInAnAmountIsItsDecimalMark) {
  for (const char* locale : {"en_GB", "de_DE", "fr_FR"}) {
    SCOPED_TRACE(locale);
    const class Transaction undone = Db().Begin();
    UseLocale(locale);
    ImportOfx(Statement("1", Transaction("<DTPOSTED>20200213<TRNAMT>-10.500<NAME>Point") +
                                 Transaction("<DTPOSTED>20200214<TRNAMT>-10,500<NAME>Comma") +
                                 Transaction("<DTPOSTED>20200215<TRNAMT>1,234.560<NAME>Both") +
                                 Transaction("<DTPOSTED>20200216<TRNAMT>1.234.567<NAME>Groups")));
    EXPECT_EQ(Amounts("1"), (Texts{"-10.5", "-10.5", "1234.56", "1234567"}));
    // What the person says about the file goes before.
    job_.decimalMark = DecimalMark::Comma;
    ImportOfx(Statement("2", Transaction("<DTPOSTED>20200213<TRNAMT>-10.500<NAME>Point")));
    EXPECT_EQ(Amounts("2"), Texts{"-10500"});
    job_.decimalMark.reset();
  }
}

TEST_F(OfxImport, AFileThatIsCutBooksNothingOfTheCutTransaction) {
  const std::string whole =
      Statement("1", Transaction("<DTPOSTED>20200213<TRNAMT>-1.25<FITID>a<NAME>One") +
                         Transaction("<DTPOSTED>20200214<TRNAMT>-12.50<FITID>b<NAME>Two"));
  const std::size_t second = whole.rfind("<STMTTRN>");
  const std::size_t end = whole.rfind("</STMTTRN>") + 10;
  const std::size_t list = whole.find("</BANKTRANLIST>") + 15;
  for (std::size_t size = second; size < whole.size(); ++size) {
    SCOPED_TRACE(whole.substr(0, size));
    const class Transaction undone = Db().Begin();
    const ImportSummary summary = ImportOfx(whole.substr(0, size));
    EXPECT_EQ(Amounts("1"), size < end ? Texts{"-1.25"} : (Texts{"-1.25", "-12.5"}));
    EXPECT_EQ(summary.problemCount, size < list ? 1U : 0U);
    if (size >= second + 9 && size < end) {
      EXPECT_EQ(Problems(summary)[0],
                "1: The file ends inside this transaction; nothing of it was imported. Ask the "
                "bank for the whole file.");
    }
  }
}

TEST_F(OfxImport, TheCashOfInvestmentStatementsIsBookedAndTheirTradesAreNamed) {
  const std::string security = "<SECID><UNIQUEID>0378<UNIQUEIDTYPE>CUSIP</SECID>";
  const ImportSummary summary = ImportOfx(
      "<OFX><INVSTMTMSGSRSV1><INVSTMTTRNRS><INVSTMTRS><CURDEF>EUR<INVACCTFROM><BROKERID>b"
      "<ACCTID>55</INVACCTFROM><INVTRANLIST><DTSTART>20200101\n"
      "<BUYSTOCK><INVBUY><INVTRAN><FITID>t1<DTTRADE>20200210120000</INVTRAN>" +
      security +
      "<UNITS>10<UNITPRICE>5.00<TOTAL>-50.00</INVBUY><BUYTYPE>BUY</BUYSTOCK>\n"
      "<INVBANKTRAN>" +
      Transaction("<DTPOSTED>20200213<TRNAMT>100.00<FITID>c1<NAME>Deposit") +
      "<SUBACCTFUND>CASH</INVBANKTRAN>\n<TRANSFER><INVTRAN><DTTRADE>20200214</INVTRAN>" + security +
      "<INVACCTFROM><ACCTID>99</INVACCTFROM><UNITS>3</TRANSFER><INVBANKTRAN>" +
      Transaction("<DTPOSTED>20200215<TRNAMT>-7.50<FITID>c2<NAME>Fee") +
      "</INVBANKTRAN></INVTRANLIST><INVPOSLIST><POSSTOCK>" + security +
      "</POSSTOCK></INVPOSLIST></INVSTMTRS></INVSTMTTRNRS></INVSTMTMSGSRSV1>" +
      Statement("777", Transaction("<DTPOSTED>20200216<TRNAMT>-1<NAME>Bank")) +
      "<SECLISTMSGSRSV1><SECLIST><STOCKINFO><SECINFO>" + security +
      "<SECNAME>Acme Inc</SECINFO></STOCKINFO></SECLIST></SECLISTMSGSRSV1></OFX>");
  EXPECT_EQ(Rows("55"),
            (Texts{"2020-02-13|Deposit|Credit|100|c1|", "2020-02-15|Fee|Debit|-7.5|c2|"}));
  EXPECT_EQ(Amounts("777"), Texts{"-1"});
  EXPECT_EQ(AccountNames(), (Texts{"55", "777"}));
  EXPECT_EQ(Count("tblAccounts A INNER JOIN tblAccountType T ON A.AccountTypeID = T.AccountTypeID "
                  "Where A.Account = '55' AND T.AccountType = 'Investment Accounts'"),
            1);
  EXPECT_EQ(Problems(summary),
            (Texts{"0: Of the investment statement only the cash was imported. Trades left out: 2 "
                   "(BUYSTOCK 1, TRANSFER 1).",
                   "2: The trade was left out: BUYSTOCK, Acme Inc, 2020-02-10, 10 units at 5.00, "
                   "total -50.00.",
                   "4: The trade was left out: TRANSFER, Acme Inc, 2020-02-14, 3 units."}));
}

TEST(OfxEntities, AreResolvedWhereTheyAreSome) {
  EXPECT_EQ(ResolveEntities("a&amp;b&LT;c&gt;&quot;&apos;&nbsp;&#163;&#x20AC;"),
            "a&b<c>\"' \xC2\xA3\xE2\x82\xAC");
  for (const char* text : {"AT&T", "a & b;", "&unknown;", "&#0;", "&#xD800;", "&#99999999;", "&"}) {
    EXPECT_EQ(ResolveEntities(text), text);
  }
}

// A bank's own mark makes a duplicate certain; nobody is asked. Two marks are two transactions.
TEST_F(OfxImport, BankIds) {
  const auto coffee = [](const std::string& id) {
    return Transaction("<DTPOSTED>20200213<TRNAMT>-3<FITID>" + id + "<NAME>Coffee");
  };
  job_.duplicates = DuplicateAnswer::Ask;
  EXPECT_EQ(ImportOfx(Statement("1", coffee("c1") + coffee("c2"))).imported, 2U);
  const ImportSummary again = ImportOfx(Statement("1", coffee("c3") + coffee("c2") + coffee("c1")));
  EXPECT_EQ(again.imported, 1U);
  EXPECT_EQ(again.duplicates, 2U);
  EXPECT_EQ(ImportOfx(Statement("1", coffee("1004"))).imported, 1U);
  EXPECT_EQ(ImportOfx(Statement("1", coffee("1005"))).imported, 1U);
}

TEST_F(OfxImport, MarksThatMayBeNoneAreAskedAbout) {
  const auto expectQuestion = [this] {
    Machine().prompts.ExpectChoose("File Import",
                                   "Duplicate record found for Tea On 13/02/2020 for -3.00\r\n"
                                   "Matching on Shop On 13/02/2020 for -3.00\r\n"
                                   "Do you want to import duplicate record?",
                                   1);
  };
  const auto tea = [](const std::string& id) {
    return Transaction("<DTPOSTED>20200213<TRNAMT>-3<FITID>" + id + "<NAME>Tea");
  };
  job_.duplicates = DuplicateAnswer::Ask;
  // The number of a cheque, in an account that got rows without one, too.
  AddAccount("1", "1");
  const std::string shop = "D13/2/2020\nT-3\nN101\nPShop\n^\n";
  Import("!Account\nN1\n^\n!Type:Bank\n" + shop + "D14/2/2020\nT-4\nPShop\n^\n");
  expectQuestion();
  EXPECT_EQ(ImportOfx(Statement("1", tea("a1"))).duplicates, 1U);
  // A mark that stands on several entries says nothing of any.
  Import("!Account\nN2\n^\n!Type:Bank\nD13/2/2020\nT-3\nNabc\nPShop\n^\n");
  expectQuestion();
  EXPECT_EQ(ImportOfx(Statement("2", tea("0") + tea("0"))).duplicates, 1U);
}

TEST_F(OfxImport, NumbersAreComparedWithoutBlanksAndDashes) {
  AddAccount("Everyday", "GB12 3456-7890");
  ImportOfx(Statement("gb1234567890", Transaction("<DTPOSTED>20200213<TRNAMT>-3<NAME>Tea")));
  EXPECT_EQ(AccountNames(), Texts{"Everyday"});
  EXPECT_EQ(Amounts("Everyday"), Texts{"-3"});
}

// The account that the person names for a number is known by it from then on.
TEST_F(OfxImport, TheNumberIsNotedOnTheAccountThatTakesIt) {
  const std::int64_t everyday = AddAccount("Everyday");
  job_.chosenTakesAll = true;
  ImportOfx(Statement("123-45", Transaction("<DTPOSTED>20200213<TRNAMT>-3<NAME>Tea")), everyday);
  EXPECT_EQ(ledger_.Accounts().ReadAccount(everyday)->accountNo, "123-45");
  EXPECT_EQ(AccountNames(), Texts{"Everyday"});
  job_.chosenTakesAll = false;
  job_.accountId = 0;
  ImportOfx(Statement("12345", Transaction("<DTPOSTED>20200214<TRNAMT>-4<NAME>Tea")));
  EXPECT_EQ(Amounts("Everyday"), (Texts{"-3", "-4"}));
}

}  // namespace
}  // namespace corvanta
