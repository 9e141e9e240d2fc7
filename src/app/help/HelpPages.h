// The pages that can be read about the program's windows.
#pragma once

#include <QString>

#include <string_view>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline app {

// The file name of the page about the window of that name ("FrmOptions"); empty where there is
// none.
[[nodiscard]] std::string_view HelpPageOf(std::string_view window);

// The folder of the pages: beside the program, or among its shared files.
[[nodiscard]] QString HelpFolder();

// Has the desktop show the page about that window; says so where there is none, or where the
// desktop cannot. Without a folder the program's own is meant.
void ShowHelp(std::string_view window, Platform& platform, const QString& folder = QString());

}  // namespace corvanta::inline app
