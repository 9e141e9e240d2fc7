#include "controls/ListHeader.h"
#include "controls/SortedTable.h"
#include "support/DragMouse.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>

#include <gtest/gtest.h>

#include <array>

namespace corvanta {
namespace {

constexpr int kRows = 30;
constexpr int kMonths = 12;
constexpr int kName = 120;
constexpr int kMonth = 90;

class FrozenColumns : public testing::Test {
 protected:
  FrozenColumns() : model_(kRows, 1 + kMonths) {
    for (int row = 0; row < kRows; ++row) {
      for (int column = 0; column <= kMonths; ++column) {
        auto* item = new QStandardItem(QStringLiteral("%1.%2").arg(row).arg(column));
        // A colour that the middle of its cells has.
        item->setForeground(Qt::black);
        model_.setItem(row, column, item);
      }
    }
    table_.setModel(&model_);
    table_.resize(500, 300);
    std::vector<ListTable::Column> columns = {{kName, 1, kName}};
    for (int month = 0; month < kMonths; ++month) columns.push_back({kMonth, 0});
    table_.SetColumns(std::move(columns));
    table_.show();
    table_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&table_));
  }

  QScrollBar& Bar() { return *table_.horizontalScrollBar(); }
  ListHeader& Head() { return table_.Head(); }
  void ScrollTo(int value) {
    Bar().setValue(value);
    QCoreApplication::processEvents();
  }
  // What is drawn in the first column's place.
  QImage Names() {
    const int height = table_.viewport()->height();
    return table_.viewport()->grab(QRect(0, 0, kName - 1, height)).toImage();
  }
  QImage NameOfHead() {
    return Head().viewport()->grab(QRect(0, 0, kName, Head().height())).toImage();
  }
  QPoint InRow(int row, int x) {
    return {x, table_.rowViewportPosition(row) + table_.rowHeight(row) / 2};
  }
  void Drag(const QPoint& from, int by) {
    DragMouse(*Head().viewport(), from, from + QPoint(by, 0));
  }

  QStandardItemModel model_;
  SortedTable table_{nullptr};
};

TEST_F(FrozenColumns, TheFirstColumnIsDrawnAtItsPlaceWhateverIsScrolled) {
  ASSERT_TRUE(Head().IsFrozen(0));
  EXPECT_FALSE(Head().IsFrozen(1));
  table_.setAlternatingRowColors(true);
  table_.selectRow(2);
  const QImage names = Names();
  const QImage head = NameOfHead();
  for (const int value : {7, 60, 200, Bar().maximum()}) {
    ScrollTo(value);
    EXPECT_EQ(Names(), names) << value;
    EXPECT_EQ(NameOfHead().copy(0, 0, kName - 1, 10), head.copy(0, 0, kName - 1, 10)) << value;
  }
  table_.verticalScrollBar()->setValue(40);
  QCoreApplication::processEvents();
  const QImage further = Names();
  EXPECT_NE(further, names);
  ScrollTo(0);
  EXPECT_EQ(Names(), further);
  table_.LeaveOut(0, true);
  EXPECT_TRUE(Head().IsFrozen(1)) << "the first one that is shown";
  table_.resize(2000, 300);
  EXPECT_TRUE(Head().FrozenPlace().isEmpty()) << "all have room";
}

TEST_F(FrozenColumns, ClicksFindTheColumnThatIsSeen) {
  ScrollTo(kName + 2 * kMonth);
  QSignalSpy opened(&table_, &QAbstractItemView::activated);
  QTest::mouseClick(table_.viewport(), Qt::LeftButton, {}, InRow(3, kName / 2));
  EXPECT_EQ(table_.currentIndex(), model_.index(3, 0));
  EXPECT_EQ(Bar().value(), kName + 2 * kMonth) << "the months stay";
  EXPECT_EQ(table_.visualRect(model_.index(3, 0)).left(), 0);
  QTest::mouseDClick(table_.viewport(), Qt::LeftButton, {}, InRow(3, kName / 2));
  ASSERT_EQ(opened.count(), 1);
  EXPECT_EQ(opened.first().first().toModelIndex(), model_.index(3, 0));
  QTest::mouseClick(table_.viewport(), Qt::LeftButton, {}, InRow(4, kName + 5));
  EXPECT_EQ(table_.currentIndex(), model_.index(4, 4));
  EXPECT_TRUE(table_.selectionModel()->isRowSelected(4));
  QTest::mouseClick(table_.viewport(), Qt::LeftButton, Qt::ShiftModifier, InRow(6, 5));
  EXPECT_EQ(table_.selectionModel()->selectedRows().size(), 3);
}

