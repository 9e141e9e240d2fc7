#include "exchange/ExchangeTest.h"
#include "exchange/csv/CsvRows.h"
#include "exchange/import/ImportEditor.h"

namespace corvanta {
namespace {

void Map(CsvMapping& mapping, const char* columns) {
  ASSERT_TRUE(mapping.SetColumns(columns));
}

class CsvImport : public ExchangeTest {
 protected:
  CsvImport() {
    account_ = AddAccount("Mine");
    Map(job_.csv, "DATE:1,PAYEE:2,CATEGORY:3,INCOME:4,EXPENSE:5");
  }

  ImportSummary ImportCsv(const std::string& text) { return Import(text, "file.csv", account_); }

  std::int64_t account_ = 0;
};

TEST(CsvRows, QuotesSeparatorsAndLines) {
  const auto read = [](std::string_view text, std::string_view separator) {
    Texts found;
    CsvRows rows(text, separator);
    CsvRow row;
    while (rows.Next(row)) {
      std::string line = std::to_string(row.line) + ":";
      for (const std::string& cell : row.cells) line += "[" + cell + "]";
      found.push_back(line);
    }
    return found;
  };
  EXPECT_EQ(read("a,\"b,c\",\"d\"\"e\"\r\n\"f\ng\", h ,\n\n,\r,x", ","),
            (Texts{"1:[a][b,c][d\"e]", "2:[f\ng][ h ][]", "4:[]", "5:[][]", "6:[][x]"}));
  EXPECT_EQ(read("a\tb;c\t \"d\"x\t\"\"\n", "\t"), (Texts{"1:[a][b;c][dx][]"}));
  EXPECT_EQ(read("1\xC2\xA7"
                 "2",
                 "\xC2\xA7"),
            (Texts{"1:[1][2]"}));
  // A quote that is never closed is one that was typed.
  EXPECT_EQ(read("a,\"b,c\nd,e", ","), (Texts{"1:[a][\"b][c]", "2:[d][e]"}));
  EXPECT_EQ(read("a,\"b,c\nd,\"e,f\",g\n", ","), (Texts{"1:[a][\"b][c]", "2:[d][e,f][g]"}));
}

TEST_F(CsvImport, Amounts) {
  const ImportSummary summary = ImportCsv(
      "13/02/2020,\"Smith, J\",Food:Dining:Out,,12.50\n"
      "14/02/2020,,Salary,12.50,\n"
      "15/02/2020,Neg,,,-12.50\n"
      "16/02/2020,Both,,3,4\n"
      "17/02/2020,None,,,\n\n"
      "18/02/2020,\"Grouped,\r\nwrapped\",,\"1,234.50\",\n");
  EXPECT_EQ(Rows("Mine"),
            (Texts{"2020-02-13|Smith, J|Food:Dining Out|-12.5||",
                   "2020-02-14|Transfer|Salary|12.5||", "2020-02-15|Neg|Debit|-12.5||",
                   "2020-02-16|Both|Credit|3||", "2020-02-18|Grouped, wrapped|Credit|1234.5||"}));
  EXPECT_EQ(Problems(summary), (Texts{"5: The row has no amount; it was left out."}));
  EXPECT_EQ(summary.imported, 5U);
  EXPECT_EQ(summary.outcome, ImportOutcome::Complete);
}

TEST_F(CsvImport, OneColumnCarriesItsSign) {
  Map(job_.csv, "DATE:1,PAYEE:2,INCOME:3,EXPENSE:3");
  job_.csv.separator = ";";
  job_.csv.skip = 2;
  ImportCsv("My bank\nDatum;Name;Betrag\n13.02.2020;A;-1.234,50\n14.02.2020;B;2,00\n");
  EXPECT_EQ(Amounts("Mine"), (Texts{"-1234.5", "2"}));
}

TEST_F(CsvImport, ZeroAndSignColumns) {
  job_.csv.zeroIsEmpty = true;
  ImportCsv("13/02/2020,A,,0.00,5.00\n13/02/2020,B,,6.00,0.00\n13/02/2020,C,,0.00,0.00\n");
  EXPECT_EQ(Amounts("Mine"), (Texts{"-5", "6"}));
  Map(job_.csv, "DATE:1,PAYEE:2,INCOME:3,EXPENSE:3,SIGN:4");
  ImportCsv("14/02/2020,A,5,Debit\n14/02/2020,B,6,CR\n14/02/2020,C,-7,\n14/02/2020,D,8,-\n");
  EXPECT_EQ(Amounts("Mine"), (Texts{"-5", "6", "-5", "6", "-7", "-8"}));
  EXPECT_EQ(ImportCsv("15/02/2020,A,5,Maybe\n").stop,
            "The import stopped at line 1: \"Maybe\" says neither debit nor credit.");
}

TEST_F(CsvImport, WordsForTheSideOfManyLanguagesAndOfThePerson) {
  Map(job_.csv, "DATE:1,PAYEE:2,INCOME:3,EXPENSE:3,SIGN:4");
  ImportCsv(
      "13/02/2020,A,1,D\u00E9bito\n13/02/2020,B,2,Abono\n13/02/2020,C,3,Af\n13/02/2020,D,4,Bij\n"
      "13/02/2020,E,5,\u0420\u0430\u0441\u0445\u043E\u0434\n"
      "13/02/2020,F,6,\u5165\u91D1\n13/02/2020,G,7,Wp\u0142ata\n13/02/2020,H,8,CRDT\n");
  EXPECT_EQ(Amounts("Mine"), (Texts{"-1", "2", "-3", "4", "-5", "6", "7", "8"}));
  EXPECT_EQ(ImportCsv("14/02/2020,A,9,Raus\n").stop,
            "The import stopped at line 1: \"Raus\" says neither debit nor credit.");
  job_.csv.debitWords = "Raus, Weg";
  job_.csv.creditWords = "rein,D";
  ImportCsv("14/02/2020,A,9,raus\n14/02/2020,B,10,Rein\n14/02/2020,C,11,weg\n14/02/2020,D,12,D\n");
  EXPECT_EQ(Amounts("Mine").size(), 12U);
  EXPECT_EQ(Amounts("Mine")[8], "-9");
  EXPECT_EQ(Amounts("Mine")[9], "10");
  EXPECT_EQ(Amounts("Mine")[10], "-11");
  EXPECT_EQ(Amounts("Mine")[11], "12");
}

TEST_F(CsvImport, DescriptionReferenceAndNumber) {
  Map(job_.csv, "DATE:1,PAYEE:2,INCOME:3,EXPENSE:3,DESCRIPTION:4,REFERENCE:5,NUMBER:6");
  ImportCsv(
      "13/02/2020,A,1,\"Two\nlines\",R1,\n13/02/2020,B,2,,,101\n13/02/2020,C,3,x,R2,102\n"
      "13/02/2020,D,4,,7,7\n");
  EXPECT_EQ(Rows("Mine"), (Texts{"2020-02-13|A|Credit|1|R1|Two lines", "2020-02-13|B|Credit|2|101|",
                                 "2020-02-13|C|Credit|3|102 R2|x", "2020-02-13|D|Credit|4|7|"}));
}

// A file that breaks off in a row books nothing of it; a quote that was only typed is none.
TEST_F(CsvImport, AFileThatIsCutBooksNothingOfTheCutRow) {
  Map(job_.csv, "DATE:1,PAYEE:2,INCOME:3,EXPENSE:3,DESCRIPTION:4");
  const std::string before = "13/02/2020,A,1,x\n";
  for (const char* cut : {"14/02/2020,\"12 High Street, 45", "14/02/2020,B,2,\"a memo",
                          "14/02/2020,B,2,\"a\nsecond li", "14/02/2020,\"B\nC", "14/02/2020,B,12",
                          "14/02/2020,B,2,\"a\n15/02"}) {
    SCOPED_TRACE(cut);
    const Transaction undone = Db().Begin();
    const ImportSummary summary = ImportCsv(before + cut);
    EXPECT_EQ(Amounts("Mine"), Texts{"1"});
    EXPECT_EQ(summary.outcome, ImportOutcome::Complete);
    EXPECT_EQ(
        Problems(summary),
        Texts{"2: The file ends inside this row; nothing of it was imported. Ask the bank for "
              "the whole file."});
  }
  ImportCsv(before + "14/02/2020,\"B,2,x\n15/02/2020,C,3,y");
  EXPECT_EQ(Amounts("Mine"), (Texts{"1", "2", "3"}));
}

TEST_F(CsvImport, DatesOfTheChosenOrder) {
  for (const auto& [order, date] : {std::pair(DateOrder::DayMonthYear, "03/04/2020"),
                                    {DateOrder::MonthDayYear, "04/03/2020"},
                                    {DateOrder::YearMonthDay, "2020-04-03"},
                                    {DateOrder::DayMonthYear, "03042020"},
                                    {DateOrder::MonthDayYear, "040320"},
                                    {DateOrder::YearMonthDay, "20200403"},
                                    {DateOrder::DayMonthYear, "3 Apr 2020"}}) {
    job_.csv.order = order;
    job_.duplicates = DuplicateAnswer::Import;
    ImportCsv(date + std::string(",P,,1,\n"));
  }
  EXPECT_EQ(Dates("Mine"), Texts(7, "2020-04-03"));
}

TEST_F(CsvImport, AValueThatIsNotUnderstoodStopsThere) {
  const std::string start = "13/02/2020,A,,1,\n14/02/2020,B,,2,\n";
  ImportSummary summary = ImportCsv(start + "31/02/2020,C,,3,\n15/02/2020,D,,4,\n");
  EXPECT_EQ(summary.outcome, ImportOutcome::Kept);
  EXPECT_EQ(summary.stop, "The import stopped at line 3: \"31/02/2020\" is no date.");
  EXPECT_EQ(Amounts("Mine"), (Texts{"1", "2"}));
  job_.keepIncomplete = false;
  summary = ImportCsv("16/02/2020,A,,5,\n16/02/2020,B,,x,\n");
  EXPECT_EQ(summary.outcome, ImportOutcome::Dropped);
  EXPECT_EQ(summary.stop, "The import stopped at line 2: \"x\" is no number.");
  EXPECT_EQ(Amounts("Mine"), (Texts{"1", "2"}));
  // So does a last row with a day that there is not.
  job_.keepIncomplete = true;
  for (const char* day : {"31/02/2020", "20/13/13", "31 Feb 2020", "31022020"}) {
    EXPECT_EQ(ImportCsv(std::string(day) + ",A,,9,\n").stop,
              "The import stopped at line 1: \"" + std::string(day) + "\" is no date.");
  }
  // A balance behind the last transaction is none.
  Map(job_.csv, "DATE:1,PAYEE:2,INCOME:4,EXPENSE:5");
  summary = ImportCsv("17/02/2020,A,,6,\n\n,,,,\nBalance 12 2020,,,123.45,\n");
  EXPECT_EQ(summary.outcome, ImportOutcome::Complete);
  EXPECT_EQ(Problems(summary), (Texts{"4: The row has no date; it was left out."}));
  EXPECT_EQ(Amounts("Mine"), (Texts{"1", "2", "6"}));
}

class CsvDialog : public CsvImport {
 protected:
  CsvDialog() : editor_(ledger_, Machine().Get()) { form_.accountId = account_; }

