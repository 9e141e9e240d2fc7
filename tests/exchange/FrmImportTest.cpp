#include "controls/QtText.h"
#include "exchange/ExchangeDialogs.h"
#include "exchange/ExchangeTest.h"
#include "exchange/import/FrmImport.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/Period.h"
#include "support/DialogTest.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QProgressBar>
#include <QTableView>

#include <fstream>
#include <memory>

namespace corvanta {
namespace {

constexpr const char* kTitle = "File Import";
constexpr const char* kComplete = "File Import Complete";
constexpr const char* kAutomatic = "<Import All Accounts Automatically>";

constexpr const char* kQif =
    "!Type:Bank\nD13/02/2026\nT-12.50\nPShop\nLFood:Out\n^\nD14/02/2026\nT100\nPWork\n^\n";
constexpr const char* kOfx =
    "OFXHEADER:100\n<OFX><BANKMSGSRSV1><STMTTRNRS><STMTRS><CURDEF>GBP<BANKACCTFROM><ACCTID>4711"
    "</BANKACCTFROM><BANKTRANLIST><STMTTRN><DTPOSTED>20260415120000[0:GMT]<TRNAMT>-3.20<FITID>a1"
    "<NAME>Cafe</STMTTRN></BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>";
constexpr const char* kCsv =
    "Date,Payee,Category,Paid in,Paid out\n"
    "13/02/2026,\"Smith, Jones\",Food:Out,,12.50\n"
    "14/02/2026,Work,Pay,1000.00,\n";

// The window in front of a ledger with one account, "Bank".
class Importing : public DialogTest<ExchangeTest> {
 protected:
  Importing() : bank_(AddAccount("Bank")) {}

  void Open(const std::string& file = {}, std::int64_t account = 0) {
    form_ = std::make_unique<FrmImport>(Machine().Get(), Ledger(), nullptr);
    form_->Open(account, file);
    Show(*form_);
  }
  void OpenText(const std::string& name, const std::string& text, std::int64_t account = 0) {
    Open(Write(name, text), account);
  }
  // The page of a CSV file for the account.
  void OpenColumns(const std::string& text) {
    OpenText("file.csv", text, bank_);
    Press("cmdAccept");
    ASSERT_EQ(Page(), "cmdAcceptCSV");
  }

  void Press(const char* button) { Click(*form_, button); }
  QString Focus() { return FocusOf(*form_); }
  QString Note() { return NoteOf(*form_); }
  bool IsVisible(const char* name) { return Find<QWidget>(*form_, name).isVisible(); }
  // The button that Enter presses, by which the pages are told apart.
  QString Page() {
    for (const char* button : {"cmdAccept", "cmdAcceptCSV", "cmdClose"}) {
      const auto& widget = Find<QPushButton>(*form_, button);
      if (widget.isVisible() && widget.isDefault()) return QLatin1String(button);
    }
    return {};
  }
  QString Text(const char* field) {
    if (auto* line = form_->findChild<QLineEdit*>(QLatin1String(field))) return line->text();
    return Find<QComboBox>(*form_, field).currentText();
  }
  std::string Label(const char* name) { return FromQt(Find<QLabel>(*form_, name).text()); }

  // Goes through the list by keys to the entry of that name.
  void Pick(const char* name, const QString& text) {
    auto& box = Find<QComboBox>(*form_, name);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Home);
    for (int i = 0; i < box.count() && box.currentText() != text; ++i) {
      QTest::keyClick(&box, Qt::Key_Down);
    }
    ASSERT_EQ(box.currentText(), text) << name;
  }
  Texts Items(const char* name) {
    const auto& box = Find<QComboBox>(*form_, name);
    Texts items;
    for (int i = 0; i < box.count(); ++i) items.push_back(FromQt(box.itemText(i)));
    return items;
  }
  // A row of a list as one text, -1 for its head.
  std::string Row(const char* list, int row) {
    const QAbstractItemModel& model = *Find<QTableView>(*form_, list).model();
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column) {
      cells.append(row < 0 ? model.headerData(column, Qt::Horizontal).toString()
                           : model.index(row, column).data().toString());
    }
    return FromQt(cells.join(u'|'));
  }
  void ExpectMessage(const std::string& text) { Machine().prompts.ExpectTell(kTitle, text); }
  // A refused attempt to go on.
  void ExpectRefusal(const char* button, const std::string& message, const char* focus) {
    ExpectMessage(message);
    Press(button);
    EXPECT_EQ(Focus(), focus) << message;
    EXPECT_EQ(Page(), button) << message;
  }
  void CloseSummary() {
    ExpectMessage(kComplete);
    QTest::keyClick(form_.get(), Qt::Key_Return);
    EXPECT_FALSE(form_->isVisible());
  }
  // Presses Escape when the bar has come to that many thousandths of the file.
  void StopAt(int step) {
    auto& bar = Find<QProgressBar>(*form_, "pbStatus");
    auto* watch = new QObject(form_.get());
    QObject::connect(&bar, &QProgressBar::valueChanged, watch, [this, watch, step](int value) {
      if (value < step) return;
      EXPECT_EQ(Label("lblStatus"), "Please wait importing records...");
      delete watch;
      QTest::keyClick(form_.get(), Qt::Key_Escape);
    });
  }
  static std::string ManyRecords() {
    std::string text = "!Type:Bank\n";
    for (int i = 0; i < 100; ++i) {
      text += "D13/02/2026\nT-" + std::to_string(i + 1) + "\nPShop\n^\n";
    }
    return text;
  }

