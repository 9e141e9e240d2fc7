#pragma once

#include <string>
#include <vector>

namespace corvanta::inline platform {

// The folders in which the system looks for programs.
[[nodiscard]] std::vector<std::string> ProgramFolders();

// A spreadsheet program of the person's own that is asked, without its window, to write a workbook
// in another form.
class SpreadsheetProgram {
 public:
  // The first that is installed in these folders.
  explicit SpreadsheetProgram(const std::vector<std::string>& folders);

  [[nodiscard]] bool IsInstalled() const { return !path_.empty(); }
  // The bytes of an .xlsx workbook as those of a file with that extension ("xls"). What it works on
  // lies in a folder that nobody else may look into, and goes with it. Throws PlatformError when
  // the program gives no such file.
  [[nodiscard]] std::string Convert(const std::string& workbook,
                                    const std::string& extension) const;

 private:
  std::string path_;  // empty for none
};

}  // namespace corvanta::inline platform
