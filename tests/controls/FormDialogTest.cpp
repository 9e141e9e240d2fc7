#include "controls/ChoiceRow.h"
#include "controls/FormDialog.h"
#include "support/ScriptedPrompts.h"

#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

namespace corvanta {
namespace {

class Form : public FormDialog {
 public:
  explicit Form(Prompts& prompts) : FormDialog(QStringLiteral("FrmTest"), prompts, nullptr) {
    QFont large = font();
    large.setPointSize(16);
    setFont(large);
    AddField(QStringLiteral("&Status:"),
             new ChoiceRow(QStringLiteral("op"),
                           {{0, "Uncleared"}, {1, "Cleared"}, {2, "Reconciled"}, {3, "Unchanged"}},
                           this),
             "opStatus");
  }
};

TEST(FormDialog, NoChoiceOfARowIsCutInALargeFont) {
  ScriptedPrompts prompts;
  Form form(prompts);
  form.show();
  form.resize(form.minimumSizeHint());
  QCoreApplication::processEvents();
  const auto buttons = form.findChildren<QRadioButton*>();
  ASSERT_FALSE(buttons.isEmpty());
  for (const auto* button : buttons) {
    EXPECT_GE(button->width(), button->sizeHint().width()) << qPrintable(button->text());
  }
}

}  // namespace
}  // namespace corvanta
