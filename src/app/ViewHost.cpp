#include "app/ViewHost.h"

#include <QAction>

namespace corvanta::inline app {

void ViewPlace::On(QAction* action, QObject* owner, const std::function<void()>& command) const {
  QObject::connect(action, &QAction::triggered, owner,
                   [to = &host, command] { to->Guard(command); });
}

}  // namespace corvanta::inline app
