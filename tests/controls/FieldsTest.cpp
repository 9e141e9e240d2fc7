#include "controls/AmountEdit.h"
#include "controls/ChoiceRow.h"
#include "controls/DateField.h"
#include "controls/PickBox.h"
#include "controls/ucCalendar.h"
#include "platform/IcuLocale.h"
#include "support/FixedClock.h"
#include "support/FixedLocale.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace corvanta {
namespace {

// A field that is being typed in, and one to go to from it.
class Fields : public testing::Test {
 protected:
  void Show(QWidget& field) {
    field.setParent(&page_);
    other_.move(0, 100);
    page_.show();
    field.show();
    page_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&page_));
    field.setFocus();
  }
  static void Retype(QLineEdit& field, const QString& text) {
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, text);
  }
  void Leave() { other_.setFocus(); }

  FixedLocale locale_;
  FixedClock clock_;  // Saturday, 21/11/2026
  QWidget page_;
  QLineEdit other_{&page_};
};

TEST_F(Fields, ASumIsWorkedOutOnLeaving) {
  AmountEdit field(locale_, nullptr, AmountText::Rounded);
  Show(field);
  Retype(field, "a12.50+3*4$");
  EXPECT_EQ(field.text(), "12.50+3*4") << "no other keys are taken";
  EXPECT_EQ(field.Amount(), 24.5);
  Leave();
  EXPECT_EQ(field.text(), "24.50");
  Retype(field, "1234.565");
  Leave();
  EXPECT_EQ(field.text(), "1,234.57");
  EXPECT_EQ(field.Amount(), 1234.57) << "what is shown is what counts";
}

TEST_F(Fields, WhatIsNoAmountShowsAsZeroAndComesBackToBeMended) {
  AmountEdit rounded(locale_, nullptr, AmountText::Rounded);
  Show(rounded);
  for (const char* text : {"5/0", "1*", "--", "1,2,3"}) {
    Retype(rounded, text);
    EXPECT_EQ(rounded.Amount(), std::nullopt) << text;
    rounded.Settle();
    EXPECT_EQ(rounded.text(), text) << "whoever saves without leaving still sees it";
    Leave();
    EXPECT_EQ(rounded.text(), "0.00") << text;
    EXPECT_EQ(rounded.Amount(), std::nullopt) << "0 was not typed: " << text;
    rounded.setFocus();
    EXPECT_EQ(rounded.text(), text) << "nothing that was typed is lost";
  }
  Retype(rounded, "0");
  Leave();
  EXPECT_EQ(rounded.Amount(), 0) << "0 that was typed";
  AmountEdit count(locale_, nullptr, AmountText::Whole);
  Show(count);
  Retype(count, "1*");
  Leave();
  EXPECT_EQ(count.Amount(), 0);
  AmountEdit typed(locale_, nullptr);
  Show(typed);
  Retype(typed, "5/0");
  Leave();
  EXPECT_EQ(typed.text(), "5/0");
  EXPECT_EQ(typed.Amount(), std::nullopt);
  Retype(typed, "1.2345");
  Leave();
  EXPECT_EQ(typed.text(), "1.2345");
}

TEST_F(Fields, AnAmountOfAnotherPlaceIsReadWhereItSaysWhatItMeans) {
  const IcuLocale american("en_US");
  const IcuLocale german("de_DE");
  const struct {
    const IcuLocale& locale;
    const char* text;
    double amount;
  } rows[] = {{american, "12,50", 12.5},    {american, "1.234,56", 1234.56},
              {american, "1,234", 1234},    {american, "12,50+3", 15.5},
              {american, "USD 7.25", 7.25}, {german, "12.50", 12.5},
              {german, "1.234", 1234},      {german, "1,234.56", 1234.56}};
  for (const auto& row : rows) {
    AmountEdit field(row.locale, nullptr, AmountText::Rounded);
    Show(field);
    field.setText(row.text);
    EXPECT_EQ(field.Amount(), row.amount) << row.text;
    Leave();
    EXPECT_EQ(field.Amount(), row.amount) << row.text << " left as " << field.text().toStdString();
  }
}

