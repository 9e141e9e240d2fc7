#include "app/TabStops.h"

#include <QWidget>

#include <algorithm>
#include <iterator>
#include <vector>

namespace corvanta::inline app {
namespace {

// One whose keys go to another widget is no stop of its own.
bool IsStop(const QWidget& widget, const QWidget& window) {
  return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget.focusProxy() == nullptr &&
         widget.isVisibleTo(&window) && widget.isEnabled() && widget.window() == &window;
}

std::vector<QWidget*> StopsOf(QWidget& window) {
  std::vector<QWidget*> stops;
  for (QWidget* at = window.nextInFocusChain(); at != nullptr && at != &window;
       at = at->nextInFocusChain()) {
    if (IsStop(*at, window)) stops.push_back(at);
  }
  return stops;
}

}  // namespace

bool GoToStop(QWidget& window, bool next) {
  const std::vector<QWidget*> stops = StopsOf(window);
  if (stops.empty()) return false;
  const auto at = std::ranges::find(stops, window.focusWidget());
  const auto count = std::ssize(stops);
  auto place = at == stops.end() ? (next ? -1 : count) : std::distance(stops.begin(), at);
  place = (place + (next ? 1 : count - 1)) % count;
  stops[static_cast<std::size_t>(place)]->setFocus(next ? Qt::TabFocusReason
                                                        : Qt::BacktabFocusReason);
  return true;
}

}  // namespace corvanta::inline app
