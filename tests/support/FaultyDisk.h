// Work on a data file whose disk fails on the way.
#pragma once

#include "support/FaultPlan.h"
#include "support/TemporaryStore.h"

#include <functional>
#include <memory>
#include <string>

namespace corvanta {

using StoreWork = std::function<void(Connection&)>;

// Opens the data file of a store that is closed, on a sound disk.
[[nodiscard]] std::unique_ptr<Connection> OpenSound(TemporaryStore& store);

// Works on the file of a closed store in a process of its own, in which operation `at` of the disk
// fails; true when it came to its end.
[[nodiscard]] bool WorkOnFaultyDisk(TemporaryStore& store, Fault fault, long at,
                                    const StoreWork& work);

// Works on the file of a closed store from its present state with the first operation failing, with
// the second, and so on, until it comes to its end. What each leaves must be a sound file and a
// consistent ledger; `check` gets it, and whether the work was done. Returns how often it was
// stopped; fails the test where it never came to its end.
int SweepFaults(TemporaryStore& store, Fault fault, const StoreWork& work,
                const std::function<void(Connection&, bool isDone)>& check);

}  // namespace corvanta