TEST_F(Fields, AmountsHaveTheDecimalsOfTheirCurrencyWhateverTheLocaleShows) {
  const struct {
    const char* locale;
    int decimals;
    const char* text;
    const char* shown;
    double amount;
  } rows[] = {{"ja_JP", 2, "12.50", "12.50", 12.5}, {"ja_JP", 0, "12.50", "13.00", 13},
              {"es_CL", 2, "12,50", "12,50", 12.5}, {"en_US", 3, "12.3456", "12.346", 12.346},
              {"vi_VN", 2, "10/4", "2,50", 2.5},    {"ko_KR", 2, "0.445", "0.45", 0.45}};
  for (const auto& row : rows) {
    const IcuLocale locale(row.locale);
    AmountEdit field(locale, nullptr, AmountText::Rounded);
    field.SetDecimals(row.decimals);
    Show(field);
    Retype(field, row.text);
    Leave();
    EXPECT_EQ(field.text(), row.shown) << row.locale;
    EXPECT_EQ(field.Amount(), row.amount) << row.locale;
  }
}

TEST_F(Fields, AnAmountThatIsNotTouchedKeepsItsDigits) {
  AmountEdit field(locale_, nullptr, AmountText::Rounded);
  Show(field);
  field.SetAmount(10.005432);
  EXPECT_EQ(field.text(), "10.01");
  Leave();
  EXPECT_EQ(field.Amount(), 10.005432);
  field.SetDecimals(3);
  EXPECT_EQ(field.text(), "10.005") << "of another currency";
  EXPECT_EQ(field.Amount(), 10.005432);
}

TEST_F(Fields, TheNumberPadWritesTheLocalesSeparator) {
  const IcuLocale german("de_DE");
  AmountEdit field(german, nullptr, AmountText::Rounded);
  Show(field);
  field.clear();
  QSignalSpy edited(&field, &QLineEdit::textEdited);
  QTest::keyClicks(&field, "12");
  QTest::keyClick(&field, '.', Qt::KeypadModifier);
  QTest::keyClicks(&field, "5");
  EXPECT_EQ(field.text(), "12,5");
  EXPECT_EQ(edited.count(), 4);
  EXPECT_EQ(field.Amount(), 12.5);
}

TEST_F(Fields, TheDayMovesByKeys) {
  DateField field(locale_, clock_, nullptr);
  Show(field);
  EXPECT_EQ(field.text(), "21/11/2026") << "today";
  QSignalSpy changed(&field, &DateField::DayChanged);
  const struct {
    int key;
    Qt::KeyboardModifiers modifiers;
    const char* day;
  } steps[] = {
      {Qt::Key_Plus, {}, "2026-11-22"},
      {Qt::Key_Minus, {}, "2026-11-21"},
      {Qt::Key_Up, {}, "2026-11-22"},
      {Qt::Key_Down, {}, "2026-11-21"},
      {Qt::Key_Up, Qt::ControlModifier, "2026-11-28"},
      {Qt::Key_Down, Qt::ControlModifier, "2026-11-21"},
      {Qt::Key_BracketRight, {}, "2026-11-28"},
      {Qt::Key_BracketLeft, {}, "2026-11-21"},
      {Qt::Key_PageUp, {}, "2026-12-21"},
      {Qt::Key_PageDown, {}, "2026-11-21"},
      {Qt::Key_PageDown, {}, "2026-10-21"},
      {Qt::Key_T, {}, "2026-11-21"},
  };
  for (const auto& step : steps) {
    QTest::keyClick(&field, static_cast<Qt::Key>(step.key), step.modifiers);
    EXPECT_EQ(field.Day().ToIso(), step.day) << step.key;
  }
  EXPECT_EQ(changed.count(), static_cast<int>(std::size(steps)));
  field.SetDay(*Date::FromIso("2027-01-31"));
  QTest::keyClick(&field, Qt::Key_PageUp);
  EXPECT_EQ(field.text(), "28/02/2027") << "the month's last day";
}

TEST_F(Fields, ATypedDayIsTakenInTheLocalesWays) {
  DateField field(locale_, clock_, nullptr);
  Show(field);
  for (const auto& [text, shown] : std::initializer_list<std::pair<const char*, const char*>>{
           {"5/3/24", "05/03/2024"}, {"2024-03-06", "06/03/2024"}, {"7 Oct 2024", "07/10/2024"}}) {
    Retype(field, text);
    Leave();
    EXPECT_EQ(field.text(), shown);
  }
  Retype(field, "1/2/24");
  QTest::keyClick(&field, Qt::Key_Plus);
  EXPECT_EQ(field.text(), "02/02/2024") << "a day that has just been typed moves, too";
}

