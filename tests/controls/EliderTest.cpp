#include "controls/Elider.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace corvanta {
namespace {

TEST(Elider, ATextFollowsItsRoomAndIsWholeAgain) {
  const QString name = QStringLiteral("Water & Sewage of the Western Provinces");
  QWidget window;
  auto* line = new QHBoxLayout(&window);
  auto* label = new QLabel(&window);
  auto* button = new QPushButton(&window);
  for (QWidget* part : {static_cast<QWidget*>(label), static_cast<QWidget*>(button)}) {
    part->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    line->addWidget(part);
    (new Elider(*part))->SetText(name);
  }
  window.resize(160, 40);
  window.show();
  QCoreApplication::processEvents();
  EXPECT_TRUE(label->text().endsWith(u'…')) << qPrintable(label->text());
  EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width());
  EXPECT_TRUE(button->text().endsWith(u'…')) << qPrintable(button->text());
  EXPECT_EQ(label->accessibleName(), name) << "read out whole";
  EXPECT_EQ(button->accessibleName(), name);
  window.resize(1600, 40);
  QCoreApplication::processEvents();
  EXPECT_EQ(label->text(), name);
  EXPECT_EQ(button->text(), QString(name).replace(u'&', "&&")) << "no mnemonic";
}

}  // namespace
}  // namespace corvanta
