#include "controls/QuietEnd.h"

#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <memory>

namespace corvanta {
namespace {

struct Calls {
  bool isGone = false;
  int alive = 0;
  int late = 0;

  void Count() { ++(isGone ? late : alive); }
};

// What a dialog holds itself goes before its widgets do.
class Member {
 public:
  explicit Member(Calls& calls) : calls_(calls) {}
  ~Member() { calls_.isGone = true; }
  Member(const Member&) = delete;
  Member& operator=(const Member&) = delete;

 private:
  Calls& calls_;
};

// One field that the dialog listens to, on a page that listens, too.
class Dialog : public QuietEnd<QDialog> {
 public:
  explicit Dialog(Calls& calls) : member_(calls), page_(new QWidget(this)) {
    field_ = new QLineEdit(page_);
    (new QVBoxLayout(this))->addWidget(page_);
    (new QVBoxLayout(page_))->addWidget(field_);
    connect(field_, &QLineEdit::editingFinished, this, [&calls] { calls.Count(); });
    connect(field_, &QLineEdit::editingFinished, page_, [&calls] { calls.Count(); });
    connect(this, &QDialog::finished, page_, [&calls] { calls.Count(); });
  }
  QLineEdit& Field() { return *field_; }

 private:
  Member member_;
  QWidget* page_;
  QLineEdit* field_;
};

TEST(QuietEnd, NoSlotRunsOnAHalfDestroyedWindow) {
  Calls calls;
  auto dialog = std::make_unique<Dialog>(calls);
  dialog->show();
  dialog->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  dialog->Field().setFocus();
  QTest::keyClick(&dialog->Field(), 'x');
  QTest::keyClick(&dialog->Field(), Qt::Key_Return);
  EXPECT_EQ(calls.alive, 2) << "while it stands, they listen";
  dialog->show();
  dialog->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  dialog->Field().setFocus();
  QTest::keyClick(&dialog->Field(), 'y');
  dialog.reset();
  EXPECT_TRUE(calls.isGone);
  EXPECT_EQ(calls.late, 0);
}

}  // namespace
}  // namespace corvanta