TEST_F(Fields, ADayInPartIsOfTheShownMonthOrOfThisYear) {
  DateField field(locale_, clock_, nullptr);
  Show(field);
  const auto typed = [&](DateField& in, const char* text) {
    in.SetDay(*Date::FromIso("2024-04-05"));
    Retype(in, text);
    Leave();
    return in.text().toStdString();
  };
  for (const auto& [text, shown] :
       std::initializer_list<std::pair<const char*, const char*>>{{"20", "20/04/2024"},
                                                                  {"7.", "07/04/2024"},
                                                                  {"11/3", "11/03/2026"},
                                                                  {"3.11.", "03/11/2026"},
                                                                  {"3-11", "03/11/2026"},
                                                                  {"3 11", "03/11/2026"},
                                                                  {"31", "31"},
                                                                  {"31/02", "31/02"},
                                                                  {"3/11/", "03/11/2026"},
                                                                  {"0", "0"}}) {
    EXPECT_EQ(typed(field, text), shown) << text;
    EXPECT_EQ(field.IsDay(), std::string_view(shown).size() == 10) << text;
  }
  const IcuLocale american("en_US");
  DateField monthFirst(american, clock_, nullptr);
  Show(monthFirst);
  EXPECT_EQ(typed(monthFirst, "11/3"), "11/3/2026");
  EXPECT_EQ(monthFirst.Day().ToIso(), "2026-11-03");
}

TEST_F(Fields, NonsenseStaysInColourForWhoeverSavesToSee) {
  DateField field(locale_, clock_, nullptr);
  Show(field);
  const QColor usual = field.palette().color(QPalette::Text);
  for (const char* text : {"31/02/2026", "soon", "1/1/0019", "99"}) {
    Retype(field, text);
    EXPECT_EQ(field.palette().color(QPalette::Text), usual) << "not while it is typed";
    EXPECT_EQ(field.Day(), clock_.Today()) << text;
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(field.text(), text);
    Leave();
    EXPECT_EQ(field.text(), text);
    EXPECT_FALSE(field.IsDay());
    EXPECT_NE(field.palette().color(QPalette::Text), usual);
  }
  field.setFocus();
  field.clear();
  QSignalSpy entered(&field, &QLineEdit::returnPressed);
  QTest::keyClick(&field, Qt::Key_Return);
  EXPECT_EQ(entered.count(), 0) << "what is saved is seen first";
  EXPECT_EQ(field.selectedText(), "21/11/2026");
  QTest::keyClick(&field, Qt::Key_Return);
  EXPECT_EQ(entered.count(), 1);
  field.clear();
  Leave();
  EXPECT_EQ(field.text(), "21/11/2026");
  EXPECT_TRUE(field.IsDay());
}

