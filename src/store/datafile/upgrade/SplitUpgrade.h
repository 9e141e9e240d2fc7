#pragma once

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline datafile {

// Turns split links round where a file still keeps them as texts: the parent listed its lines'
// keys, from now on each line holds its parent's key. Lines take the parent's status flags. A
// table whose links are numbers already is left alone. Throws StoreError.
void UpgradeSplitLinks(Connection& connection);

}  // namespace corvanta::inline datafile
