#include "controls/ucRibbon.h"

#include "controls/RibbonButton.h"
#include "controls/Style.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QAction>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace corvanta::inline controls {
namespace {

// The line between two groups, shorter than the bar.
class RibbonSeparator : public QWidget {
 public:
  explicit RibbonSeparator(QWidget* parent) : QWidget(parent) { setFixedWidth(2 * kRhythm + 1); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(Hairline(palette()));
    painter.drawLine(width() / 2, kRhythm, width() / 2, height() - kRhythm);
  }
};

// Folds the ribbon and unfolds it again.
class FoldButton : public QAbstractButton {
 public:
  explicit FoldButton(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setCheckable(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  }
  [[nodiscard]] QSize sizeHint() const override { return {3 * kRhythm, 2 * kRhythm}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  // It is the ribbon that says whether it is folded.
  void nextCheckState() override {}
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor accent = AccentColour(palette());
    if (underMouse() || hasFocus()) {
      painter.setPen(hasFocus() ? QPen(accent, 1) : QPen(Qt::NoPen));
      painter.setBrush(Mixed(accent, palette().color(QPalette::Window), 0.12));
      painter.drawRoundedRect(rect().adjusted(2, 2, -2, -3), 3, 3);
    }
    painter.setPen(QPen(MutedText(palette()), 1.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const double tip = isChecked() ? 2 : -2;
    const QPointF middle = QRectF(rect()).center();
    const QPointF corners[] = {middle + QPointF(-4, -tip), middle + QPointF(0, tip),
                               middle + QPointF(4, -tip)};
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(corners, 3);
  }
};

// Assistive tools hear of a tool bar.
void TellRoles() {
  static const bool isTold = [] {
    QAccessible::installFactory([](const QString& name, QObject* object) {
      QAccessibleInterface* made = nullptr;
      if (name == QLatin1String(ucRibbon::staticMetaObject.className())) {
        made = new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::ToolBar);
      }
      return made;
    });
    return true;
  }();
  (void)isTold;
}

}  // namespace

ucRibbon::ucRibbon(QWidget* parent)
    : QWidget(parent),
      panel_(new QWidget(this)),
      buttons_(new QHBoxLayout(panel_)),
      fold_(new FoldButton(this)) {
  TellRoles();
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(panel_, 1);
  row->addWidget(fold_);
  buttons_->setContentsMargins(kRhythm, kRhythm / 2, kRhythm, kRhythm / 2);
  buttons_->setSpacing(kRhythm / 4);
  buttons_->addStretch();
  // As narrow as the window may be; the icons find their place.
  panel_->setMinimumWidth(1);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  setAccessibleName(tr("Commands"));
  fold_->setObjectName(QStringLiteral("rbFold"));
  connect(fold_, &QAbstractButton::clicked, this, &ucRibbon::FoldRequested);
  fold_->installEventFilter(this);
  all_.push_back(fold_);
  SetFolded(false);
}

void ucRibbon::AddButton(QAction* action) {
  auto* button = new RibbonButton(action, panel_);
  button->setObjectName(QStringLiteral("rb") + action->objectName());
  buttons_->insertWidget(buttons_->count() - 1, button);
  button->installEventFilter(this);
  all_.insert(all_.end() - 1, button);
  KeepStop();
}

void ucRibbon::AddSeparator() {
  buttons_->insertWidget(buttons_->count() - 1, new RibbonSeparator(panel_));
}

void ucRibbon::SetFolded(bool folded) {
  const bool hadKeys = panel_->isAncestorOf(focusWidget());
  isFolded_ = folded;
  panel_->setVisible(!folded);
  const QString text = folded ? tr("Show the ribbon") : tr("Fold the ribbon");
  fold_->setAccessibleName(text);
  fold_->setToolTip(text);
  fold_->setChecked(folded);
  KeepStop();
  if (hadKeys && folded && hasFocus()) fold_->setFocus();
  updateGeometry();
}

std::vector<QAbstractButton*> ucRibbon::Stops() const {
  std::vector<QAbstractButton*> stops;
  for (QAbstractButton* button : all_) {
    if (button->isEnabled() && button->isVisibleTo(this)) stops.push_back(button);
  }
  return stops;
}

void ucRibbon::SetStop(QAbstractButton* stop) {
  stop_ = stop;
  for (QAbstractButton* button : all_) {
    button->setFocusPolicy(button == stop ? Qt::TabFocus : Qt::NoFocus);
  }
}

void ucRibbon::KeepStop() {
  const auto stops = Stops();
  if (stops.empty() || std::ranges::count(stops, stop_) > 0) return;
  SetStop(stops.front());
}

void ucRibbon::Move(int steps) {
  const auto stops = Stops();
  if (stops.empty()) return;
  const auto at = std::ranges::find(stops, stop_) - stops.begin();
  const auto last = static_cast<std::ptrdiff_t>(stops.size()) - 1;
  SetStop(stops[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(at + steps, 0, last))]);
  stop_->setFocus(Qt::TabFocusReason);
}

bool ucRibbon::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::EnabledChange:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
      KeepStop();
      break;
    case QEvent::FocusIn:
      if (auto* button = qobject_cast<QAbstractButton*>(watched)) SetStop(button);
      break;
    case QEvent::KeyPress:
      // A button would go to its neighbour by itself, of which none is a stop.
      if (Take(static_cast<const QKeyEvent&>(*event))) return true;
      break;
    default:
      break;
  }
  return QWidget::eventFilter(watched, event);
}

void ucRibbon::Arrange() {
  using Room = RibbonButton::Room;
  const auto widthIn = [this](Room room) {
    int width = 2 * kRhythm;
    for (int place = 0; place < buttons_->count(); ++place) {
      const QWidget* widget = buttons_->itemAt(place)->widget();
      if (widget == nullptr || widget->isHidden()) continue;
      const auto* button = qobject_cast<const RibbonButton*>(widget);
      width += button != nullptr ? button->WidthIn(room) : widget->minimumWidth();
      width += buttons_->spacing();
    }
    return width;
  };
  const int there = width() - fold_->width();
  Room room = Room::Icon;
  for (const Room wanted : {Room::Tight, Room::Ample}) {
    if (widthIn(wanted) <= there) room = wanted;
  }
  for (RibbonButton* button : findChildren<RibbonButton*>()) button->SetRoom(room);
}

QSize ucRibbon::minimumSizeHint() const {
  return {0, QWidget::minimumSizeHint().height()};
}

bool ucRibbon::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) Arrange();
  return QWidget::event(event);
}

void ucRibbon::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Arrange();
}

void ucRibbon::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(Hairline(palette()));
  painter.drawLine(0, height() - 1, width(), height() - 1);
}

bool ucRibbon::Take(const QKeyEvent& event) {
  const int forward = isRightToLeft() ? -1 : 1;
  const int all = static_cast<int>(all_.size());
  switch (event.key()) {
    case Qt::Key_Right:
      Move(forward);
      return true;
    case Qt::Key_Left:
      Move(-forward);
      return true;
    case Qt::Key_Home:
      Move(-all);
      return true;
    case Qt::Key_End:
      Move(all);
      return true;
    default:
      return false;
  }
}

}  // namespace corvanta::inline controls