TEST_F(Fields, TheCalendarTakesADayByKeyOrClick) {
  DateField field(locale_, clock_, nullptr);
  Show(field);
  const auto open = [&]() -> ucCalendar& {
    QTest::keyClick(&field, Qt::Key_F4);
    return *QApplication::activePopupWidget()->findChild<ucCalendar*>();
  };
  QTest::keyClick(&open(), Qt::Key_Down);
  EXPECT_EQ(field.text(), "21/11/2026") << "not yet";
  QTest::keyClick(QApplication::activePopupWidget()->focusProxy(), Qt::Key_Return);
  EXPECT_EQ(field.text(), "28/11/2026");
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  ucCalendar& calendar = open();
  QTest::mouseClick(&calendar, Qt::LeftButton, {}, calendar.ArrowRect(true).center());
  EXPECT_NE(QApplication::activePopupWidget(), nullptr) << "the next month";
  QTest::mouseClick(&calendar, Qt::LeftButton, {}, calendar.DayRect(QDate(2026, 12, 24)).center());
  EXPECT_EQ(field.text(), "24/12/2026");
  QTest::keyClick(&open(), Qt::Key_Up);
  QTest::keyClick(QApplication::activePopupWidget()->focusProxy(), Qt::Key_Escape);
  EXPECT_EQ(field.text(), "24/12/2026");
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(Fields, ANameIsCompletedAndWhatIsTypedCanStay) {
  PickBox box(nullptr);
  box.SetItems({{1, QStringLiteral("Acme Company")},
                {2, QStringLiteral("The Good Grocer")},
                {3, QStringLiteral("The Good Garage")},
                {4, QStringLiteral("Acme")}});
  Show(box);
  QLineEdit& field = *box.lineEdit();
  const auto type = [&](const QString& text) {
    for (const QChar letter : text) {
      QTest::keyClick(&field, letter.toLatin1());
      QCoreApplication::processEvents();
    }
  };
  type(QStringLiteral("the good g"));
  EXPECT_EQ(field.text(), "the good grocer");
  EXPECT_EQ(field.selectedText(), "rocer") << "typing on replaces it";
  type(QStringLiteral("a"));
  EXPECT_EQ(field.text(), "the good garage");
  EXPECT_EQ(box.Key(), 3);
  QTest::keyClick(&field, Qt::Key_Delete);
  QCoreApplication::processEvents();
  EXPECT_EQ(field.text(), "the good ga") << "a new name that another one begins with";
  EXPECT_EQ(box.Key(), 0);
  field.selectAll();
  type(QStringLiteral("acm"));
  EXPECT_EQ(field.text(), "acme Company");
  type(QStringLiteral("e"));
  EXPECT_EQ(field.text(), "acme") << "a name of the list is not made longer";
  EXPECT_EQ(box.Key(), 4);
  QTest::keyClick(&field, Qt::Key_Backspace);
  QCoreApplication::processEvents();
  EXPECT_EQ(field.text(), "acm");
}

TEST_F(Fields, TheOpenListGivesWayToMnemonicsAndEnter) {
  QDialog dialog;
  QPushButton save(&dialog);
  save.setDefault(true);
  PickBox box(&dialog);
  box.SetItems({{1, QStringLiteral("Food")}, {2, QStringLiteral("Fast Food")}});
  dialog.show();
  dialog.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  QLineEdit& field = *box.lineEdit();
  QAbstractItemView& list = *box.completer()->popup();
  const auto open = [&](const QString& text) {
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, text);
    QCoreApplication::processEvents();
    ASSERT_TRUE(list.isVisible());
  };
  open(QStringLiteral("foo"));
  QTest::keyPress(&list, Qt::Key_Alt);
  EXPECT_FALSE(list.isVisible());
  QTest::keyClick(&field, 'x', Qt::AltModifier);
  EXPECT_EQ(field.text(), "food") << "as it was completed";
  QSignalSpy saved(&save, &QPushButton::clicked);
  open(QStringLiteral("foo"));
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_FALSE(list.isVisible());
  EXPECT_EQ(saved.count(), 1) << "one Enter does both";
  EXPECT_EQ(field.text(), "Food");
  open(QStringLiteral("ood"));
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(saved.count(), 1) << "a new name may still become one of those offered";
}

TEST_F(Fields, LettersOfCommandsAreNotTyped) {
  AmountEdit amount(locale_, nullptr);
  DateField day(locale_, clock_, nullptr);
  PickBox name(nullptr);
  const std::initializer_list<std::pair<QWidget*, QLineEdit*>> fields{
      {&amount, &amount}, {&day, &day}, {&name, name.lineEdit()}};
  for (const auto& [field, line] : fields) {
    Show(*field);
    const QString before = line->text();
    for (const Qt::KeyboardModifier held : {Qt::AltModifier, Qt::MetaModifier}) {
      for (const char key : {'x', '5', 't', '+'}) {
        QTest::keyClick(line, key, held);
        EXPECT_EQ(line->text(), before) << key;
      }
    }
  }
}

TEST_F(Fields, WhatIsBeyondTheLargestAmountStaysAsTyped) {
  for (const AmountText left : {AmountText::Rounded, AmountText::AsTyped}) {
    AmountEdit field(locale_, nullptr, left);
    Show(field);
    Retype(field, "9999999999999.99");
    Leave();
    EXPECT_EQ(field.text(), "9,999,999,999,999.99");
    for (const QString& text : {QStringLiteral("10000000000000"), QString(100, u'9')}) {
      Retype(field, text);
      Leave();
      EXPECT_EQ(field.text(), text);
    }
    Retype(field, "1e308");
    Leave();
    EXPECT_EQ(field.text(), "1,308.00");
  }
}

TEST_F(Fields, AChoiceIsOneOrNone) {
  ChoiceRow row(QStringLiteral("op"), {{0, "None"}, {1, "One"}, {2, "Two"}}, nullptr);
  Show(row);
  EXPECT_EQ(row.Choice(), std::nullopt);
  row.SetChoice(2);
  EXPECT_EQ(row.Choice(), 2);
  QSignalSpy chosen(&row, &ChoiceRow::Chosen);
  QTest::mouseClick(row.findChild<QRadioButton*>("op1"), Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_EQ(row.Choice(), 1);
  EXPECT_EQ(chosen.count(), 1);
  row.SetChoice(std::nullopt);
  EXPECT_EQ(row.Choice(), std::nullopt);
}

}  // namespace
}  // namespace corvanta
