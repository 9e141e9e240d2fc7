// What is said of files that are written for other programs.
#pragma once

namespace corvanta::inline platform {

inline constexpr const char* kFileExport = "File Export";
inline constexpr const char* kFileExportWarning = "File Export Warning";
inline constexpr const char* kFileExportComplete = "File Export Complete";
inline constexpr const char* kNeedsExtension =
    "Please enter, file name including correct file extension";

}  // namespace corvanta::inline platform
