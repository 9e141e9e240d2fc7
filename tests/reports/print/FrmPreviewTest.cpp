#include "platform/Files.h"
#include "reports/print/FrmPageSetup.h"
#include "reports/print/FrmPreview.h"
#include "reports/print/LVPrint.h"
#include "reports/print/QtPainterSurface.h"
#include "reports/print/QtPrinting.h"
#include "reports/print/ucPrintPage.h"
#include "support/TestPlatform.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QLabel>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>

namespace corvanta {
namespace {

PrintTable LongTable(int rows) {
  PrintTable table;
  table.title = "Sample Bank Account";
  table.columns = {{"Date", 90}, {"Payee", 220}, {"Amount", 110, PrintAlignment::Right}};
  for (int row = 0; row < rows; ++row) {
    table.rows.push_back(
        {"21/11/2026", "Baker & Söhne 🦊 No. " + std::to_string(row), "-12.50"});
  }
  return table;
}

// The pages that a document says it has.
int PagesOfPdf(const std::string& path) {
  const std::string bytes = ReadFile(path);
  const QString text = QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
  const auto match = QRegularExpression(QStringLiteral("/Type /Pages.*?/Count (\\d+)"),
                                        QRegularExpression::DotMatchesEverythingOption)
                         .match(text);
  return match.captured(1).toInt();
}

class FrmPreviewTest : public testing::Test {
 protected:
  void Open(PrintTable table) {
    form_ = std::make_unique<FrmPreview>(std::move(table), Place());
    form_->show();
    form_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  }
  PrintPlace Place() {
    return {machine_.Get(), nullptr, [this](QPrinter& printer, QWidget*) {
              ++asked_;
              printer.setOutputFormat(QPrinter::PdfFormat);
              printer.setOutputFileName(QString::fromStdString(printed_));
              return isChosen_;
            }};
  }
  template <typename Widget>
  Widget& Find(const char* name) {
    return *form_->findChild<Widget*>(QLatin1String(name));
  }
  void Click(const char* button) { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }
  int Page() { return form_->findChild<ucPrintPage*>()->Page(); }
  int Pages() { return form_->findChild<ucPrintPage*>()->PageCount(); }

