#include "app/lists/ListColours.h"
#include "controls/ListDelegate.h"
#include "controls/ListTable.h"
#include "controls/OutlinedStyle.h"
#include "controls/RibbonButton.h"
#include "controls/Style.h"
#include "controls/TabularText.h"
#include "controls/ucCalendar.h"
#include "controls/ucRibbon.h"
#include "platform/Settings.h"
#include "support/MemoryRegistry.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QImage>
#include <QPainter>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyleOption>
#include <QTest>

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace corvanta {
namespace {

TEST(OutlinedStyles, LetEmptyFieldsBeReadInTheDark) {
  OutlinedStyle style;
  QPalette palette(QColor(40, 44, 52));
  palette.setColor(QPalette::Base, QColor(27, 30, 32));
  palette.setColor(QPalette::Text, QColor(240, 240, 240));
  palette.setColor(QPalette::PlaceholderText, Qt::black);
  style.polish(palette);
  EXPECT_GT(palette.color(QPalette::PlaceholderText).lightness(), 128);
  EXPECT_LT(palette.color(QPalette::PlaceholderText).lightness(), 240);
}

TEST(OutlinedStyles, OutlineABoxWhetherOrNotItHasTheKeys) {
  constexpr int kSide = 16;
  const OutlinedStyle style;
  QStyleOptionButton box;
  box.rect = QRect(0, 0, kSide, kSide);
  box.palette = QPalette(QColor(42, 46, 50));
  box.palette.setColor(QPalette::Base, QColor(27, 30, 32));
  for (const QStyle::State keys : {QStyle::State_None, QStyle::State_HasFocus}) {
    box.state = QStyle::State_Enabled | QStyle::State_Off | keys;
    QImage image(kSide, kSide, QImage::Format_RGB32);
    image.fill(box.palette.color(QPalette::Window));
    QPainter painter(&image);
    style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, nullptr);
    EXPECT_GT(image.pixelColor(kSide / 2, 0).lightness(), 100) << static_cast<int>(keys);
  }
}

TEST(Calendar, MovesByKeyAndTurnsMonths) {
  ucCalendar calendar;
  calendar.SetToday(QDate(2026, 1, 31));
  calendar.show();
  QSignalSpy chosen(&calendar, &ucCalendar::DateSelected);
  QSignalSpy opened(&calendar, &ucCalendar::DateActivated);
  QTest::keyClick(&calendar, Qt::Key_PageDown);
  EXPECT_EQ(calendar.Selected(), QDate(2026, 2, 28));
  QTest::keyClick(&calendar, Qt::Key_Down);
  EXPECT_EQ(calendar.ShownMonth(), QDate(2026, 3, 1));
  QTest::keyClick(&calendar, Qt::Key_Return);
  EXPECT_EQ(opened.at(0).at(0).toDate(), QDate(2026, 3, 7));
  QTest::keyClick(&calendar, Qt::Key_Home);
  EXPECT_EQ(calendar.Selected(), QDate(2026, 1, 31));
  EXPECT_EQ(chosen.count(), 3);
}

TEST(Calendar, TakesClicksOnDaysAndArrows) {
  ucCalendar calendar;
  calendar.SetToday(QDate(2026, 11, 21));
  calendar.resize(280, calendar.sizeHint().height());
  calendar.show();
  QSignalSpy chosen(&calendar, &ucCalendar::DateSelected);
  QSignalSpy opened(&calendar, &ucCalendar::DateActivated);
  QTest::mouseClick(&calendar, Qt::LeftButton, {}, calendar.ArrowRect(true).center());
  EXPECT_EQ(calendar.ShownMonth(), QDate(2026, 12, 1));
  EXPECT_EQ(chosen.count(), 0) << "turning a page chooses nothing";
  const QDate christmas(2026, 12, 25);
  QTest::mouseDClick(&calendar, Qt::LeftButton, {}, calendar.DayRect(christmas).center());
  EXPECT_EQ(calendar.Selected(), QDate(2026, 11, 21));
  QTest::mouseClick(&calendar, Qt::LeftButton, {}, calendar.DayRect(christmas).center());
  EXPECT_EQ(calendar.Selected(), christmas);
  EXPECT_EQ(opened.count(), 1);
  // The days of the month before, shown muted, can be chosen too.
  QTest::mouseClick(&calendar, Qt::LeftButton, {}, calendar.DayRect(QDate(2026, 11, 30)).center());
  EXPECT_EQ(calendar.ShownMonth(), QDate(2026, 11, 1));
  EXPECT_TRUE(calendar.DayRect(QDate(2027, 3, 1)).isEmpty());
}

TEST(Calendar, GoesToTodayAndToAnotherYear) {
  ucCalendar calendar;
  calendar.SetToday(QDate(2026, 11, 21));
  calendar.resize(280, calendar.sizeHint().height());
  calendar.show();
  QSignalSpy chosen(&calendar, &ucCalendar::DateSelected);
  QTest::keyClick(&calendar, Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(calendar.Selected(), QDate(2025, 11, 21));
  QTest::mouseClick(&calendar, Qt::LeftButton, {}, calendar.YearRect(true).center());
  QTest::mouseClick(&calendar, Qt::LeftButton, {}, calendar.YearRect(true).center());
  EXPECT_EQ(calendar.ShownMonth(), QDate(2027, 11, 1));
  EXPECT_EQ(chosen.count(), 1) << "turning a page chooses nothing";
  const QPoint title(140, calendar.YearRect(true).center().y());
  QTest::mouseClick(&calendar, Qt::LeftButton, {}, title);
  EXPECT_EQ(calendar.Selected(), QDate(2026, 11, 21));
  EXPECT_FALSE(calendar.ArrowRect(false).intersects(calendar.YearRect(false)));
  auto* told = QAccessible::queryAccessibleInterface(&calendar);
  EXPECT_EQ(told->text(QAccessible::Value), calendar.Describe(QDate(2026, 11, 21)));
}

TEST(Ribbon, GivesUpTheAirBesideItsNamesBeforeTheNames) {
  ucRibbon ribbon;
  std::array<QAction, 4> actions;
  for (QAction& action : actions) {
    action.setObjectName(QStringLiteral("mnu"));
    action.setText(QStringLiteral("Investments"));
    ribbon.AddButton(&action);
  }
  ribbon.show();
  const auto* button = ribbon.findChild<RibbonButton*>();
  const int name = button->fontMetrics().horizontalAdvance(button->text());
  std::vector<int> widths;
  for (int width = 1000; width > 100; width -= 4) {
    ribbon.resize(width, ribbon.height());
    QApplication::processEvents();
    if (widths.empty() || widths.back() != button->width()) widths.push_back(button->width());
  }
  ASSERT_GE(widths.size(), 3U);
  EXPECT_GT(widths[0], widths[1]);
  EXPECT_GT(widths[1], name) << "with its name, in less room";
  EXPECT_LT(widths[2], name) << "as an icon";
}

class Lists : public testing::Test {
 protected:
  Lists() : model_(3, 3) {
    table_.setModel(&model_);
    table_.resize(600, 200);
    table_.SetColumns({{100, 0}, {100, 1}, {100, 3}});
    table_.show();
  }
  int Total() const { return table_.horizontalHeader()->length(); }
  QStandardItemModel model_;
  ListTable table_;
};

TEST_F(Lists, ColumnsFillTheWidthBesideOneThatIsSizedByHand) {
  EXPECT_EQ(Total(), table_.viewport()->width());
  EXPECT_EQ(table_.columnWidth(0), 100);
  EXPECT_GT(table_.columnWidth(2), table_.columnWidth(1));
  EXPECT_EQ(table_.Widths(), "");
  table_.ShowColumn(2, false);
  EXPECT_EQ(Total(), table_.viewport()->width());
  table_.ShowColumn(2, true);
  table_.setColumnWidth(1, 77);
  const QString kept = table_.Widths();
  EXPECT_EQ(kept, "0|77|0");
  table_.resize(900, 200);
  EXPECT_EQ(Total(), table_.viewport()->width()) << "the others fill";
  EXPECT_EQ(table_.Widths(), kept);
  table_.ShowColumn(1, false);
  EXPECT_EQ(table_.Widths(), kept) << "a hidden column keeps its width";
  table_.ShowColumn(1, true);
  EXPECT_EQ(table_.columnWidth(1), 77);
}

TEST_F(Lists, AColumnThatIsLeftOutStaysOutAndTheLastOneIn) {
  table_.setColumnWidth(1, 77);
  table_.LeaveOut(0, true);
  table_.LeaveOut(1, true);
  table_.LeaveOut(2, true);
  EXPECT_FALSE(table_.isColumnHidden(2));
  EXPECT_EQ(table_.columnWidth(2), table_.viewport()->width());
  const QString kept = table_.Widths();
  EXPECT_EQ(kept, "-1|-77|0");
  table_.SetWidths({});
  EXPECT_FALSE(table_.isColumnHidden(0) || table_.isColumnHidden(1));
  table_.SetWidths(kept);
  EXPECT_TRUE(table_.isColumnHidden(0) && table_.isColumnHidden(1));
  table_.LeaveOut(1, false);
  EXPECT_EQ(table_.columnWidth(1), 77);
}

TEST_F(Lists, NoColumnLeavesUnderTheMouseAndNoneThatHasAWidthOfItsOwn) {
  model_.setColumnCount(4);
  table_.SetColumns({{100, 1, 100}, {100, 0, 100, 1}, {100, 0, 100, 2}, {100, 0, 100, 3}});
  table_.resize(360, 200);
  ASSERT_TRUE(table_.isColumnHidden(1));
  table_.setColumnWidth(0, 300);
  EXPECT_FALSE(table_.isColumnHidden(2) || table_.isColumnHidden(3));
  EXPECT_TRUE(table_.isColumnHidden(1));
  EXPECT_EQ(Total(), table_.viewport()->width());
  table_.SetWidths(QStringLiteral("0|90|0|0"));
  EXPECT_FALSE(table_.isColumnHidden(1)) << "it was given a width";
  EXPECT_TRUE(table_.isColumnHidden(2));
}

TEST_F(Lists, WhatStaysWhileAColumnIsDraggedStaysWhenTheWindowIsResized) {
  const auto resized = [this](int width) {
    table_.resize(width, 200);
    QStringList hidden;
    for (int column = 0; column < model_.columnCount(); ++column) {
      if (table_.isColumnHidden(column)) hidden.append(QString::number(column));
    }
    return hidden.join(u' ').toStdString();
  };
  model_.setColumnCount(4);
  // A text, one that may leave, and figures that give way last.
  table_.SetColumns({{100, 1, 60}, {100, 0, 100, 1}, {100, 0, 60, 0, true}, {100, 0, 60, 0, true}});
  table_.resize(420, 200);
  table_.setColumnWidth(0, 200);
  EXPECT_EQ(resized(421), "") << "the figures gave nothing that they would want back";
  // One that has a width of its own makes room for another and keeps what is left.
  table_.SetColumns({{100, 0, 60}, {100, 0, 100, 1}, {100, 0, 60}});
  model_.setColumnCount(3);
  table_.SetWidths(QStringLiteral("100|0|220"));
  table_.resize(420, 200);
  table_.setColumnWidth(0, 200);
  EXPECT_EQ(resized(421), "");
  EXPECT_EQ(table_.columnWidth(0), 200);
  // Names are cut no shorter than they are kept.
  table_.SetColumns({{100, 0, 60}, {160, 1, 120, 0, false, 40}, {100, 0, 100, 1}});
  table_.resize(360, 200);
  table_.setColumnWidth(0, 180);
  EXPECT_EQ(resized(361), "");
}

TEST_F(Lists, AColumnThatIsAskedForLeavesNoMore) {
  model_.setColumnCount(4);
  table_.SetColumns({{100, 1, 60}, {100, 0, 100, 1}, {100, 0, 100, 2}, {100, 0, 100}});
  table_.resize(290, 200);
  ASSERT_TRUE(table_.isColumnHidden(1) && !table_.isColumnHidden(2));
  table_.LeaveOut(1, false);
  EXPECT_FALSE(table_.isColumnHidden(1));
  EXPECT_TRUE(table_.isColumnHidden(2)) << "the next one makes room for it";
  const QString kept = table_.Widths();
  table_.SetWidths({});
  EXPECT_TRUE(table_.isColumnHidden(1));
  table_.SetWidths(kept);
  EXPECT_FALSE(table_.isColumnHidden(1)) << "it is found again so";
}

TEST_F(Lists, TheFirstColumnThatIsShownHasTheMarginOfTheList) {
  const QHeaderView& head = *table_.horizontalHeader();
  constexpr QRect kCell(0, 0, 100, 20);
  const auto left = [&](int column) { return CellTextRect(kCell, head, column).left(); };
  const int inner = left(1);
  const int edge = left(0);
  EXPECT_GT(edge, inner);
  table_.LeaveOut(0, true);
  EXPECT_EQ(left(1), edge);
  EXPECT_EQ(left(2), inner);
}

TEST_F(Lists, TheKeysScrollAlsoWhileTheFirstColumnIsHidden) {
  model_.setRowCount(200);
  table_.LeaveOut(0, true);
  table_.setCurrentIndex(model_.index(150, 0));
  EXPECT_TRUE(table_.viewport()->rect().intersects(table_.visualRect(model_.index(150, 1))));
}

TEST_F(Lists, WidthsThatDoNotFitAreIgnored) {
  table_.SetWidths("50|60|70");
  EXPECT_EQ(table_.Widths(), "50|60|70");
  for (const char* wrong : {"50|60", "50|60|x", "50|60|70|80", "-10000|60|70", "-1|-1|-9", ""}) {
    table_.SetWidths(QLatin1String(wrong));
    EXPECT_EQ(table_.Widths(), "") << wrong;
  }
}

// Amounts of room, and the widths: text gives way, then columns leave, figures give way last.
TEST(Columns, GiveWayInTheirOrder) {
  const std::vector<ColumnNeed> columns = {
      {100, 1, 40}, {60, 1, 30, 2}, {50, 0, 0, 1}, {80, 0, 70, 0, true}};
  using Widths = std::vector<int>;
  EXPECT_EQ(FitColumns(columns, 310), (Widths{110, 70, 50, 80}));
  EXPECT_EQ(FitColumns(columns, 290), (Widths{100, 60, 50, 80}));
  EXPECT_EQ(FitColumns(columns, 200), (Widths{40, 30, 50, 80}));
  EXPECT_EQ(FitColumns(columns, 199), (Widths{73, 46, 0, 80})) << "the optional one leaves";
  EXPECT_EQ(FitColumns(columns, 140), (Widths{60, 0, 0, 80}));
  EXPECT_EQ(FitColumns(columns, 115), (Widths{40, 0, 0, 75})) << "figures give way last";
  EXPECT_EQ(FitColumns(columns, 20), (Widths{40, 0, 0, 70}));
  std::vector<ColumnNeed> byHand = columns;
  byHand[0].isByHand = true;
  EXPECT_EQ(FitColumns(byHand, 310), (Widths{100, 80, 50, 80}));
  EXPECT_EQ(FitColumns(byHand, 260), (Widths{100, 30, 50, 80}));
  byHand[1].isByHand = true;
  EXPECT_EQ(FitColumns(byHand, 310), (Widths{110, 70, 50, 80})) << "somebody must fill";
}

TEST(Columns, AnIndispensableTextGivesWayFurtherWithTheFigures) {
  std::vector<ColumnNeed> columns = {{100, 1, 70}, {50, 0, 40, 1}, {90, 0, 80, 0, true}};
  columns[0].least = 30;
  using Widths = std::vector<int>;
  EXPECT_EQ(FitColumns(columns, 200), (Widths{70, 40, 90}));
  EXPECT_EQ(FitColumns(columns, 199), (Widths{109, 0, 90})) << "the optional one leaves before";
  EXPECT_EQ(FitColumns(columns, 160), (Widths{70, 0, 90}));
  EXPECT_EQ(FitColumns(columns, 110), (Widths{30, 0, 80}));
}

TEST(Columns, AVeryWideListKeepsItsFiguresNearTheirNames) {
  const std::vector<ColumnNeed> columns = {{100, 1, 70}, {100, 0, 100}, {200, 0, 200}};
  using Widths = std::vector<int>;
  EXPECT_EQ(FitColumns(columns, 800), (Widths{500, 100, 200}));
  EXPECT_EQ(FitColumns(columns, 1600), (Widths{500, 500, 600}));
}

TEST(Columns, NamesCanBeReadWhereTheFiguresScroll) {
  std::vector<ColumnNeed> columns = {{100, 3, 70}, {90, 2, 80}, {90, 0, 90}, {90, 0, 90}};
  columns[0].least = columns[1].least = 40;
  using Widths = std::vector<int>;
  EXPECT_EQ(FitColumns(columns, 260), (Widths{40, 40, 90, 90}));
  EXPECT_EQ(FitColumns(columns, 259), (Widths{70, 80, 90, 90})) << "it is wider anyway";
  columns.insert(columns.end(), 6, {90, 0, 90});
  EXPECT_EQ(FitColumns(columns, 540), (Widths{100, 80, 90, 90, 90, 90, 90, 90, 90, 90}));
  EXPECT_EQ(FitColumns(columns, 600), (Widths{100, 90, 90, 90, 90, 90, 90, 90, 90, 90}));
}

TEST(Columns, FiguresLeaveTogetherAndAfterAllOthers) {
  const std::vector<ColumnNeed> columns = {{100, 1, 40},
                                           {50, 0, 0, 3},
                                           {80, 0, 70, 2, true},
                                           {80, 0, 70, 2, true},
                                           {90, 0, 70, 0, true}};
  using Widths = std::vector<int>;
  EXPECT_EQ(FitColumns(columns, 340), (Widths{40, 50, 80, 80, 90}));
  EXPECT_EQ(FitColumns(columns, 339), (Widths{89, 0, 80, 80, 90}));
  EXPECT_EQ(FitColumns(columns, 250), (Widths{40, 0, 70, 70, 70}));
  EXPECT_EQ(FitColumns(columns, 249), (Widths{159, 0, 0, 0, 90}));
  EXPECT_EQ(FitColumns(columns, 50), (Widths{40, 0, 0, 0, 70}));
}

TEST(Colours, ComeFromTheSettingsAndTheSystem) {
  MemoryRegistry registry;
  const Settings settings(registry);
  const ListColours colours = ReadListColours(settings, QPalette());
  EXPECT_EQ(colours.cleared, QColor(0, 0, 255));
  EXPECT_EQ(colours.uncleared, QPalette().color(QPalette::Disabled, QPalette::Text));
  EXPECT_EQ(colours.alternate1, QColor(0xff, 0xfe, 0xf9));
  EXPECT_EQ(colours.alternate2, QColor(0xf7, 0xf7, 0xf7));
}

TEST(Colours, TextStaysReadable) {
  EXPECT_EQ(ReadableOn(Qt::black, Qt::white), QColor(Qt::black));
  EXPECT_LT(ReadableOn(QColor(0xbe, 0xbe, 0xbe), Qt::white).lightness(), 0x80);
  EXPECT_GT(ReadableOn(QColor(0, 0, 255), QColor(0x20, 0x20, 0x20)).lightness(), 0x90);
}

// One stroke width and no colour of their own: so icons look alike and follow light and dark.
TEST(Icons, AreDrawnAlike) {
  const QStringList files = QDir(QStringLiteral(":/icons")).entryList();
  ASSERT_GT(files.size(), 10);
  for (const QString& name : files) {
    if (name == QStringLiteral("corvanta.svg")) continue;
    QFile file(QStringLiteral(":/icons/") + name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_EQ(text.count("stroke-width"), 1) << name.toStdString();
    EXPECT_TRUE(text.contains("stroke-width=\"1.75\"")) << name.toStdString();
    EXPECT_FALSE(text.contains('#')) << name.toStdString();
  }
}

}  // namespace
}  // namespace corvanta