TEST_F(FrozenColumns, TheKeysGoToNoColumnBelowIt) {
  table_.setFocus();
  table_.setCurrentIndex(model_.index(0, kMonths));
  EXPECT_EQ(Bar().value(), Bar().maximum());
  for (int column = kMonths - 1; column > 0; --column) {
    QTest::keyClick(&table_, Qt::Key_Left);
    ASSERT_EQ(table_.currentIndex().column(), column);
    EXPECT_GE(table_.visualRect(table_.currentIndex()).left(), kName) << column;
  }
  ScrollTo(300);
  QTest::keyClick(&table_, Qt::Key_Left);
  EXPECT_EQ(table_.currentIndex().column(), 0);
  EXPECT_EQ(Bar().value(), 300) << "it is in sight";
  QTest::keyClick(&table_, Qt::Key_End);
  EXPECT_TRUE(table_.viewport()->rect().contains(table_.visualRect(model_.index(kRows - 1, 0))));
}

TEST_F(FrozenColumns, ItsHeadSortsAndIsDraggedWhereItIsSeen) {
  ScrollTo(kName + 3 * kMonth + 40);
  QSignalSpy sorted(&table_, &SortedTable::SortChosen);
  const int middle = Head().height() / 2;
  QTest::mouseClick(Head().viewport(), Qt::LeftButton, {}, {30, middle});
  EXPECT_EQ(table_.Sorted().column, 0);
  QTest::mouseClick(Head().viewport(), Qt::LeftButton, {}, {kName + 60, middle});
  EXPECT_EQ(table_.Sorted().column, 6);
  EXPECT_EQ(sorted.count(), 2);
  EXPECT_EQ(Head().ColumnAt({30, middle}), 0);
  EXPECT_EQ(Head().ColumnAt({kName + 60, middle}), 6);
  QTest::mouseMove(Head().viewport(), {kName - 1, middle});
  EXPECT_EQ(Head().cursor().shape(), Qt::SplitHCursor);
  Drag({kName - 1, middle}, 44);
  EXPECT_EQ(table_.columnWidth(0), kName + 44);
  Drag({kName + 43, middle}, -24);
  EXPECT_EQ(table_.columnWidth(0), kName + 20);
  EXPECT_EQ(sorted.count(), 2);
}

TEST_F(FrozenColumns, SeveralColumnsOfANameStayTogether) {
  table_.SetNames(2);
  ScrollTo(250);
  EXPECT_EQ(table_.indexAt(InRow(0, kName + 5)), model_.index(0, 1));
  EXPECT_EQ(table_.visualRect(model_.index(0, 1)).left(), kName);
  Drag({kName - 1, Head().height() / 2}, 20);
  EXPECT_EQ(table_.columnWidth(0), kName + 20);
  QTest::mouseClick(Head().viewport(), Qt::LeftButton, {}, {kName + 50, Head().height() / 2});
  EXPECT_EQ(table_.Sorted().column, 1);
  table_.SetWidths(QStringLiteral("300|300|0|0|0|0|0|0|0|0|0|0|0"));
  EXPECT_TRUE(Head().IsFrozen(0));
  EXPECT_FALSE(Head().IsFrozen(1)) << "the months need room, too";
}

TEST_F(FrozenColumns, WhatStandsInACellGoesBelowTheNames) {
  auto* field = new QLineEdit;
  table_.setIndexWidget(model_.index(2, 2), field);
  QCoreApplication::processEvents();
  EXPECT_TRUE(field->mask().isEmpty());
  field->setFocus();
  ScrollTo(kMonth + 30);
  EXPECT_EQ(field->mask().boundingRect().left(), 30) << "the rest lies over the months";
  ScrollTo(Bar().maximum());
  EXPECT_FALSE(field->mask().intersects(field->rect()));
  EXPECT_TRUE(field->hasFocus());
  table_.resize(480, 300);
  QCoreApplication::processEvents();
  EXPECT_FALSE(field->mask().intersects(field->rect()));
  ScrollTo(0);
  EXPECT_TRUE(field->mask().isEmpty());
}

TEST_F(FrozenColumns, StandsAtTheOtherEdgeFromRightToLeft) {
  table_.setLayoutDirection(Qt::RightToLeft);
  QCoreApplication::processEvents();
  const int edge = table_.viewport()->width();
  ScrollTo(300);
  EXPECT_EQ(table_.visualRect(model_.index(1, 0)).right(), edge - 1);
  EXPECT_EQ(table_.indexAt(InRow(1, edge - 5)), model_.index(1, 0));
  table_.setCurrentIndex(model_.index(1, 3));
  EXPECT_LT(table_.visualRect(model_.index(1, 3)).right(), edge - kName);
}

}  // namespace
}  // namespace corvanta
