#include "app/FrmMessage.h"

#include "controls/LongText.h"
#include "controls/Style.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta::inline app {
namespace {
constexpr int kLongText = 500;   // characters
constexpr int kManyLines = 12;   // line ends
constexpr int kLineLength = 76;  // characters that are easily read in one line
constexpr int kMargin = 2 * kRhythm;
}  // namespace

bool FrmMessage::IsLong(const QString& text) {
  return text.size() > kLongText || text.count(u'\n') > kManyLines;
}

FrmMessage::FrmMessage(const QString& title, const QString& text, QWidget* parent)
    : QuietEnd(parent) {
  setObjectName(QStringLiteral("FrmMessage"));
  setWindowTitle(title);
  setModal(true);
  auto* label = new QLabel(Breakable(text));
  label->setObjectName(QStringLiteral("lblMessage"));
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  auto* area = new QScrollArea(this);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setAccessibleName(title);
  area->setWidget(label);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdAccept"));
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  page->setSpacing(kMargin);
  page->addWidget(area, 1);
  page->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  buttons->button(QDialogButtonBox::Ok)->setFocus();
  // Frame and title are not known before the window is shown.
  const QSize room = screen()->availableSize() - QSize(4 * kRhythm, 8 * kRhythm);
  const int bar = area->verticalScrollBar()->sizeHint().width();
  const int wide =
      std::min(kLineLength * fontMetrics().averageCharWidth(), room.width() - 2 * kMargin - bar);
  const int high = label->heightForWidth(wide) + 3 * kMargin + buttons->sizeHint().height();
  resize(wide + bar + 2 * kMargin, std::min(high, room.height()));
}

}  // namespace corvanta::inline app
