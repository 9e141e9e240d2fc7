#pragma once

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline datafile {

// Deletes transactions of no account, and split lines (of schedules and of transactions) whose
// parent is gone or is a transfer, which cannot be split.
void CleanUpOrphans(Connection& connection);

}  // namespace corvanta::inline datafile
