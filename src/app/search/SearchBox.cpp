#include "app/search/SearchBox.h"

#include "controls/MutedLabel.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"

#include <QAction>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace corvanta::inline app {
namespace {
constexpr int kWidth = 27 * kRhythm;
constexpr int kSmallest = 19 * kRhythm;
}  // namespace

SearchBox::SearchBox(QWidget* parent)
    : QWidget(parent),
      text_(new QLineEdit(this)),
      found_(new MutedLabel(this)),
      everywhere_(new QCheckBox(tr("All acco&unts"), this)),
      below_(new QWidget(this)) {
  setObjectName(QStringLiteral("pnlFind"));
  text_->setObjectName(QStringLiteral("txtFind"));
  text_->setPlaceholderText(tr("Find"));
  text_->setAccessibleName(tr("Find"));
  text_->setToolTip(
      tr("Words and amounts, all of which a row must have (Ctrl+F). Enter goes on to the next, "
         "Escape leaves."));
  text_->setClearButtonEnabled(true);
  text_->addAction(SvgIcon(QStringLiteral("find")), QLineEdit::LeadingPosition);
  text_->setMinimumWidth(kSmallest);
  text_->setMaximumWidth(kWidth);
  text_->installEventFilter(this);
  found_->setObjectName(QStringLiteral("lblFound"));
  everywhere_->setObjectName(QStringLiteral("chkEverywhere"));
  everywhere_->setToolTip(tr("Look through all accounts, not only the one that is shown"));
  everywhere_->installEventFilter(this);
  // The list below does not move when something is looked for.
  QSizePolicy stays = below_->sizePolicy();
  stays.setRetainSizeWhenHidden(true);
  below_->setSizePolicy(stays);
  auto* line = new QHBoxLayout(below_);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(kRhythm);
  line->addWidget(everywhere_);
  line->addWidget(found_, 1, Qt::AlignRight);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kRhythm / 4);
  column->addWidget(text_);
  column->addWidget(below_);
  column->addStretch(1);
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
  ShowBelow();
  connect(text_, &QLineEdit::textChanged, this, [this] {
    ShowBelow();
    Q_EMIT Typed();
  });
  connect(text_, &QLineEdit::textEdited, this, [this] { isGiven_ = false; });
  connect(everywhere_, &QCheckBox::toggled, this, [this] {
    ownChoice_.reset();
    Q_EMIT Typed();
  });
}

QSize SearchBox::minimumSizeHint() const {
  return {std::max(kSmallest, QWidget::minimumSizeHint().width()),
          QWidget::minimumSizeHint().height()};
}

void SearchBox::Enter() {
  text_->setFocus(Qt::ShortcutFocusReason);
  if (IsEmpty() && !last_.isEmpty()) text_->setText(last_);
  text_->selectAll();
}

void SearchBox::Find(const QString& text, bool isEverywhere) {
  KeepLast();
  isGiven_ = true;
  if (!ownChoice_) ownChoice_ = everywhere_->isChecked();
  {
    const QSignalBlocker quietText(text_);
    const QSignalBlocker quietChoice(everywhere_);
    text_->setText(text);
    everywhere_->setChecked(isEverywhere);
  }
  ShowBelow();
  text_->setFocus(Qt::OtherFocusReason);
  Q_EMIT Typed();
}

void SearchBox::KeepLast() {
  if (!isGiven_ && !IsEmpty()) last_ = Text();
}

void SearchBox::Clear() {
  KeepLast();
  const QSignalBlocker quietText(text_);
  const QSignalBlocker quietChoice(everywhere_);
  text_->clear();
  if (ownChoice_) everywhere_->setChecked(*ownChoice_);
  ownChoice_.reset();
  isGiven_ = false;
  ShowFound({});
  ShowBelow();
}

QString SearchBox::Text() const {
  return text_->text().trimmed();
}

bool SearchBox::IsEverywhere() const {
  return offersEverywhere_ && everywhere_->isChecked();
}

void SearchBox::ShowFound(const QString& text) {
  found_->setText(text);
  // Whoever does not see the list hears it with the field.
  text_->setAccessibleDescription(text);
}

void SearchBox::ShowBelow() {
  everywhere_->setVisible(offersEverywhere_);
  below_->setVisible(!IsEmpty());
}

void SearchBox::Escape() {
  Clear();
  Q_EMIT Left();
}

void SearchBox::ServeList(QWidget* list) {
  list->installEventFilter(this);
}

bool SearchBox::HandleKey(int key, Qt::KeyboardModifiers held) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if ((held & Qt::ShiftModifier) != 0) {
        Q_EMIT Previous();
      } else {
        Q_EMIT Next();
      }
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      Q_EMIT Moved(key);
      return true;
    case Qt::Key_Escape:
      Escape();
      return true;
    default:
      return false;
  }
}

bool SearchBox::eventFilter(QObject* watched, QEvent* event) {
  if (watched == text_ && event->type() == QEvent::FocusIn) Q_EMIT Entered();
  if (event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<const QKeyEvent*>(event);
    const bool isOwn = watched == text_ || watched == everywhere_;
    if (!isOwn && key.key() == Qt::Key_Escape && !IsEmpty()) {
      Escape();
      return true;
    }
    if (isOwn && HandleKey(key.key(), key.modifiers())) return true;
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace corvanta::inline app