  std::string Open(const std::string& text) {
    form_.file = Write("bank.csv", text);
    const auto warning = editor_.Check(form_);
    return warning ? warning->text : std::string();
  }
  std::string Checked() {
    const auto warning = editor_.CheckCsv(form_);
    return warning ? warning->title + "|" + warning->text + "|" + warning->field : std::string();
  }

  ImportEditor editor_;
  ImportForm form_;
};

TEST_F(CsvDialog, TheAccountIsChosenFirst) {
  form_.accountId.reset();
  EXPECT_EQ(Open("a,b\n"), "Please select an Account for the file import");
  form_.accountId = 0;  // a CSV file names no accounts
  EXPECT_EQ(Open("a,b\n"), "Please select an Account for the file import");
  EXPECT_FALSE(Open("!Type:Bank\n").size());
  form_.accountId = AddAccount("Closed", {}, kPounds, true);
  EXPECT_EQ(Open("a,b\n"), "This Account is closed, Items cannot be amended");
  const auto accounts = editor_.Accounts();
  ASSERT_EQ(accounts.size(), 2U);
  EXPECT_EQ(accounts[0].name, "<Import All Accounts Automatically>");
  EXPECT_EQ(accounts[1].name, "Mine");
  form_.accountId = account_;
  EXPECT_EQ(Open(std::string("a\0b", 3)),
            "This is no text file, so it holds no transactions that could be imported.");
}

TEST_F(CsvDialog, ChecksInTheirOrder) {
  ASSERT_EQ(Open("Head,x,x,x,x\n13/02/2020,P,C,1,\n14/02/2020,P,C,,2\nTotal,,,3,\n"), "");
  form_.csv = CsvMapping();
  EXPECT_EQ(Checked(), "File Import|Please select the column for the Date Column|cmbColDate");
  form_.csv.date = 2;
  EXPECT_EQ(Checked(), "File Import|Please select the column for the Payee Column|cmbColPayee");
  form_.csv.payee = 2;
  EXPECT_EQ(Checked(), "File Import|Please select the column for the Income Column|cmbColIncome");
  form_.csv.income = 2;
  EXPECT_EQ(Checked(), "File Import|Please select the column for the Expense Column|cmbColExpense");
  form_.csv.expense = 3;
  form_.skip = "x";
  EXPECT_EQ(Checked(), "File Import|Please enter the number of rows to skip|txtSkip");
  form_.skip = "1";
  form_.separator = ";;";
  EXPECT_EQ(Checked(),
            "File Import|Please enter one character, or Tab, as the separator|txtSeparator");
  form_.separator = ",";
  EXPECT_EQ(Checked(), "File Import|col 2 Is not a Date Column|cmbColDate");
  form_.csv.date = 1;
  EXPECT_EQ(Checked(), "File Import|col 2 Is not a Numeric Column|cmbColIncome");
  form_.csv.income = 4;
  EXPECT_EQ(Checked(), "File Import|col 3 Is not a Numeric Column|cmbColExpense");
  form_.csv.expense = 5;
  EXPECT_EQ(Checked(), "");
  form_.csv.order = DateOrder::MonthDayYear;
  EXPECT_EQ(Checked(), "File Import|col 1 Is not a Date Column|cmbColDate");
  form_.csv.order = DateOrder::DayMonthYear;
  form_.skip = "0";
  EXPECT_EQ(Checked(), "File Import|col 1 Is not a Date Column|cmbColDate");
}

TEST_F(CsvDialog, ProposesWhatTheFileLooksLike) {
  struct Case {
    const char* text;
    const char* columns;
    int skip;
    const char* separator;
    DateOrder order;
    bool zeroIsEmpty;
  };
  const Case cases[] = {
      {"Date,Description,Paid Out,Paid In,Balance\n13/02/2020,Shop,5.00,,95.00\n"
       "14/02/2020,Pay,,10.00,105.00\n",
       "DATE:1,PAYEE:2,CATEGORY:0,INCOME:4,EXPENSE:3", 1, ",", DateOrder::DayMonthYear, false},
      {"Kontoauszug\n\nBuchungstag;Name;Betrag;Saldo\n13.02.2020;Laden;-5,00;95,00\n",
       "DATE:1,PAYEE:2,CATEGORY:0,INCOME:3,EXPENSE:3", 3, ";", DateOrder::DayMonthYear, false},
      {"Date\tAmount\tType\tDetails\n02/13/2020\t5.00\tDebit\tShop\n02/14/"
       "2020\t6.00\tCredit\tPay\n",
       "DATE:1,PAYEE:4,CATEGORY:0,INCOME:2,EXPENSE:2,SIGN:3", 1, "\t", DateOrder::MonthDayYear,
       false},
      {"2020-02-13,Shop,Food,5.00\n", "DATE:1,PAYEE:2,CATEGORY:0,INCOME:4,EXPENSE:4", 0, ",",
       DateOrder::YearMonthDay, false},
      {"Date,Payee,Debit,Credit\n13/02/2020,Shop,5.00,0.00\n14/02/2020,Pay,0.00,6.00\n",
       "DATE:1,PAYEE:2,CATEGORY:0,INCOME:4,EXPENSE:3", 1, ",", DateOrder::DayMonthYear, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    ASSERT_EQ(Open(c.text), "");
    std::string name;
    form_ = editor_.Propose(form_, name);
    EXPECT_EQ(form_.csv.ColumnsText(), c.columns);
    EXPECT_EQ(form_.skip, std::to_string(c.skip));
    EXPECT_EQ(form_.csv.separator, c.separator);
    EXPECT_EQ(form_.csv.order, c.order);
    EXPECT_EQ(form_.csv.zeroIsEmpty, c.zeroIsEmpty);
    EXPECT_EQ(Checked(), "");
    form_.file.clear();
  }
}

TEST_F(CsvDialog, KnowsHeadingsOfManyLanguages) {
  struct Case {
    const char* text;
    const char* columns;
  };
  const Case cases[] = {
      {"Fecha;Concepto;Cargo;Abono;Saldo\n13/02/2020;Tienda;5,00;;95,00\n14/02/"
       "2020;N\u00F3mina;;10,00;105,00\n",
       "DATE:1,PAYEE:2,CATEGORY:0,INCOME:4,EXPENSE:3"},
      {"Date;Libell\u00E9;D\u00E9bit;Cr\u00E9dit\n13/02/2020;Magasin;5,00;\n14/02/"
       "2020;Salaire;;10,00\n",
       "DATE:1,PAYEE:2,CATEGORY:0,INCOME:4,EXPENSE:3"},
      {"Datum,Naam,Rekening,Af Bij,Bedrag,Mededelingen\n20200213,Winkel,NL1,Af,\"5,00\",Pas 1\n"
       "20200214,Werk,NL1,Bij,\"10,00\",Loon\n",
       "DATE:1,PAYEE:2,CATEGORY:0,INCOME:5,EXPENSE:5,SIGN:4,DESCRIPTION:6"},
      {"Data;Kontrahent;Tytu\u0142;Obci\u0105\u017Cenie;Uznanie\n13.02.2020;Sklep;Zakupy;5,00;\n"
       "14.02.2020;Praca;Pensja;;10,00\n",
       "DATE:1,PAYEE:2,CATEGORY:0,INCOME:5,EXPENSE:4,DESCRIPTION:3"},
      {"\u65E5\u4ED8,\u6458\u8981,\u51FA\u91D1,\u5165\u91D1,\u6B8B\u9AD8\n2020/02/13,A,500,,900\n"
       "2020/02/14,B,,700,1600\n",
       "DATE:1,PAYEE:2,CATEGORY:0,INCOME:4,EXPENSE:3"},
      {"Date,Payee,Category,Payment,Reference,Description,Status,Paid Out,Paid In\n"
       "2020-02-13,Shop,Food,Cash,7,Lunch,,12.5,\n",
       "DATE:1,PAYEE:2,CATEGORY:3,INCOME:9,EXPENSE:8,DESCRIPTION:6,REFERENCE:5"},
      {"Date,Cheque Number,Name,Amount\n13/02/2020,101,Shop,-5.00\n",
       "DATE:1,PAYEE:3,CATEGORY:0,INCOME:4,EXPENSE:4,NUMBER:2"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    ASSERT_EQ(Open(c.text), "");
    std::string name;
    form_ = editor_.Propose(form_, name);
    EXPECT_EQ(form_.csv.ColumnsText(), c.columns);
    EXPECT_EQ(Checked(), "");
  }
}

TEST(CsvMappings, OfFormerVersionsAreStillRead) {
  const auto former = ReadSavedMapping(
      "DATE:1,PAYEE:2,CATEGORY:0,INCOME:3,EXPENSE:3,SIGN:4|1|bar|Month/Day/Year|1|comma|A | B|C");
  ASSERT_TRUE(former);
  EXPECT_EQ(former->header, "A | B|C");
  EXPECT_EQ(former->mapping.sign, 4);
  EXPECT_EQ(former->mapping.separator, "|");
  EXPECT_EQ(former->mapping.decimalMark, DecimalMark::Comma);
  SavedCsvMapping saved = *former;
  saved.mapping.description = 5;
  saved.mapping.number = 6;
  saved.mapping.debitWords = "Raus,Weg";
  saved.mapping.creditWords = "Rein";
  saved.encoding = "windows-1250";
  const auto back = ReadSavedMapping(ToText(saved));
  ASSERT_TRUE(back);
  EXPECT_EQ(back->mapping, saved.mapping);
  EXPECT_EQ(back->header, saved.header);
  EXPECT_EQ(back->encoding, saved.encoding);
  for (const char* text :
       {"", "2|", "2|DATE:1|1|,|Day/Month/Year|0|file|", "3|x", "DATE:1|x|,|y|0|"}) {
    EXPECT_FALSE(ReadSavedMapping(text)) << text;
  }
}

TEST_F(CsvDialog, ThePreviewShowsTheValuesAsTheyWillBeRead) {
  ASSERT_EQ(Open("Date;Name;Amount\n13.02.2020;Shop;-1.234,50\n14.02.2020;Pay;x\n;;5,00\n"), "");
  std::string name;
  form_ = editor_.Propose(form_, name);
  Map(form_.csv, "DATE:1,PAYEE:2,INCOME:3,EXPENSE:3");
  form_.skip = "1";
  form_.separator = ";";
  const CsvPreview preview = editor_.Preview(form_);
  EXPECT_EQ(preview.columns, 3);
  EXPECT_TRUE(preview.isWhole);
  ASSERT_EQ(preview.rows.size(), 4U);
  EXPECT_TRUE(preview.rows[0].isSkipped);
  EXPECT_EQ(preview.rows[1].date, "13/02/2020");
  EXPECT_EQ(preview.rows[1].amount, "-1,234.50");
  EXPECT_EQ(preview.rows[2].problem, "\"x\" is no number.");
  EXPECT_TRUE(preview.rows[3].isSkipped);
}

TEST_F(CsvDialog, MappingsAreSavedAndFoundByTheirHeader) {
  const std::string text = "When|Who|How much\n13/02/2020|Shop|5.00\n";
  ASSERT_EQ(Open(text), "");
  Map(form_.csv, "DATE:1,PAYEE:2,INCOME:3,EXPENSE:3");
  form_.csv.decimalMark = DecimalMark::Point;
  form_.skip = "1";
  form_.separator = "|";
  EXPECT_TRUE(editor_.SaveMapping("  ", form_));
  EXPECT_FALSE(editor_.SaveMapping("My bank", form_));
  EXPECT_EQ(editor_.MappingNames(), (Texts{"My bank"}));

  ImportEditor later(ledger_, Machine().Get());
  ImportForm other;
  other.accountId = account_;
  other.file = Write("other.csv", "When|Who|How much\n01/03/2020|Cafe|3\n");
  ASSERT_FALSE(later.Check(other));
  std::string name;
  const ImportForm proposed = later.Propose(other, name);
  EXPECT_EQ(name, "My bank");
  EXPECT_EQ(proposed.csv.ColumnsText(), form_.csv.ColumnsText());
  EXPECT_EQ(proposed.separator, "|");
  EXPECT_EQ(proposed.csv.decimalMark, DecimalMark::Point);
  later.DeleteMapping("My bank");
  EXPECT_EQ(later.MappingNames(), Texts{});
}

}  // namespace
}  // namespace corvanta