  std::int64_t bank_;
  std::unique_ptr<FrmImport> form_;
};

TEST_F(Importing, TheFirstPageTellsWhatIsMissingAndKeepsWhatWasTyped) {
  Open();
  EXPECT_EQ(form_->windowTitle(), kTitle);
  EXPECT_EQ(Items("cmbAccount"), (Texts{kAutomatic, "Bank"}));
  EXPECT_EQ(Focus(), "txtFile");
  ExpectRefusal("cmdAccept", "Please select a File for the file import", "txtFile");
  const std::string missing = Machine().folder.Path("missing.qif");
  Type(*form_, "txtFile", ToQt(missing));
  ExpectRefusal("cmdAccept", "There is no file " + missing, "txtFile");
  EXPECT_EQ(Label("lblKind"), "There is no such file.");
  const QString file = ToQt(Write("file.csv", kCsv));
  Type(*form_, "txtFile", file);
  ExpectRefusal("cmdAccept", "Please select an Account for the file import", "cmbAccount");
  Type(*form_, "cmbAccount", "No account of mine");
  ExpectRefusal("cmdAccept", "Please select an Account for the file import", "cmbAccount");
  Type(*form_, "cmbAccount", kAutomatic);
  ExpectRefusal("cmdAccept", "Please select an Account for the file import", "cmbAccount");
  EXPECT_EQ(Text("txtFile"), file);
  EXPECT_EQ(Text("cmbAccount"), kAutomatic);
  EXPECT_FALSE(form_->IsChanged());
}

TEST_F(Importing, EachKindOfFileOffersItsChoices) {
  OpenText("bank.qif", kQif);
  EXPECT_TRUE(IsVisible("cmbDateOrder") && IsVisible("cmbNumbers"));
  EXPECT_EQ(Text("cmbDateOrder"), "As the file shows");
  EXPECT_EQ(Find<QPushButton>(*form_, "cmdAccept").text(), "&Import");
  // A file is what is in it, whatever its name.
  Machine().prompts.ExpectOpenFile("Select File to Import", Write("list.txt", kOfx));
  Press("cmdFile");
  EXPECT_FALSE(IsVisible("cmbDateOrder"));
  EXPECT_TRUE(IsVisible("cmbNumbers") && IsVisible("cmbEncoding"));
  Type(*form_, "txtFile", ToQt("file://" + Write("list.csv", kCsv)));
  QTest::keyClick(form_->focusWidget(), Qt::Key_Tab);
  EXPECT_FALSE(IsVisible("cmbDateOrder") || IsVisible("cmbNumbers"));
  EXPECT_EQ(Find<QPushButton>(*form_, "cmdAccept").text(), "&Next");
}

TEST_F(Importing, NonsenseIsSaidWhereItIsTypedAndTold) {
  OpenText("picture.qif", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16), bank_);
  const std::string said = Label("lblKind");
  EXPECT_FALSE(said.empty());
  ExpectRefusal("cmdAccept", said, "txtFile");
  Type(*form_, "txtFile", ToQt(Write("empty.qif", "")));
  QTest::keyClick(form_->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Label("lblSummary"), "Nothing was imported from empty.qif");
  CloseSummary();
}