  TestPlatform machine_;
  std::string printed_ = machine_.folder.Path("printed.pdf");
  bool isChosen_ = true;
  int asked_ = 0;
  std::unique_ptr<FrmPreview> form_;
};

TEST_F(FrmPreviewTest, PagesAreTurnedWithKeysAndButtons) {
  Open(LongTable(200));
  EXPECT_EQ(form_->windowTitle(), "Print Preview");
  ASSERT_GE(Pages(), 3);
  EXPECT_EQ(Find<QLabel>("lblPages").text(), QString("of %1").arg(Pages()));
  EXPECT_FALSE(Find<QToolButton>("cmdPrevious").isEnabled());
  const QImage first = form_->findChild<ucPrintPage*>()->grab().toImage();
  QTest::keyClick(form_.get(), Qt::Key_PageDown);
  EXPECT_EQ(Page(), 2);
  EXPECT_NE(form_->findChild<ucPrintPage*>()->grab().toImage(), first);
  QTest::keyClick(form_.get(), Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(Page(), Pages());
  EXPECT_FALSE(Find<QToolButton>("cmdNext").isEnabled());
  QTest::keyClick(form_.get(), Qt::Key_PageDown);
  EXPECT_EQ(Page(), Pages()) << "there is none behind the last one";
  QTest::mouseClick(&Find<QToolButton>("cmdPrevious"), Qt::LeftButton);
  EXPECT_EQ(Page(), Pages() - 1);
  EXPECT_EQ(Find<QSpinBox>("txtPage").value(), Pages() - 1);
  auto& number = Find<QSpinBox>("txtPage");
  number.setFocus();
  number.selectAll();
  QTest::keyClicks(&number, "2");
  QTest::keyClick(&number, Qt::Key_Return);
  EXPECT_EQ(Page(), 2);
  EXPECT_EQ(asked_, 0) << "Enter was for the number of the page";
}

TEST_F(FrmPreviewTest, TheSizeOfThePageCanBeChosen) {
  Open(LongTable(10));
  const auto* page = form_->findChild<ucPrintPage*>();
  EXPECT_LE(page->width(), form_->width()) << "the whole page at first";
  EXPECT_LE(page->height(), form_->height());
  const double whole = page->Zoom();
  QTest::keyClick(form_.get(), Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_GT(page->Zoom(), whole);
  Find<QComboBox>("cmbZoom").setCurrentText("100 %");
  QTest::keyClick(form_.get(), Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(Find<QComboBox>("cmbZoom").currentText(), "75 %");
  EXPECT_EQ(page->Zoom(), 0.75);
  Find<QComboBox>("cmbZoom").setCurrentText("Page width");
  const double narrow = page->Zoom();
  form_->resize(form_->width() + 200, form_->height());
  EXPECT_TRUE(QTest::qWaitFor([&] { return page->Zoom() > narrow; }, 60000));
}

TEST_F(FrmPreviewTest, LandscapeLaysThePagesOutAnew) {
  Open(LongTable(200));
  const int upright = Pages();
  QTest::keyClick(form_.get(), Qt::Key_End, Qt::ControlModifier);
  QTest::mouseClick(&Find<QCheckBox>("chkLandscape"), Qt::LeftButton);
  EXPECT_GT(Pages(), upright);
  EXPECT_EQ(Page(), upright);
  const QSize sheet = form_->findChild<ucPrintPage*>()->sizeHint();
  EXPECT_GT(sheet.width(), sheet.height());
}

TEST_F(FrmPreviewTest, ThePaperThatIsSetIsPrintedOn) {
  Open(LongTable(200));
  const int before = Pages();
  QTimer::singleShot(0, form_.get(), [] {
    auto* setup = QApplication::activeModalWidget();
    ASSERT_EQ(setup->objectName(), "FrmPageSetup");
    setup->findChild<QComboBox*>("cmbPaper")->setCurrentIndex(3);  // A5
    setup->findChild<QDoubleSpinBox*>("txtTop")->setValue(40);
    QTest::keyClick(setup, Qt::Key_Return);
  });
  Click("cmdPageSetup");
  EXPECT_GT(Pages(), before) << "half of the paper";
  EXPECT_EQ(ReadPageSetup(machine_.Get()).margins.top, 40);
  Click("cmdPrint");
  EXPECT_EQ(PagesOfPdf(printed_), Pages());

  form_ = std::make_unique<FrmPreview>(LongTable(200), Place());
  EXPECT_GT(Pages(), before) << "and from then on";
}

TEST_F(FrmPreviewTest, MarginsThatLeaveNoPageAreNotKept) {
  FrmPageSetup setup(machine_.Get(), nullptr);
  setup.show();
  setup.findChild<QDoubleSpinBox*>("txtLeft")->setValue(80);
  setup.findChild<QDoubleSpinBox*>("txtRight")->setValue(90);
  machine_.prompts.ExpectTell("Page Setup",
                              "The margins leave too little of the paper. Make them smaller.");
  QTest::mouseClick(setup.findChild<QPushButton*>("cmdAccept"), Qt::LeftButton);
  EXPECT_TRUE(setup.isVisible());
  EXPECT_EQ(ReadPageSetup(machine_.Get()), PageSetup{});
  QTest::mouseClick(setup.findChild<QPushButton*>("cmdUsual"), Qt::LeftButton);
  EXPECT_EQ(setup.findChild<QDoubleSpinBox*>("txtRight")->value(), 15);
  QTest::mouseClick(setup.findChild<QPushButton*>("cmdAccept"), Qt::LeftButton);
  EXPECT_FALSE(setup.isVisible());
}

TEST_F(FrmPreviewTest, ThePagesShownAreThoseThatArePrinted) {
  Open(LongTable(200));
  Click("cmdPrint");
  EXPECT_EQ(asked_, 1);
  EXPECT_EQ(PagesOfPdf(printed_), Pages());
  EXPECT_TRUE(form_->isVisible());
  EXPECT_TRUE(form_->isEnabled());
  EXPECT_EQ(machine_.progress.Status(), "");

  const std::string saved = machine_.folder.Path("saved.pdf");
  machine_.prompts.ExpectSaveFile("Save as PDF", saved);
  Click("cmdSave");
  EXPECT_EQ(PagesOfPdf(saved), Pages());
}

TEST_F(FrmPreviewTest, NothingIsPrintedWhenAPersonTurnsBack) {
  isChosen_ = false;
  EXPECT_FALSE(PrintList(LongTable(10), Place()));
  EXPECT_FALSE(FileExists(printed_));
  machine_.prompts.ExpectSaveFile("Save as PDF", std::nullopt);
  EXPECT_FALSE(SavePdf(LongTable(10), machine_.Get(), {}));
  machine_.progress.StopAfter(1);
  const std::string stopped = machine_.folder.Path("stopped.pdf");
  machine_.prompts.ExpectSaveFile("Save as PDF", stopped);
  EXPECT_FALSE(SavePdf(LongTable(200), machine_.Get(), {}));
  EXPECT_FALSE(FileExists(stopped));
}

TEST_F(FrmPreviewTest, AFileThatCannotBeWrittenIsTold) {
  Open(LongTable(10));
  machine_.prompts.ExpectSaveFile("Save as PDF", machine_.folder.Path("no/such/folder.pdf"));
  machine_.prompts.ExpectTell("Corvanta Personal Finance", "*");
  Click("cmdSave");
  printed_ = machine_.folder.Path("no/such/printed.pdf");
  machine_.prompts.ExpectTell("Corvanta Personal Finance", "*");
  Click("cmdPrint");
  EXPECT_TRUE(form_->isEnabled());
}

TEST_F(FrmPreviewTest, AListIsPrintedAsItStands) {
  QStandardItemModel model(2, 4);
  model.setHorizontalHeaderLabels({"Payee", "Ref", "", "Amount"});
  model.setHeaderData(3, Qt::Horizontal, int(Qt::AlignRight | Qt::AlignVCenter),
                      Qt::TextAlignmentRole);
  for (int row = 0; row < 2; ++row) {
    model.setItem(row, 0, new QStandardItem(QString("Söhne %1").arg(row)));
    model.setItem(row, 1, new QStandardItem("hidden"));
    model.setItem(row, 3, new QStandardItem("-1.50"));
  }
  QTableView list;
  list.setModel(&model);
  list.setColumnHidden(1, true);
  list.setColumnWidth(0, 300);
  list.setColumnWidth(3, 90);
  list.horizontalHeader()->moveSection(3, 0);
  const PrintTable table = PrintTableOf(list, "Payees");
  EXPECT_EQ(table.title, "Payees");
  ASSERT_EQ(table.columns.size(), 2U) << "no hidden column, and none without any text";
  EXPECT_EQ(table.columns[0].header, "Amount");
  EXPECT_EQ(table.columns[0].width, 90);
  EXPECT_EQ(table.columns[0].alignment, PrintAlignment::Right);
  EXPECT_EQ(table.columns[1].header, "Payee");
  EXPECT_EQ(table.rows[1], (std::vector<std::string>{"-1.50", "Söhne 1"}));
  EXPECT_EQ(table.orientation, PrintOrientation::Portrait);
  EXPECT_TRUE(table.totals.empty());
  QFont bold;
  bold.setBold(true);
  for (const int column : {0, 3}) model.item(1, column)->setFont(bold);
  EXPECT_EQ(PrintTableOf(list, "").totals, std::set<std::size_t>{1});
  list.setColumnWidth(0, 900);
  EXPECT_EQ(PrintTableOf(list, "").orientation, PrintOrientation::Landscape);
  EXPECT_EQ(PrintTableOf(list, "").title, "Corvanta Printout");
}

TEST_F(FrmPreviewTest, LongListsHaveAllTheirPages) {
  Open(LongTable(10000));
  EXPECT_GT(Pages(), 150);
}

}  // namespace
}  // namespace corvanta
