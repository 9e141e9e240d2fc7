#pragma once

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace corvanta {

// Adds to a fixture what it takes to work dialogs as a person does, shown where nobody sees them.
template <typename Fixture>
class DialogTest : public Fixture {
 protected:
  template <typename Widget>
  static Widget& Find(const QWidget& dialog, const char* name) {
    auto* found = dialog.findChild<Widget*>(QLatin1String(name));
    if (found == nullptr) throw std::runtime_error(std::string("no ") + name);
    return *found;
  }
  static void Click(const QWidget& dialog, const char* button) {
    QTest::mouseClick(&Find<QPushButton>(dialog, button), Qt::LeftButton);
  }
  // In front, as a person has it before they type.
  static void Show(QDialog& dialog) {
    dialog.show();
    ComeForward(dialog);
  }
  // Without a window manager nobody gives the focus to the last of several windows.
  static void ComeForward(QDialog& dialog) {
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialog.isActiveWindow(); }));
  }
  // Types over what the field holds, as a person does.
  static void Type(const QWidget& dialog, const char* field, const QString& text) {
    auto& widget = Find<QWidget>(dialog, field);
    widget.setFocus();
    QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&widget, Qt::Key_Delete);
    QTest::keyClicks(&widget, text);
    if (QWidget* completions = QApplication::activePopupWidget()) completions->hide();
  }
  static QString FocusOf(const QWidget& dialog) {
    return dialog.focusWidget() == nullptr ? QString() : dialog.focusWidget()->objectName();
  }
  static QString NoteOf(const QWidget& dialog) {
    const auto& note = Find<QLabel>(dialog, "lblNote");
    return note.isVisibleTo(&dialog) ? note.text() : QString();
  }
  // Does something in the dialog that the next command opens; then closes it, if it still stands.
  static void InNextDialog(const std::function<void(QDialog&)>& act) {
    QTimer::singleShot(0, qApp, [act] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      ComeForward(*dialog);
      act(*dialog);
      if (dialog->isVisible()) dialog->reject();
      // A test that went wrong must not wait for a person.
      if (dialog->isVisible()) dialog->done(QDialog::Rejected);
    });
  }
};

}  // namespace corvanta
