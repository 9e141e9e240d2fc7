// Rows of a list as text, for the clipboard.
#pragma once

#include <QString>

#include <vector>

class QTableView;

namespace corvanta::inline controls {
class ListTable;
}

namespace corvanta::inline app {

// The chosen rows from the first to the last.
[[nodiscard]] std::vector<int> ChosenRowsOf(const QTableView& list);
// A line of headings and one for each of these rows, as a spreadsheet takes them over: the columns
// that are shown, or would be if there were room for them, in their order, with tabs between them.
// A tab or a line end in a text is a blank.
[[nodiscard]] QString RowsAsText(const ListTable& list, const std::vector<int>& rows);

}  // namespace corvanta::inline app
