#include "controls/EmptyState.h"

#include "controls/MutedLabel.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvanta::inline controls {
namespace {
constexpr int kPicture = 6 * kRhythm;
constexpr int kTextWidth = 45 * kRhythm;
}  // namespace

EmptyState::EmptyState(QWidget* parent)
    : QWidget(parent),
      picture_(new QLabel(this)),
      title_(new QLabel(this)),
      text_(new MutedLabel(this)),
      button_(new QPushButton(this)) {
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  picture_->setAlignment(Qt::AlignCenter);
  title_->setFont(ScaledFont(1, QFont::DemiBold));
  title_->setAlignment(Qt::AlignCenter);
  text_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  text_->setWordWrap(true);
  text_->setFixedWidth(kTextWidth);
  text_->setForegroundRole(QPalette::WindowText);
  title_->setForegroundRole(QPalette::WindowText);
  button_->setObjectName(QStringLiteral("cmdEmptyState"));
  auto* column = new QVBoxLayout(this);
  column->setSpacing(kRhythm);
  column->addStretch(2);
  column->addWidget(picture_);
  column->addWidget(title_);
  column->addWidget(text_, 0, Qt::AlignHCenter);
  column->addSpacing(kRhythm);
  column->addWidget(button_, 0, Qt::AlignHCenter);
  column->addStretch(3);
  connect(button_, &QPushButton::clicked, this, [this] {
    if (action_ != nullptr) action_->trigger();
  });
}

void EmptyState::Show(const QString& icon, const QString& title, const QString& text,
                      QAction* action) {
  icon_ = icon;
  action_ = action;
  title_->setText(title);
  text_->setText(text);
  // A label that wraps its text asks for one line's height unless it is told otherwise.
  text_->setMinimumHeight(text_->heightForWidth(kTextWidth));
  button_->setVisible(action != nullptr);
  // The keys of the view work here, too.
  setFocusPolicy(Qt::StrongFocus);
  setFocusProxy(action != nullptr ? button_ : nullptr);
  if (action != nullptr) {
    button_->setText(action->statusTip());
    button_->setMinimumWidth(fontMetrics().horizontalAdvance(button_->text()) + 4 * kRhythm);
  }
  Colour();
}

void EmptyState::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) Colour();
  QWidget::changeEvent(event);
}

void EmptyState::Colour() {
  picture_->setPixmap(
      SvgIcon(icon_).pixmap(QSize(kPicture, kPicture), devicePixelRatioF(), QIcon::Disabled));
}

}  // namespace corvanta::inline controls
