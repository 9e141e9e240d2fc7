#include "app/FrmAbout.h"

#include "controls/MutedLabel.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace corvanta::inline app {
namespace {
constexpr int kPicture = 8 * kRhythm;
constexpr int kTextWidth = 40 * kRhythm;
}  // namespace

FrmAbout::FrmAbout(QWidget* parent) : QuietEnd(parent) {
  setObjectName(QStringLiteral("FrmAbout"));
  setWindowTitle(tr("About"));
  auto* picture = new QLabel(this);
  picture->setPixmap(ProgramIcon().pixmap(kPicture, kPicture));
  picture->setAlignment(Qt::AlignTop);
  auto* name = new QLabel(QStringLiteral("Corvanta Personal Finance"), this);
  name->setFont(ScaledFont(2, QFont::DemiBold));
  auto* version = new MutedLabel(this);
  version->setObjectName(QStringLiteral("lblVersion"));
  version->setText(tr("Version %1").arg(QCoreApplication::applicationVersion()));
  auto* text = new QLabel(
      tr("Keeps your bank, cash, credit-card, loan and investment accounts in one encrypted file "
         "on your own machine.\n\nFree software under the GNU General Public License, version 3 "
         "or later. It comes without any warranty."),
      this);
  text->setWordWrap(true);
  text->setFixedWidth(kTextWidth);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  auto* words = new QVBoxLayout;
  words->setSpacing(kRhythm / 2);
  words->addWidget(name);
  words->addWidget(version);
  words->addSpacing(kRhythm);
  words->addWidget(text);
  auto* top = new QHBoxLayout;
  top->setSpacing(2 * kRhythm);
  top->addWidget(picture);
  top->addLayout(words);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(2 * kRhythm, 2 * kRhythm, 2 * kRhythm, 2 * kRhythm);
  page->setSpacing(2 * kRhythm);
  page->addLayout(top);
  page->addWidget(buttons);
  page->setSizeConstraint(QLayout::SetFixedSize);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

}  // namespace corvanta::inline app
