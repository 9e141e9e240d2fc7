#pragma once

#include <QIcon>
#include <QString>

namespace corvanta::inline controls {

// Makes the program's pictures available; called once before the first SvgIcon.
void InitPictures();

// The line icon of that name ("open"), drawn in the text colour of the palette in force at the
// moment it is painted: muted while disabled, in the selection's text colour on a selection.
// An unknown name gives an empty icon.
[[nodiscard]] QIcon SvgIcon(const QString& name);

// The program's own picture, in its own colours.
[[nodiscard]] QIcon ProgramIcon();

}  // namespace corvanta::inline controls
