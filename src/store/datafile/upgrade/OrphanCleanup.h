#pragma once

namespace corvanta {

class Connection;

// Deletes transactions of no account, and split lines (of schedules and of transactions) whose
// parent is gone or is a transfer, which cannot be split.
void CleanUpOrphans(Connection& connection);

}  // namespace corvanta