TEST_F(Importing, AQifFileGoesIntoTheChosenAccount) {
  OpenText("bank.qif", std::string(kQif) + "D31/02/2026\nT1\n^\n", bank_);
  EXPECT_EQ(Focus(), "cmbAccount");
  QTest::keyClick(form_.get(), Qt::Key_Return);
  EXPECT_EQ(Page(), "cmdClose");
  EXPECT_EQ(Rows("Bank"),
            (Texts{"2026-02-13|Shop|Food:Out|-12.5||", "2026-02-14|Work|Credit|100||"}));
  EXPECT_EQ(Label("lblSummary"), "bank.qif was imported");
  EXPECT_EQ(Label("lblImported"), "2");
  EXPECT_EQ(Label("lblDuplicates"), "0");
  EXPECT_EQ(Label("lblTransfers"), "0");
  EXPECT_EQ(Label("lblInvestments"), "0");
  EXPECT_EQ(Label("lblProblems"), "Not understood or left out: 1");
  EXPECT_EQ(Row("lvProblems", 0), "11|\"31/02/2026\" is no date.");
  auto& list = Find<QTableView>(*form_, "lvProblems");
  list.setFocus();
  QTest::keySequence(&list, QKeySequence::Copy);
  EXPECT_EQ(FromQt(QGuiApplication::clipboard()->text()), "11\t\"31/02/2026\" is no date.");
  Press("cmdCopy");
  EXPECT_TRUE(QGuiApplication::clipboard()->text().contains("Transactions imported: 2\n"));
  EXPECT_TRUE(QGuiApplication::clipboard()->text().contains("Line 11: "));
  EXPECT_TRUE(form_->IsChanged());
  // Escape leaves the summary as its button does.
  ExpectMessage(kComplete);
  QTest::keyClick(form_.get(), Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(Importing, TheOrderOfDatesAndTheStyleOfNumbersCanBeChosen) {
  OpenText("bank.qif", "!Type:Bank\nD03/04/2026\nT-1.500\nPShop\n^\n", bank_);
  Pick("cmbDateOrder", "Month/Day/Year");
  Pick("cmbNumbers", "1.234,56");
  Press("cmdAccept");
  EXPECT_EQ(Rows("Bank"), Texts{"2026-03-04|Shop|Debit|-1500||"});
  CloseSummary();
}

TEST_F(Importing, AnOfxFileMakesItsOwnAccount) {
  OpenText("statement.ofx", kOfx);
  Type(*form_, "cmbAccount", kAutomatic);
  Press("cmdAccept");
  ASSERT_EQ(Page(), "cmdClose");
  ASSERT_EQ(AccountNames().size(), 2U);
  EXPECT_EQ(Rows(AccountNames().back()), Texts{"2026-04-15|Cafe|Debit|-3.2|a1|"});
  CloseSummary();
}

TEST_F(Importing, AFileWithoutAccountsComesBackToTheChoice) {
  OpenText("bank.qif", kQif);
  Type(*form_, "cmbAccount", kAutomatic);
  ExpectRefusal("cmdAccept",
                "File import can not continue, there are no accounts in this file. Create an "
                "Account before importing.",
                "cmbAccount");
  Type(*form_, "cmbAccount", "Bank");
  Press("cmdAccept");
  EXPECT_EQ(Label("lblImported"), "2");
  CloseSummary();
}

TEST_F(Importing, ADuplicateIsAskedAbout) {
  OpenText("bank.qif", kQif, bank_);
  Press("cmdAccept");
  CloseSummary();
  const auto expectQuestion = [this](const std::string& rest, std::optional<std::size_t> answer) {
    Machine().prompts.ExpectChoose(kTitle,
                                   "Duplicate record found for " + rest + "\r\nMatching on " +
                                       rest + "\r\nDo you want to import duplicate record?",
                                   answer);
  };
  const std::string shop = "Shop On 13/02/2026 for -12.50";
  const std::string work = "Work On 14/02/2026 for 100.00";
  struct Case {
    std::optional<std::size_t> first;
    std::optional<std::size_t> second;  // asked where it is there
    const char* imported;
    const char* skipped;
  };
  const std::vector<Case> cases = {{1, 0, "1", "1"}, {3, {}, "0", "2"}, {2, {}, "2", "0"}};
  for (const Case& answers : cases) {
    OpenText("bank.qif", kQif, bank_);
    expectQuestion(shop, answers.first);
    if (answers.second) expectQuestion(work, answers.second);
    Press("cmdAccept");
    EXPECT_EQ(Label("lblImported"), answers.imported);
    EXPECT_EQ(Label("lblDuplicates"), answers.skipped);
    // What has brought nothing can be tried again.
    EXPECT_EQ(IsVisible("cmdBack"), answers.skipped == std::string("2"));
    EXPECT_EQ(Label("lblSummary").starts_with("Nothing"), IsVisible("cmdBack"));
    CloseSummary();
  }
}

TEST_F(Importing, EscapeOnTheWayTakesAllBack) {
  Open(Write("many.qif", ManyRecords()), bank_);
  StopAt(500);
  ExpectMessage("The import was cancelled.");
  Press("cmdAccept");
  EXPECT_EQ(Page(), "cmdAccept");
  EXPECT_EQ(Note(), "The import was cancelled. Nothing was imported.");
  EXPECT_EQ(Text("cmbAccount"), "Bank");
  EXPECT_EQ(Rows("Bank"), Texts{});
  EXPECT_FALSE(form_->IsChanged());
  // And it can be done again.
  Press("cmdAccept");
  EXPECT_EQ(Label("lblImported"), "100");
  CloseSummary();
}

TEST_F(Importing, AFileOfAnotherAccountIsAskedAbout) {
  OpenText("statement.ofx", kOfx, bank_);
  EXPECT_EQ(Label("lblOwner"), "The file belongs to 4711: a new account, or is it Bank?");
  EXPECT_EQ(Items("cmbOwner"), (Texts{"Please choose", "A new account, 4711", "It is Bank"}));
  ExpectRefusal("cmdAccept", "The file belongs to 4711: a new account, or is it Bank?", "cmbOwner");
  // Without a choice of an account there is nothing to ask.
  Type(*form_, "cmbAccount", kAutomatic);
  EXPECT_FALSE(IsVisible("cmbOwner"));
  Type(*form_, "cmbAccount", "Bank");
  EXPECT_EQ(Text("cmbOwner"), "Please choose") << "an answer holds for its question";
  Pick("cmbOwner", "It is Bank");
  Press("cmdAccept");
  EXPECT_EQ(Rows("Bank"), Texts{"2026-04-15|Cafe|Debit|-3.2|a1|"});
  EXPECT_EQ(Label("lblIntoAccount"), "1");
  EXPECT_EQ(form_->Account(), bank_);
  CloseSummary();
  // The number is known now.
  OpenText("statement.ofx", kOfx, bank_);
  EXPECT_FALSE(IsVisible("cmbOwner"));
}

TEST_F(Importing, AMereListOfAccountsShowsTheNewOnes) {
  OpenText("list.qif", "!Account\nNBank\n^\nNCard\nTCCard\n^\n", bank_);
  Press("cmdAccept");
  EXPECT_EQ(Label("lblSummary"), "list.qif was imported");
  EXPECT_EQ(Find<QLabel>(*form_, "lblIntoAccount").accessibleName(), "   New account Card 0");
  CloseSummary();
}

TEST_F(Importing, AFileInAnotherCurrencyIsAskedAbout) {
  const std::int64_t euros = AddAccount("Euros", {}, kEuros);
  OpenText("statement.ofx", kOfx, euros);
  EXPECT_FALSE(IsVisible("chkCurrency")) << "it depends on the account that takes the records";
  Pick("cmbOwner", "A new account, 4711");
  EXPECT_FALSE(IsVisible("chkCurrency")) << "a new account is in the currency of the file";
  Pick("cmbOwner", "It is Euros");
  const char* question =
      "What the file says of 4711 is in GBP, and Euros is in EUR. Is each amount to be booked as "
      "it "
      "stands, as so many EUR?";
  EXPECT_EQ(Label("lblCurrency"), question);
  ExpectRefusal("cmdAccept", question, "chkCurrency");
  EXPECT_EQ(Rows("Euros"), Texts{});
  Find<QCheckBox>(*form_, "chkCurrency").click();
  Press("cmdAccept");
  EXPECT_EQ(Amounts("Euros"), Texts{"-3.2"});
  CloseSummary();
  // An account that is found by its number is asked about as well.
  OpenText("statement.ofx", kOfx);
  Type(*form_, "cmbAccount", kAutomatic);
  EXPECT_TRUE(IsVisible("chkCurrency"));
  EXPECT_FALSE(Find<QCheckBox>(*form_, "chkCurrency").isChecked());
  Type(*form_, "cmbAccount", "Bank");
  Pick("cmbOwner", "Into Bank");
  EXPECT_FALSE(IsVisible("chkCurrency"));
}

TEST_F(Importing, AFileThatNamesAnAccountGoesThereWhereThatIsChosen) {
  const std::int64_t savings = AddAccount("Savings");
  OpenText("list.qif", "!Account\nNsavings\n^\n" + std::string(kQif), bank_);
  EXPECT_EQ(Label("lblOwner"),
            "The file belongs to savings. Import into that account, or into Bank?");
  Pick("cmbOwner", "Into Savings");
  Press("cmdAccept");
  EXPECT_EQ(Amounts("Savings").size(), 2U);
  EXPECT_EQ(form_->Account(), savings);
  CloseSummary();
  OpenText("two.qif", "!Account\nNA\n^\n" + std::string(kQif) + "!Account\nNB\n^\n" + kQif, bank_);
  EXPECT_EQ(Label("lblOwner"),
            "The file belongs to 2 accounts: A, B. Import into these, or all of it into Bank?");
}

TEST_F(Importing, TransfersWithoutTheirOtherHalfAreCompleted) {
  AddAccount("Savings");
  OpenText("bank.qif", "!Type:Bank\nD13/02/2026\nT-10\nPMove\nL[Savings]\n^\n", bank_);
  Press("cmdAccept");
  EXPECT_EQ(Label("lblLoneHalves"), "1");
  EXPECT_EQ(Label("lblTransfers"), "0");
  Press("cmdComplete");
  EXPECT_EQ(Label("lblTransfers"), "1");
  EXPECT_FALSE(IsVisible("cmdComplete"));
  EXPECT_EQ(Note(), "Other halves made: 1. Edit, Undo takes them back.");
  EXPECT_EQ(Amounts("Savings"), Texts{"10"});
  CloseSummary();
}

TEST_F(Importing, TheColumnsAreProposedAndShownAsTheyWillBeRead) {
  OpenColumns(kCsv);
  EXPECT_EQ(Focus(), "cmbColDate");
  const Texts columns = {"None", "col1", "col2", "col3", "col4", "col5"};
  for (const char* box : {"cmbColDate", "cmbColPayee", "cmbColCategory", "cmbColIncome",
                          "cmbColExpense", "cmbColSign"}) {
    EXPECT_EQ(Items(box), columns) << box;
  }
  EXPECT_EQ(Text("txtSkip"), "1");
  EXPECT_EQ(Text("txtSeparator"), ",");
  EXPECT_EQ(Text("cmbDateOrderCSV"), "Day/Month/Year");
  EXPECT_EQ(Row("lvFile", -1), "Row|col1|col2|col3|col4|col5");
  EXPECT_EQ(Row("lvFile", 1), "2|13/02/2026|Smith, Jones|Food:Out||12.50");
  EXPECT_EQ(Row("lvRead", -1), "Row|Date|Payee|Category|Amount|Remark");
  EXPECT_EQ(Row("lvRead", 0), "1|||||Left out");
  EXPECT_EQ(Row("lvRead", 1), "2|13/02/2026|Smith, Jones|Food:Out|-12.50|");
  EXPECT_EQ(Row("lvRead", 2), "3|14/02/2026|Work|Pay|1,000.00|");
  EXPECT_EQ(Label("lblPreview"), "Shown: 2 transactions.");
  // Every change is to be seen at once.
  Pick("cmbColExpense", "col4");
  EXPECT_EQ(Row("lvRead", 1), "2|||||Left out");
  Pick("cmbColDate", "col2");
  EXPECT_EQ(Row("lvRead", 2), "3||Work|Pay|1,000.00|\"Work\" is no date.");
  Pick("cmbColDate", "col1");
  Pick("cmbColExpense", "col5");
  Type(*form_, "txtSeparator", ";");
  EXPECT_EQ(Row("lvFile", -1), "Row|col1");
  Type(*form_, "txtSeparator", ",");
  EXPECT_EQ(Text("cmbColExpense"), "col5");
  QTest::keyClick(form_.get(), Qt::Key_Return);
  EXPECT_EQ(Rows("Bank"),
            (Texts{"2026-02-13|Smith, Jones|Food:Out|-12.5||", "2026-02-14|Work|Pay|1000||"}));
  CloseSummary();
}

TEST_F(Importing, TheChecksOfTheColumnsComeInTheirOrder) {
  OpenColumns(kCsv);
  for (const char* box : {"cmbColDate", "cmbColPayee", "cmbColIncome", "cmbColExpense"}) {
    Pick(box, "None");
  }
  struct Rule {
    const char* box;
    const char* message;
    const char* repaired;
  };
  for (const Rule& rule : {
           Rule{"cmbColDate", "Please select the column for the Date Column", "col2"},
           Rule{"cmbColPayee", "Please select the column for the Payee Column", "col2"},
           Rule{"cmbColIncome", "Please select the column for the Income Column", "col2"},
           Rule{"cmbColExpense", "Please select the column for the Expense Column", "col3"},
           Rule{"cmbColDate", "col 2 Is not a Date Column", "col1"},
           Rule{"cmbColIncome", "col 2 Is not a Numeric Column", "col4"},
           Rule{"cmbColExpense", "col 3 Is not a Numeric Column", "col5"},
       }) {
    ExpectRefusal("cmdAcceptCSV", rule.message, rule.box);
    Pick(rule.box, rule.repaired);
  }
  Type(*form_, "txtSkip", "x");
  ExpectRefusal("cmdAcceptCSV", "Please enter the number of rows to skip", "txtSkip");
  Type(*form_, "txtSkip", "0");
  ExpectRefusal("cmdAcceptCSV", "col 1 Is not a Date Column", "cmbColDate");
  Type(*form_, "txtSkip", "1");
  Type(*form_, "txtSeparator", "ab");
  ExpectRefusal("cmdAcceptCSV", "Please enter one character, or Tab, as the separator",
                "txtSeparator");
  EXPECT_EQ(Row("lvFile", -1), "Row");
  Pick("cmbColSign", "col2");
  Type(*form_, "txtSeparator", ",");
  ExpectRefusal("cmdAcceptCSV", "col 2 Is not a Sign Column", "cmbColSign");
  EXPECT_EQ(Rows("Bank"), Texts{});
  // Back and forth loses nothing.
  Press("cmdBack");
  EXPECT_EQ(Page(), "cmdAccept");
  Press("cmdAccept");
  EXPECT_EQ(Text("cmbColSign"), "col2");
  Pick("cmbColSign", "None");
  Press("cmdAcceptCSV");
  EXPECT_EQ(Amounts("Bank"), (Texts{"-12.5", "1000"}));
  CloseSummary();
}

TEST_F(Importing, OrderZeroAndSignAreReadAsChosen) {
  OpenColumns("When;Who;In;Out;Kind\n03/04/2026;Shop;0.00;5.00;D\n04/05/2026;Work;7.00;0.00;C\n");
  EXPECT_EQ(Text("txtSeparator"), ";");
  Pick("cmbColDate", "col1");
  Pick("cmbColPayee", "col2");
  Pick("cmbColIncome", "col3");
  Pick("cmbColExpense", "col4");
  Pick("cmbColSign", "None");
  auto& zero = Find<QCheckBox>(*form_, "chkZeroIsEmpty");
  zero.setFocus();
  if (!zero.isChecked()) QTest::keyClick(&zero, Qt::Key_Space);
  EXPECT_EQ(Row("lvRead", 1), "2|03/04/2026|Shop||-5.00|");
  Pick("cmbDateOrderCSV", "Month/Day/Year");
  EXPECT_EQ(Row("lvRead", 1), "2|04/03/2026|Shop||-5.00|");
  // An order that was chosen is not found anew.
  Pick("cmbColDate", "None");
  Pick("cmbColDate", "col1");
  EXPECT_EQ(Text("cmbDateOrderCSV"), "Month/Day/Year");
  QTest::keyClick(&zero, Qt::Key_Space);
  EXPECT_EQ(Row("lvRead", 1), "2|04/03/2026|Shop||0.00|");
  Pick("cmbColIncome", "col4");
  Pick("cmbColSign", "col5");
  EXPECT_EQ(Row("lvRead", 1), "2|04/03/2026|Shop||-5.00|");
}

TEST_F(Importing, ASavedMappingIsProposedForTheSameHeadings) {
  OpenColumns(kCsv);
  EXPECT_EQ(Items("cmbMapping"), Texts{"None"});
  EXPECT_FALSE(Find<QPushButton>(*form_, "cmdDeleteMapping").isEnabled());
  Pick("cmbColPayee", "col3");
  const auto expectName = [this](const char* name) {
    Machine().prompts.ExpectText(kTitle, "Name of the mapping:", name);
  };
  expectName(" ");
  ExpectMessage("Please enter a name for the mapping");
  expectName("My bank");
  Press("cmdSaveMapping");
  EXPECT_EQ(Text("cmbMapping"), "My bank");
  EXPECT_EQ(Note(), "The mapping “My bank” was saved.");
  Press("cmdCancel");

  OpenColumns(std::string(kCsv) + "15/02/2026,Late,Food,,1\n");
  EXPECT_EQ(Text("cmbMapping"), "My bank");
  EXPECT_EQ(Text("cmbColPayee"), "col3");
  // Another one of that name only when the person says so.
  Pick("cmbColPayee", "col2");
  expectName("my BANK");
  Machine().prompts.ExpectAsk(
      kTitle, "There is a mapping named \"my BANK\". Do you wish to replace it?", false);
  Machine().prompts.ExpectText(kTitle, "Name of the mapping:", std::nullopt);
  Press("cmdSaveMapping");
  Press("cmdCancel");

  OpenColumns("Other,Headings,In,Out,Kind\n13/02/2026,Food,Shop,,12.50\n");
  EXPECT_EQ(Text("cmbMapping"), "None");
  EXPECT_NE(Text("cmbColPayee"), "col3");
  Pick("cmbMapping", "My bank");
  EXPECT_EQ(Text("cmbColPayee"), "col3");
  EXPECT_EQ(Text("cmbColExpense"), "col5");
  Machine().prompts.ExpectAsk(kTitle, "Do you wish to delete the mapping \"My bank\"?", true);
  Press("cmdDeleteMapping");
  EXPECT_EQ(Items("cmbMapping"), Texts{"None"});
  Machine().registry.RefuseWrites(true);
  expectName("My bank");
  Machine().prompts.ExpectTell("Corvanta Personal Finance", ScriptedPrompts::kAnyText);
  Press("cmdSaveMapping");
  EXPECT_EQ(Text("cmbColPayee"), "col3");
}

TEST_F(Importing, ACsvFileThatStopsComesBackToItsColumns) {
  // The page looks at the first rows; the bad one is behind them.
  std::string text = "Date,Payee,Amount\n";
  for (int i = 1; i <= 60; ++i) text += "13/02/2026,Shop," + std::to_string(i) + ".00\n";
  text += "99/99/2026,Shop,1.00\n";
  for (int i = 1; i <= 60; ++i) text += "13/02/2026,Shop,-" + std::to_string(i) + ".00\n";
  OpenColumns(text);
  EXPECT_EQ(Label("lblPreview"), "Shown: the first 50 rows, 49 transactions.");
  const std::string stop = "The import stopped at line 62: \"99/99/2026\" is no date.";
  Machine().prompts.ExpectChoose(
      kTitle, stop + "\r\nTransactions before that: 60\r\nDo you want to keep them?", {});
  ExpectRefusal("cmdAcceptCSV", stop, "cmbColDate");
  EXPECT_EQ(Note().toStdString(), stop + " Nothing was imported.");
  EXPECT_EQ(Text("cmbColDate"), "col1");
  EXPECT_EQ(Rows("Bank"), Texts{});
}

TEST_F(Importing, TheControlsAreNamedAndReachedByTab) {
  OpenColumns(kCsv);
  const Texts expected = {
      "cmbColDate",     "cmbColPayee",    "cmbColCategory", "cmbColDescription", "cmbColReference",
      "chkZeroIsEmpty", "cmbColIncome",   "cmbColExpense",  "cmbColSign",        "cmbColNumber",
      "lvFile",         "lvRead",         "cmdBack",        "cmdAcceptCSV",      "cmdCancel",
      "cmbMapping",     "cmdSaveMapping", "txtSeparator",   "txtSkip",           "cmbDateOrderCSV",
      "cmbNumbersCSV",  "cmbEncodingCSV"};
  for (const std::string& name : expected) {
    EXPECT_EQ(FromQt(Focus()), name);
    const QWidget& widget = *form_->focusWidget();
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    EXPECT_FALSE(button != nullptr ? button->text().isEmpty() : widget.accessibleName().isEmpty())
        << name;
    QTest::keyClick(form_->focusWidget(), Qt::Key_Tab);
  }
}

TEST_F(Importing, DescriptionReferenceAndNumberAreMappedAndShown) {
  OpenColumns(
      "Date,Payee,Cheque Number,Amount,Reference,Memo\n13/02/2026,Shop,101,-5.00,R1,Lunch\n");
  EXPECT_EQ(Text("cmbColNumber"), "col3");
  EXPECT_EQ(Text("cmbColReference"), "col5");
  EXPECT_EQ(Text("cmbColDescription"), "col6");
  EXPECT_EQ(Row("lvRead", -1), "Row|Date|Payee|Category|Amount|Description|Reference|Remark");
  EXPECT_EQ(Row("lvRead", 1), "2|13/02/2026|Shop||-5.00|Lunch|101 R1|");
  Pick("cmbColDescription", "None");
  Pick("cmbColNumber", "None");
  EXPECT_EQ(Row("lvRead", 1), "2|13/02/2026|Shop||-5.00|R1|");
  Press("cmdAcceptCSV");
  EXPECT_EQ(Rows("Bank"), Texts{"2026-02-13|Shop|Debit|-5|R1|"});
  CloseSummary();
}

TEST_F(Importing, ThePersonSaysWhichWordIsDebitAndWhichCredit) {
  OpenColumns("Date,Payee,Amount,Kind\n13/02/2026,Shop,5.00,Raus\n14/02/2026,Work,7.00,Rein\n");
  EXPECT_FALSE(Find<QLineEdit>(*form_, "txtDebitWords").isEnabled());
  Pick("cmbColSign", "col4");
  EXPECT_EQ(Row("lvRead", 1), "2|13/02/2026|Shop||5.00|\"Raus\" says neither debit nor credit.");
  ExpectRefusal("cmdAcceptCSV", "col 4 Is not a Sign Column", "cmbColSign");
  Type(*form_, "txtDebitWords", "raus");
  Type(*form_, "txtCreditWords", "rein");
  EXPECT_EQ(Row("lvRead", 1), "2|13/02/2026|Shop||-5.00|");
  Press("cmdAcceptCSV");
  EXPECT_EQ(Amounts("Bank"), (Texts{"-5", "7"}));
  CloseSummary();
}

TEST_F(Importing, TheEncodingIsChosenWhereTheFileDoesNotShowIt) {
  OpenText("bank.qif", "!Type:Bank\nD13/02/2026\nT-1\nPK\xF5v\xE1ri\n^\n", bank_);
  Pick("cmbEncoding", "Central European (Windows-1250)");
  Press("cmdAccept");
  CloseSummary();
  // On the page of columns every change is to be seen, and a saved mapping keeps the choice.
  const std::string csv = "D\xE1tum,N\xE9v,\xD6sszeg\n14/02/2026,K\xF5v\xE1ri,-2\n";
  OpenColumns(csv);
  EXPECT_EQ(Row("lvRead", 1), "2|14/02/2026|K\u00F5v\u00E1ri||-2.00|");
  Pick("cmbEncodingCSV", "Central European (Windows-1250)");
  EXPECT_EQ(Row("lvRead", 1), "2|14/02/2026|K\u0151v\u00E1ri||-2.00|");
  Press("cmdBack");
  Press("cmdAccept");
  EXPECT_EQ(Row("lvRead", 1), "2|14/02/2026|K\u0151v\u00E1ri||-2.00|");
  Machine().prompts.ExpectText(kTitle, "Name of the mapping:", "Bank");
  Press("cmdSaveMapping");
  Press("cmdCancel");
  OpenColumns(csv);
  EXPECT_EQ(Text("cmbMapping"), "Bank");
  EXPECT_EQ(Row("lvRead", 1), "2|14/02/2026|K\u0151v\u00E1ri||-2.00|");
  Press("cmdAcceptCSV");
  CloseSummary();
  EXPECT_EQ(Rows("Bank"), (Texts{"2026-02-13|K\u0151v\u00E1ri|Debit|-1||",
                                 "2026-02-14|K\u0151v\u00E1ri|Debit|-2||"}));
}

TEST_F(Importing, TheWindowOpensOnWhatIsGivenAndSaysWhetherItChangedAnything) {
  const ExchangePlace place{Machine().Get(), Ledger(), nullptr};
  const std::string file = Write("bank.qif", kQif);
  InNextDialog([](QDialog& dialog) { EXPECT_EQ(FocusOf(dialog), "cmbAccount"); });
  EXPECT_FALSE(OpenImport(bank_, file, place).isChanged);
  ExpectMessage(kComplete);
  InNextDialog([](QDialog& dialog) {
    Click(dialog, "cmdAccept");
    Click(dialog, "cmdClose");
  });
  const ImportResult result = OpenImport(bank_, file, place);
  EXPECT_TRUE(result.isChanged);
  EXPECT_EQ(result.accountId, bank_);
}

TEST_F(Importing, TheRegisterIsExportedAsItStands) {
  Open(Write("bank.qif", kQif), bank_);
  Press("cmdAccept");
  CloseSummary();
  const ExchangePlace place{Machine().Get(), Ledger(), nullptr};
  auto& prompts = Machine().prompts;
  prompts.ExpectTell(
      "File Export",
      "This option is only available for Account Transactions, Reports and Investments.");
  EXPECT_FALSE(OpenExport({}, place));
  ExportView view{bank_, {}, {}, {}};
  prompts.ExpectSaveFile("Save File As", Machine().folder.Path("out"));
  prompts.ExpectTell("File Export Warning",
                     "Please enter, file name including correct file extension");
  EXPECT_FALSE(OpenExport(view, place));

  const std::string path = Machine().folder.Path("out.qif");
  const auto exportTo = [&](bool answer) {
    prompts.ExpectSaveFile("Save File As", path);
    prompts.ExpectAsk("File Export",
                      "Do you wish to export from the account Bank into the file - " + path,
                      answer);
    if (answer) prompts.ExpectTell("File Export", path + "\r\nFile Export Complete");
    return OpenExport(view, place);
  };
  const auto amounts = [&] {
    std::ifstream stream(path);
    std::string found;
    for (std::string line; std::getline(stream, line);) {
      if (line.starts_with('T')) found += line;
    }
    return found;
  };
  EXPECT_FALSE(exportTo(false));
  EXPECT_FALSE(std::ifstream(path).is_open());
  EXPECT_TRUE(exportTo(true));
  EXPECT_EQ(amounts(), "T-12.5T100");
  const auto rows = Ledger().Balances().Register(bank_, {}, {});
  view.order = {rows[1].transactionId, rows[0].transactionId};
  EXPECT_TRUE(exportTo(true));
  EXPECT_EQ(amounts(), "T100T-12.5");
  view.period = Period{*Date::FromIso("2026-02-14"), *Date::FromIso("2026-02-28")};
  EXPECT_TRUE(exportTo(true));
  EXPECT_EQ(amounts(), "T100");
  view.filter = {false, false, true};
  EXPECT_TRUE(exportTo(true));
  EXPECT_EQ(amounts(), "");
}

}  // namespace
}  // namespace corvanta
