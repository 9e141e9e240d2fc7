#include "app/help/QtHelpKey.h"

#include "app/help/HelpPages.h"
#include "controls/CommandEdge.h"
#include "controls/QtText.h"
#include "platform/Platform.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>

namespace corvanta::inline app {

QtHelpKey::QtHelpKey(Platform& platform) : platform_(platform) {
  qApp->installEventFilter(this);
}

bool QtHelpKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto* key = static_cast<const QKeyEvent*>(event);
  const auto* widget = qobject_cast<const QWidget*>(watched);
  if (widget == nullptr || key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier) {
    return false;
  }
  const auto* dialog = qobject_cast<const QDialog*>(widget->window());
  // A box of the system's own has no name, and no page.
  if (dialog == nullptr || !dialog->objectName().startsWith(QStringLiteral("Frm"))) return false;
  RunCommand(platform_.prompts, [&] { ShowHelp(FromQt(dialog->objectName()), platform_); });
  return true;
}

}  // namespace corvanta::inline app
